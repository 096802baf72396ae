#pragma once

#include "core/dynamic_error.h"

#include <string>

namespace lumenfold {

// The message for the user, without a line end. Where it is the bare name of a file that is not there, it says so
// and names the folder that was searched.
std::string errorText(const DynamicError& error);

} // namespace lumenfold
