#pragma once

#include <functional>

namespace lumenfold::art {

// Calls task(0) .. task(count - 1), each once, from as many threads as workerCount() says; returns when all are done.
// Which thread takes which index is open, so a task must depend on its index alone: then any number of threads
// gives the same result. The first exception of a task is thrown on.
void parallelFor(int count, const std::function<void(int)>& task);

int workerCount(); // 2 unless LUMENFOLD_FORGE_THREADS says otherwise

} // namespace lumenfold::art
