#include "assets/lightwave.h"

#include "assets/big_endian.h"
#include "assets/file.h"
#include "assets/lightwave_surface.h"
#include "assets/notice.h"
#include "assets/planar_coordinates.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iostream>
#include <unordered_map>

namespace lumenfold {

namespace {

constexpr std::size_t headerSize = 8; // identifier and 32-bit length
constexpr std::size_t pointSize = 12;
constexpr std::size_t triangleSize = 10;

// A triangle as the file holds it.
struct Triangle {
    std::array<std::int16_t, 3> points;
    std::int16_t surface; // 1 is the first
};

class ObjectReader {
  public:
    ObjectReader(BigEndianReader bytes, Mesh& destination, std::uint32_t bits, std::ostream& commentary)
        : file(bytes), mesh(destination), modeBits(bits), out(commentary) {}

    void read() {
        if (!readForm())
            return;
        while (file.remaining() >= headerSize && readChunk()) {
        }
        makeFaces();
        bindSurfaces();
    }

    // What keeps faces of the object from being drawn, empty when nothing does.
    std::string fault() const {
        const std::size_t lost = triangles.size() - mesh.faces.size();
        if (!foreign.empty())
            return foreign;
        if (polygons == 0)
            return cutShort ? "the file ends before the object's faces" : "an object without faces";
        if (triangles.empty())
            return "an object without triangles; other faces are not read";
        if (polygons > triangles.size())
            return "faces that are not triangles are left out: " + countText(polygons - triangles.size());
        if (lost > 0)
            return "faces that lack a point are left out: " + countText(lost);
        return cutShort ? "the file ends early; what is missing is not drawn" : "";
    }

  private:
    std::string countText(std::size_t faces) const { return std::to_string(faces) + " of " + std::to_string(polygons); }

    // Whether this is a LightWave object.
    bool readForm() {
        const std::string container = file.readIdentifier();
        out << "length of file : " << file.readU32() << " bytes \n";
        if (container != "FORM") {
            reportForeign(container);
            return false;
        }
        out << "found FORM chunk.. \n";
        const std::string type = file.readIdentifier();
        if (type != "LWOB") {
            reportForeign(type);
            foreign = type.compare(0, 2, "LW") == 0 ? "a LightWave file of type " + type + "; only type LWOB is read"
                                                    : "not a LightWave object";
            return false;
        }
        out << "found LWOB specifier.. \n";
        return true;
    }

    void reportForeign(const std::string& identifier) {
        out << "\n This is NOT an .lwo file, you retarded asshole!!!  \n"
            << "this is a " << identifier << " file "
            << "\n";
    }

    // Whether the reading goes on.
    bool readChunk() {
        const std::string identifier = file.readIdentifier();
        const std::uint32_t length = file.readU32();
        if (length > file.remaining()) {
            out << "chunk " << identifier << " is longer than the file, skipped \n";
            cutShort = true;
            return false;
        }
        const BigEndianReader chunk = file.take(length);
        if (length % 2 != 0)
            file.skipPadByte();
        if (identifier == "PNTS")
            readPoints(chunk);
        else if (identifier == "SRFS")
            readSurfaceNames(chunk);
        else if (identifier == "POLS")
            readPolygons(chunk);
        else if (identifier == "SURF")
            return describeSurface(chunk);
        else
            out << "found unsupported chunk....\n"
                << "called: " << identifier << "\n"
                << "length of chunk: " << length << " bytes \n \n";
        return true;
    }

    void readPoints(BigEndianReader chunk) {
        const std::size_t count = chunk.remaining() / pointSize;
        out << "found PNTS chunk....\n"
            << "length of chunk : " << chunk.remaining() << " bytes \n"
            << "number of vertices: " << count << "\n \n";
        mesh.vertexCount = static_cast<std::uint32_t>(count);
        mesh.vertices.assign(count, MeshVertex{});
        for (MeshVertex& vertex : mesh.vertices) {
            vertex.x = chunk.readFloat();
            vertex.y = chunk.readFloat();
            vertex.z = chunk.readFloat();
        }
        mesh.transformed = mesh.vertices;
        for (std::uint32_t k = 0; k < mesh.vertexCount; ++k)
            mesh.transformed[k].index = k;
    }

    void readSurfaceNames(BigEndianReader chunk) {
        out << "found SRFS chunk....\n"
            << "length of chunk: " << chunk.remaining() << " bytes \n \n";
        const std::size_t count = countNames(chunk);
        out << "number of surfaces.. " << count << "\n";
        mesh.materials = std::vector<MeshMaterial>(count);
        mesh.materialCount = static_cast<std::uint32_t>(count);
        surfaceNumbers.clear();
        for (std::size_t i = 0; i < count; ++i) {
            const std::string name = chunk.readName().value_or("");
            out << "string length is " << name.size() + 1 << "\n";
            mesh.materials[i].name = name;
            surfaceNumbers[name] = static_cast<std::int32_t>(i); // the last one of a name is the one described
        }
        if (chunk.remaining() > 0 && !chunk.readName())
            out << "name without an end, skipped \n";
        for (std::size_t i = 0; i < count; ++i) {
            out << "surface " << i << " is called " << mesh.materials[i].name << "\n";
            mesh.materials[i].mode = modeBits;
        }
    }

    // Zero bytes that directly follow another byte.
    static std::size_t countNames(BigEndianReader chunk) {
        std::size_t count = 0;
        std::uint8_t previous = 0;
        while (chunk.remaining() > 0) {
            const std::uint8_t byte = chunk.readU8();
            count += byte == 0 && previous != 0;
            previous = byte;
        }
        return count;
    }

