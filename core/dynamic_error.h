#pragma once

#include <stdexcept>
#include <string>

namespace lumenfold {

// An error that ends the demo: raised by the picture readers and the driver, caught at the program entry and shown
// to the user by the console layer. The message begins with the file name where a file is at fault.
class DynamicError : public std::runtime_error {
  public:
    explicit DynamicError(const std::string& message) : std::runtime_error(message) {}
};

} // namespace lumenfold
