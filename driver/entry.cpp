#include "driver/music.h"
#include "driver/run.h"

namespace lumenfold {

std::int32_t enterProgram(const SceneTable& scenes) {
    Display display;
    programDisplay = &display;
    std::int32_t status = 0;
    try {
        run(scenes);
    } catch (const DynamicError& error) {
        ptc::report(error);
    } catch (const MusicFailure& failure) {
        status = failure.status;
    }
    programDisplay = nullptr;
    return status;
}

} // namespace lumenfold
