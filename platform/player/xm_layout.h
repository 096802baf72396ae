#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace lumenfold {

// What is wrong with the file's outline: no XM module at all, or one that ends before the patterns, instruments and
// samples that its headers announce. Empty if nothing is. The player's library plays what is left of a damaged
// tune, and a show without its sync commands would wait for ever.
// Source: the XM module format, version 1.04.
std::string xmFault(const std::vector<std::uint8_t>& file);

} // namespace lumenfold
