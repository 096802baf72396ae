#pragma once

namespace lumenfold {

// Whether SDL would play through a PulseAudio server that has no sink. SDL's sound dies by a null pointer when it is
// started then (SDL 2.26). Waits for the server, however long it takes. Always false in a build without libpulse.
bool soundServerWithoutSink();

} // namespace lumenfold