    void readPolygons(BigEndianReader chunk) {
        out << "found POLS chunk....\n"
            << "length of chunk: " << chunk.remaining() << " bytes \n \n";
        triangles.clear();
        polygons = 0;
        triangles.reserve(chunk.remaining() / triangleSize);
        while (chunk.remaining() > 0) {
            const std::size_t corners = chunk.readU16();
            ++polygons;
            if (corners != 3)
                out << "fucked up object!! non-triangle faces!!! \n"
                    << "face has " << corners << " vertices!! \n";
            const std::size_t size = 2 * corners + 2;
            if (size > chunk.remaining()) {
                out << "polygon without its end, skipped \n";
                break;
            }
            BigEndianReader polygon = chunk.take(size);
            if (corners == 3)
                triangles.push_back({{polygon.readI16(), polygon.readI16(), polygon.readI16()}, polygon.readI16()});
        }
        out << triangles.size();
    }

    // After the last chunk, because the points may follow the polygons.
    void makeFaces() {
        mesh.faces.clear();
        mesh.faces.reserve(triangles.size());
        for (const Triangle& triangle : triangles) {
            MeshFace face;
            face.surface = triangle.surface - 1;
            for (std::size_t i = 0; i < 3; ++i)
                face.corners[i] = pointAt(triangle.points[i]);
            if (std::find(face.corners.begin(), face.corners.end(), nullptr) == face.corners.end())
                mesh.faces.push_back(face);
        }
        mesh.faceCount = static_cast<std::uint32_t>(mesh.faces.size());
        if (mesh.faceCount < triangles.size())
            out << "\n" << triangles.size() - mesh.faceCount << " faces with absent points skipped \n";
    }

    // Null where there is none. Numbers are signed, so that an object has at most 32768 points.
    MeshVertex* pointAt(std::int16_t number) const {
        const bool present = number >= 0 && static_cast<std::uint32_t>(number) < mesh.vertexCount;
        return present ? &mesh.transformed[static_cast<std::size_t>(number)] : nullptr;
    }

    // Whether the surface is known; reading ends with one that is not.
    bool describeSurface(BigEndianReader chunk) {
        const std::size_t length = chunk.remaining();
        out << "found SURF chunk....\n";
        const std::optional<std::string> name = chunk.readName();
        if (!name) {
            out << "surface name without an end, skipped \n";
            return true;
        }
        const auto found = surfaceNumbers.find(*name);
        const std::int32_t number = found != surfaceNumbers.end() ? found->second : -1;
        out << "describing " << *name << " surface "
            << "(" << number << ")"
            << "\n"
            << "length of chunk: " << length << " bytes \n";
        if (number < 0)
            return false;
        readSurface(chunk, mesh.materials[static_cast<std::size_t>(number)], out);
        return true;
    }

    // Surface by surface and face by face, because every layer of a corner draws random numbers.
    void bindSurfaces() {
        std::vector<MeshFace*> order;
        for (MeshFace& face : mesh.faces) {
            if (face.surface >= 0 && static_cast<std::uint32_t>(face.surface) < mesh.materialCount)
                order.push_back(&face);
        }
        std::stable_sort(order.begin(), order.end(),
                         [](const MeshFace* a, const MeshFace* b) { return a->surface < b->surface; });
        for (MeshFace* face : order) {
            MeshMaterial& material = mesh.materials[static_cast<std::size_t>(face->surface)];
            face->material = &material;
            if (material.colourLayer)
                mapFace(*face, *material.colourLayer, face->uv1);
            if (material.reflectionLayer)
                mapFace(*face, *material.reflectionLayer, face->uv2);
            if (material.transparencyLayer)
                mapFace(*face, *material.transparencyLayer, face->uv3);
        }
    }

    void mapFace(const MeshFace& face, const TextureLayer& layer, FaceCoordinates& coordinates) const {
        for (std::size_t i = 0; i < 3; ++i) {
            const MeshVertex& vertex = mesh.vertices[face.corners[i]->index];
            const TexturePoint point = planarCoordinates(layer, vertex.x, vertex.y, vertex.z);
            coordinates[2 * i] = point.u;
            coordinates[2 * i + 1] = point.v;
        }
    }

    BigEndianReader file;
    Mesh& mesh;
    std::uint32_t modeBits;
    std::ostream& out;
    std::vector<Triangle> triangles;
    std::size_t polygons = 0; // triangles and others
    std::string foreign;      // why the file is no object of the type that is read
    bool cutShort = false;
    std::unordered_map<std::string, std::int32_t> surfaceNumbers; // by name, zero-based
};

void setIdentity(Matrix& matrix) {
    matrix = {};
    for (std::size_t i = 0; i < 16; i += 5)
        matrix[i] = 1.0F;
}

} // namespace

std::string readLightWaveObject(const std::uint8_t* bytes, std::size_t size, Mesh& mesh, std::uint32_t modeBits,
                                std::ostream& commentary) {
    setIdentity(mesh.orientation);
    ObjectReader reader(BigEndianReader(bytes, size), mesh, modeBits, commentary);
    reader.read();
    const std::string foreign = foreignText("LightWave", bytes, size);
    return foreign.empty() ? reader.fault() : foreign;
}

void readLightWaveObject(const char* fileName, Mesh& mesh, std::uint32_t modeBits) {
    setIdentity(mesh.orientation);
    const std::optional<std::vector<std::uint8_t>> bytes = readFile(fileName);
    if (!bytes) {
        notice(fileName, unreadableText(fileName, errno) + "; nothing is drawn in its place");
        std::cout << "\n  file not found!!!!! \n";
        return;
    }
    notice(fileName, readLightWaveObject(bytes->data(), bytes->size(), mesh, modeBits, std::cout));
}

} // namespace lumenfold
