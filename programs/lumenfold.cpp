// The demo: the driver in a window with sound. Reads no command line.

#include "driver/run.h"
#include "programs/show_folder.h"

#include <filesystem>
#include <system_error>

namespace {

// The assets are read from the working directory. Where there is no show, an installed one takes its place.
void findShow() {
    const char* const tune = "bzzzz.xm";
    const std::filesystem::path installed = lumenfold::installedShow();
    std::error_code error;
    if (!std::filesystem::exists(tune, error) && std::filesystem::exists(installed / tune, error))
        std::filesystem::current_path(installed, error);
}

} // namespace

int main() {
    findShow();
    return lumenfold::enterProgram();
}
