#include "driver/error_text.h"

#include "assets/file.h"

namespace lumenfold {

std::string errorText(const DynamicError& error) {
    const std::string message = error.what();
    const auto* file = dynamic_cast<const FileError*>(&error);
    return file != nullptr ? message + ": " + unreadableText(message, file->reason) : message;
}

} // namespace lumenfold
