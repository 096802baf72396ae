#include "programs/show_folder.h"

#include <system_error>

namespace lumenfold {

std::filesystem::path installedShow() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error) {
        std::filesystem::path beside = program.parent_path().parent_path() / "share" / "lumenfold" / "show";
        if (std::filesystem::exists(beside, error))
            return beside;
    }
    return LUMENFOLD_SHOW_FOLDER;
}

} // namespace lumenfold
