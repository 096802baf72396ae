#pragma once

// The interface of Windows without what its header brings along.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <string>
#include <system_error>

namespace lumenfold {

// Why the last call failed.
inline std::string lastErrorText() {
    return std::system_category().message(static_cast<int>(GetLastError()));
}

} // namespace lumenfold
