#include "programs/show_folder.h"

#include "programs/windows/windows.h"

namespace lumenfold {

std::filesystem::path installedShow() {
    std::wstring program(260, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
        if (length < program.size()) {
            program.resize(length);
            return std::filesystem::path(program).parent_path() / "show";
        }
        program.resize(program.size() * 2); // it was cut
    }
}

} // namespace lumenfold
