#pragma once

#include <filesystem>

namespace lumenfold {

// The show of an installation: beside the running program's folder (../share/lumenfold/show) or, when the program's
// place is not known, where it was configured to be installed. It need not exist.
std::filesystem::path installedShow();

} // namespace lumenfold
