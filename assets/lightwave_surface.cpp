#include "assets/lightwave_surface.h"

#include "assets/image.h"

#include <ostream>

namespace lumenfold {

namespace {

constexpr std::size_t headerSize = 6; // identifier and 16-bit length

std::uint32_t mappingOf(const std::string& name) {
    if (name == "Planar Image Map")
        return 1;
    if (name == "Cylindrical Image Map")
        return 2;
    if (name == "Spherical Image Map")
        return 3;
    return 0;
}

Vector3 readVector(BigEndianReader& data) {
    const float x = data.readFloat();
    const float y = data.readFloat();
    const float z = data.readFloat();
    return {x, y, z};
}

class SurfaceReader {
  public:
    SurfaceReader(MeshMaterial& surface, std::ostream& commentary) : material(surface), out(commentary) {}

    void read(BigEndianReader chunk) {
        while (chunk.remaining() >= headerSize) {
            const std::string identifier = chunk.readIdentifier();
            const std::uint16_t length = chunk.readU16();
            if (length > chunk.remaining()) {
                out << "sub-chunk " << identifier << " is longer than its surface, skipped \n";
                return;
            }
            readSubChunk(identifier, chunk.take(length));
            if (length % 2 != 0)
                chunk.skipPadByte();
        }
    }

  private:
    struct Kind {
        const char* identifier;
        std::size_t size; // bytes of data at least
        bool needsLayer;
        void (SurfaceReader::*read)(BigEndianReader data);
    };

    void readSubChunk(const std::string& identifier, BigEndianReader data) {
        static constexpr Kind kinds[] = {
            {"COLR", 3, false, &SurfaceReader::readColour},
            {"TRAN", 2, false, &SurfaceReader::readTransparency},
            {"CTEX", 1, false, &SurfaceReader::openColourLayer},
            {"TTEX", 1, false, &SurfaceReader::openTransparencyLayer},
            {"RTEX", 1, false, &SurfaceReader::openReflectionLayer},
            {"TFLG", 2, true, &SurfaceReader::readFlags},
            {"TCTR", 12, true, &SurfaceReader::readCentre},
            {"TWRP", 4, true, &SurfaceReader::readWrap},
            {"TSIZ", 12, true, &SurfaceReader::readSize},
            {"TIMG", 1, true, &SurfaceReader::readImage},
        };
        for (const Kind& kind : kinds) {
            if (identifier != kind.identifier)
                continue;
            if (data.remaining() < kind.size)
                out << "sub-chunk " << identifier << " is too short, skipped \n";
            else if (kind.needsLayer && layer == nullptr)
                out << "sub-chunk " << identifier << " without a texture layer, skipped \n";
            else
                (this->*kind.read)(data);
            return;
        }
        out << "found unsupported subchunk....\n"
            << "called: " << identifier << "    ";
    }

    void readColour(BigEndianReader data) {
        for (std::uint8_t& component : material.colour)
            component = data.readU8();
    }

    void readTransparency(BigEndianReader data) {
        out << "found transparency info \n";
        material.transparency = data.readU16();
    }

    void openColourLayer(BigEndianReader data) { openLayer(data, material.colourLayer, modeColourLayer, "mapping"); }
    void openTransparencyLayer(BigEndianReader data) {
        openLayer(data, material.transparencyLayer, modeTransparencyLayer, "transparency mapping");
    }
    void openReflectionLayer(BigEndianReader data) {
        openLayer(data, material.reflectionLayer, modeReflectionLayer, "reflection mapping");
    }

    void openLayer(BigEndianReader data, std::unique_ptr<TextureLayer>& slot, std::uint32_t modeBit, const char* use) {
        const std::optional<std::string> name = readName(data);
        if (!name)
            return;
        out << "found surface " << use << " info \n"
            << "surface " << use << " is : " << *name << "\n";
        material.mode |= modeBit;
        slot = std::make_unique<TextureLayer>();
        slot->mapping = mappingOf(*name);
        layer = slot.get();
    }

    void readFlags(BigEndianReader data) {
        layer->axis = data.readU16() & 7U;
        out << "found mapping flags chunk \n"
            << "texture axis = " << layer->axis << "\n";
    }

    void readCentre(BigEndianReader data) {
        out << "found texture center subchunk \n";
        layer->centre = readVector(data);
    }

    void readWrap(BigEndianReader data) {
        layer->wrapWidth = data.readU16();
        layer->wrapHeight = data.readU16();
    }

    void readSize(BigEndianReader data) {
        out << "found texture size subchunk \n";
        layer->size = readVector(data);
    }

    void readImage(BigEndianReader data) {
        const std::optional<std::string> name = readName(data);
        if (!name)
            return;
        out << "found texture filename \n"
            << "filename is : " << *name << "\n";
        if (*name == "(none)") {
            out << "no texture allocated \n";
            return;
        }
        layer->imageName = *name;
        layer->texels = getTexture(name->c_str());
        out << "sending " << *name << "\n";
    }

    std::optional<std::string> readName(BigEndianReader& data) {
        std::optional<std::string> name = data.readName();
        if (!name)
            out << "name without an end, skipped \n";
        return name;
    }

    MeshMaterial& material;
    std::ostream& out;
    TextureLayer* layer = nullptr; // the one opened last
};

} // namespace

void readSurface(BigEndianReader subChunks, MeshMaterial& material, std::ostream& commentary) {
    SurfaceReader(material, commentary).read(subChunks);
}

} // namespace lumenfold
