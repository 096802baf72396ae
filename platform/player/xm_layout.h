#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace lumenfold {

struct XmLayout {
    // Why the file must not be played, empty when it may: it is no XM module, or it ends before its patterns do. The
    // player's library plays what is left of such a tune, and a show without its sync commands would wait for ever.
    std::string fault;
    // The file lacks instruments or samples that its headers announce. What is there can be played.
    bool cutShort = false;
};

// Source: the XM module format, versions 1.02 to 1.04.
XmLayout xmLayout(const std::vector<std::uint8_t>& file);

} // namespace lumenfold
