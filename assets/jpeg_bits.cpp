#include "assets/jpeg_bits.h"

#include "assets/jpeg_markers.h"

namespace lumenfold {

JpegBits JpegBitReader::refillBytes(JpegBits window) {
    while (window.available <= 56) {
        window.bits |= std::uint64_t{nextByte()} << (56 - window.available);
        window.available += 8;
    }
    return window;
}

std::uint8_t JpegBitReader::nextByte() {
    while (stop == Stop::None) {
        if (next == end) {
            stop = Stop::End;
            break;
        }
        const std::uint8_t byte = *next++;
        if (byte != 0xFF)
            return byte;
        while (next != end && *next == 0xFF) // fill bytes may stand before a marker
            ++next;
        if (next == end)
            continue;
        const std::uint8_t marker = *next++;
        if (marker == 0x00)
            return 0xFF;
        skipMarker(marker);
    }
    padding += 8;
    return 0;
}

void JpegBitReader::skipMarker(std::uint8_t marker) {
    if (marker == jpeg::endOfImage || marker == jpeg::numberOfLines) {
        stop = Stop::End;
    } else if (jpeg::isRestart(marker)) {
        if (restarts)
            stop = Stop::Restart;
    } else if (jpeg::hasSegment(marker)) {
        const std::ptrdiff_t left = end - next;
        const std::ptrdiff_t length = left < 2 ? left : next[0] << 8 | next[1];
        next = length < left ? next + length : end;
    }
}

bool JpegBitReader::restart() {
    while (stop == Stop::None)
        nextByte();
    if (stop == Stop::End)
        return false;
    stop = Stop::None;
    ahead = {};
    padding = 0;
    return true;
}

} // namespace lumenfold
