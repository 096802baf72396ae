#include "forge/parallel.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace lumenfold::art {

int workerCount() {
    const char* wanted = std::getenv("LUMENFOLD_FORGE_THREADS");
    return wanted == nullptr ? 2 : std::clamp(std::atoi(wanted), 1, 64);
}

void parallelFor(int count, const std::function<void(int)>& task) {
    std::atomic<int> next = 0;
    std::exception_ptr failure;
    std::mutex failureMutex;
    const auto work = [&] {
        try {
            for (int i = next++; i < count; i = next++) {
                task(i);
            }
        } catch (...) {
            next = count;
            const std::lock_guard lock(failureMutex);
            failure = failure ? failure : std::current_exception();
        }
    };
    std::vector<std::thread> helpers;
    for (int i = 1; i < workerCount(); ++i) {
        helpers.emplace_back(work);
    }
    work();
    for (std::thread& helper : helpers) {
        helper.join();
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
}

} // namespace lumenfold::art
