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

constexpr std::uint64_t version102 = 0x0102; // its patterns have a byte for the number of rows
constexpr std::uint64_t version104 = 0x0104; // before it, the patterns stand between the instruments and their samples

void skipPattern(Walk& walk, std::uint64_t version) {
    const std::uint64_t packedRows = walk.number(version == version102 ? 6 : 7, 2);
    walk.skipHeader(walk.number(0, 4));
    walk.skip(packedRows);
}

// Returns the bytes of its samples, which follow later.
std::uint64_t skipInstrument(Walk& walk) {
    const std::uint64_t samples = walk.number(27, 2);
    const std::uint64_t headerSize = walk.number(29, 4);
    walk.skipHeader(walk.number(0, 4));
    std::uint64_t data = 0;
    for (std::uint64_t i = 0; i < samples && !walk.pastEnd(); ++i) {
        constexpr std::uint64_t packed = 0xAD; // four bits a sample value after a table of 16
        const std::uint64_t length = walk.number(0, 4);
        data += walk.number(17, 1) == packed ? 16 + (length + 1) / 2 : length;
        walk.skipHeader(headerSize);
    }
    return data;
}

} // namespace

XmLayout xmLayout(const std::vector<std::uint8_t>& file) {
    XmLayout layout;
    const std::string signature = "Extended Module: ";
    if (file.size() < signature.size() || !std::equal(signature.begin(), signature.end(), file.begin())) {
        layout.fault = "not an XM module";
        return layout;
    }
    Walk walk(file);
    const std::uint64_t version = walk.number(58, 2);
    walk.skip(60);
    const std::uint64_t patterns = walk.number(10, 2);
    const std::uint64_t instruments = walk.number(12, 2);
    walk.skipHeader(walk.number(0, 4));
    const auto skipPatterns = [&] {
        for (std::uint64_t i = 0; i < patterns && !walk.pastEnd(); ++i)
            skipPattern(walk, version);
        if (walk.pastEnd())
            layout.fault = "the file ends before its patterns do";
    };
    std::uint64_t samples = 0;
    if (version >= version104)
        skipPatterns();
    for (std::uint64_t i = 0; i < instruments && !walk.pastEnd(); ++i) {
        const std::uint64_t data = skipInstrument(walk);
        if (version >= version104)
            walk.skip(data);
        else
            samples += data;
    }
    if (version < version104)
        skipPatterns();
    walk.skip(samples);
    layout.cutShort = walk.pastEnd();
    return layout;
}

} // namespace lumenfold
