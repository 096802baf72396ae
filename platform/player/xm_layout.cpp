#include "platform/player/xm_layout.h"

#include <algorithm>
#include <cstddef>

namespace lumenfold {

namespace {

// Walks over the file by the sizes that its headers give; what lies beyond the end reads as 0. No header is shorter
// than the number that gives its size, so that every step leads on.
class Walk {
  public:
    explicit Walk(const std::vector<std::uint8_t>& walked) : file(walked) {}

    // A little-endian number so many bytes ahead.
    std::uint64_t number(std::size_t ahead, int bytes) const {
        std::uint64_t value = 0;
        for (int i = 0; i < bytes; ++i) {
            const std::uint64_t at = position + ahead + static_cast<std::size_t>(i);
            value |= static_cast<std::uint64_t>(at < file.size() ? file[at] : 0) << (8 * i);
        }
        return value;
    }

    void skip(std::uint64_t bytes) { position += bytes; }
    void skipHeader(std::uint64_t size) { skip(std::max<std::uint64_t>(size, 4)); }
    bool pastEnd() const { return position > file.size(); }

  private:
    const std::vector<std::uint8_t>& file;
    std::uint64_t position = 0;
};

void skipPattern(Walk& walk) {
    const std::uint64_t packedRows = walk.number(7, 2);
    walk.skipHeader(walk.number(0, 4));
    walk.skip(packedRows);
}

void skipInstrument(Walk& walk) {
    const std::uint64_t samples = walk.number(27, 2);
    const std::uint64_t headerSize = walk.number(29, 4);
    walk.skipHeader(walk.number(0, 4));
    std::uint64_t data = 0;
    for (std::uint64_t i = 0; i < samples && !walk.pastEnd(); ++i) {
        data += walk.number(0, 4);
        walk.skipHeader(headerSize);
    }
    walk.skip(data);
}

} // namespace

std::string xmFault(const std::vector<std::uint8_t>& file) {
    const std::string signature = "Extended Module: ";
    if (file.size() < signature.size() || !std::equal(signature.begin(), signature.end(), file.begin()))
        return "not an XM module";
    Walk walk(file);
    constexpr std::uint64_t version104 = 0x0104; // earlier versions keep another order; nobody writes them any more
    if (walk.number(58, 2) != version104)
        return "not an XM module of version 1.04";
    walk.skip(60);
    const std::uint64_t patterns = walk.number(10, 2);
    const std::uint64_t instruments = walk.number(12, 2);
    walk.skipHeader(walk.number(0, 4));
    for (std::uint64_t i = 0; i < patterns && !walk.pastEnd(); ++i)
        skipPattern(walk);
    for (std::uint64_t i = 0; i < instruments && !walk.pastEnd(); ++i)
        skipInstrument(walk);
    return walk.pastEnd() ? "the file ends early" : "";
}

} // namespace lumenfold
