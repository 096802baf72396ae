#include "forge/model.h"

#include <cstring>
#include <stdexcept>

// Source of the format: EA IFF 85 and the chunks of the LightWave object file (type "LWOB"); big-endian throughout,
// names zero-terminated and padded to an even length.

namespace lumenfold::art {

namespace {

class Bytes {
  public:
    void u16(std::uint32_t value) {
        data.push_back(static_cast<char>(value >> 8));
        data.push_back(static_cast<char>(value));
    }
    void u32(std::uint32_t value) {
        u16(value >> 16);
        u16(value & 0xFFFF);
    }
    void f32(double value) {
        const auto narrow = static_cast<float>(value);
        std::uint32_t bits;
        std::memcpy(&bits, &narrow, sizeof bits);
        u32(bits);
    }
    void vector(Point p) {
        f32(p.x);
        f32(p.y);
        f32(p.z);
    }
    void identifier(const char* id) { data.append(id, 4); }
    void name(const std::string& text) {
        data += text;
        data.push_back('\0');
        if (data.size() % 2 != 0)
            data.push_back('\0');
    }
    void chunk(const char* id, const Bytes& body) {
        identifier(id);
        u32(static_cast<std::uint32_t>(body.data.size()));
        data += body.data;
    }
    void subChunk(const char* id, const Bytes& body) {
        identifier(id);
        u16(static_cast<std::uint32_t>(body.data.size()));
        data += body.data;
    }
    std::string data;
};

void addMap(Bytes& surface, const char* id, const PlanarMap& map) {
    Bytes mapping;
    mapping.name("Planar Image Map");
    surface.subChunk(id, mapping);
    Bytes flags;
    flags.u16(static_cast<std::uint16_t>(map.axis));
    surface.subChunk("TFLG", flags);
    Bytes size;
    size.vector(map.size);
    surface.subChunk("TSIZ", size);
    Bytes centre;
    centre.vector(map.centre);
    surface.subChunk("TCTR", centre);
    Bytes image;
    image.name(map.image);
    surface.subChunk("TIMG", image);
}

Bytes surfaceChunk(const Surface& surface) {
    Bytes body;
    body.name(surface.name);
    Bytes colour;
    for (std::uint8_t component : surface.colour)
        colour.data.push_back(static_cast<char>(component));
    colour.data.push_back('\0');
    body.subChunk("COLR", colour);
    for (const PlanarMap& map : surface.colourMap)
        addMap(body, "CTEX", map);
    for (const PlanarMap& map : surface.reflectionMap)
        addMap(body, "RTEX", map);
    return body;
}

} // namespace

std::vector<std::uint8_t> encodeLightWaveObject(const Model& model) {
    if (model.points.size() > 32768)
        throw std::runtime_error("more than 32768 points");
    Bytes points;
    for (const Point& point : model.points)
        points.vector(point);
    Bytes names;
    for (const Surface& surface : model.surfaces)
        names.name(surface.name);
    Bytes polygons;
    for (const Triangle& triangle : model.triangles) {
        polygons.u16(3);
        for (std::uint32_t corner : triangle.corners)
            polygons.u16(corner);
        polygons.u16(triangle.surface + 1);
    }
    Bytes form;
    form.identifier("LWOB");
    form.chunk("PNTS", points);
    form.chunk("SRFS", names);
    form.chunk("POLS", polygons);
    for (const Surface& surface : model.surfaces)
        form.chunk("SURF", surfaceChunk(surface));
    Bytes file;
    file.chunk("FORM", form);
    return {file.data.begin(), file.data.end()};
}

} // namespace lumenfold::art
