// The demo: the driver in a window with sound. Reads no command line.

#include "driver/midas.h"
#include "driver/run.h"
#include "platform/sdl/message.h"
#include "programs/process_boundary.h"
#include "programs/show_folder.h"

#include <filesystem>
#include <string>
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
    lumenfold::guardProcess();
    lumenfold::neverWaitForReaders();
    findShow();
    const int status = lumenfold::enterProgram();
    if (status != 0)
        lumenfold::showMessage(std::string("MIDAS error: ") +
                               lumenfold::MIDASgetErrorMessage(lumenfold::MIDASgetLastError()));
    return status;
}
