#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

// Builds object files in memory: chunks are byte strings that append to each other.
namespace lumenfold::object_builder {

inline std::string u16(int value) {
    return {static_cast<char>(value >> 8), static_cast<char>(value)};
}
inline std::string u32(std::uint32_t value) {
    return u16(static_cast<int>(value >> 16)) + u16(static_cast<int>(value & 0xFFFF));
}
inline std::string f32(float value) {
    std::uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return u32(bits);
}
inline std::string vector(float x, float y, float z) {
    return f32(x) + f32(y) + f32(z);
}
// Zero-terminated and padded to an even length.
inline std::string name(std::string text) {
    text += '\0';
    if (text.size() % 2 != 0)
        text += '\0';
    return text;
}
inline std::string chunk(const std::string& identifier, const std::string& data) {
    return identifier + u32(static_cast<std::uint32_t>(data.size())) + data;
}
inline std::string subChunk(const std::string& identifier, const std::string& data) {
    return identifier + u16(static_cast<int>(data.size())) + data;
}
// Vertex numbers, then the one-based surface number.
inline std::string polygon(const std::vector<int>& corners, int surface) {
    std::string bytes = u16(static_cast<int>(corners.size()));
    for (const int corner : corners)
        bytes += u16(corner);
    return bytes + u16(surface);
}
inline std::string object(const std::string& chunks) {
    return chunk("FORM", "LWOB" + chunks);
}

} // namespace lumenfold::object_builder
