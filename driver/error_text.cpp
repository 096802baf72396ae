#include "driver/error_text.h"

#include <filesystem>
#include <system_error>

namespace lumenfold {

std::string errorText(const DynamicError& error) {
    std::string message = error.what();
    std::error_code ignored;
    const bool fileName = !message.empty() && message.find_first_of(" :") == std::string::npos;
    if (!fileName)
        return message;
    const bool exists = std::filesystem::exists(message, ignored);
    return message + (exists ? ": cannot be read in " : ": not found in ") +
           std::filesystem::current_path(ignored).string();
}

} // namespace lumenfold
