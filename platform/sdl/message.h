#pragma once

#include <string>

namespace lumenfold {

// Shows a failure to a viewer who started the demo without a terminal, in a message box. Does nothing where standard
// error is a terminal, where there is no screen, or with LUMENFOLD_MESSAGE_BOX=0.
void showMessage(const std::string& text);

} // namespace lumenfold
