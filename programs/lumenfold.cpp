// The demo: the driver in a window with sound. Reads no command line.

#include "driver/run.h"
#include "programs/show_folder.h"

#include <filesystem>
#include <system_error>

namespace {

bool holdsTune(const std::filesystem::path& folder) {
    std::error_code error;
    return std::filesystem::exists(folder / "bzzzz.xm", error) || std::filesystem::exists(folder / "endtune.xm", error);
}

// The assets are read from the working directory. Where neither tune is, an installed show takes its place; where one
// is missing, the demo says so.
void findShow() {
    const std::filesystem::path installed = lumenfold::installedShow();
    std::error_code error;
    if (!holdsTune(".") && holdsTune(installed))
        std::filesystem::current_path(installed, error);
}

} // namespace

int main() {
    findShow();
    return lumenfold::enterProgram();
}
