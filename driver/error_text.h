#pragma once

#include "core/dynamic_error.h"

#include <string>

namespace lumenfold {

// The message for the user, without a line end. Where a file cannot be read, it says why and names the folder that was
// searched.
std::string errorText(const DynamicError& error);

} // namespace lumenfold
