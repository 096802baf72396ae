#include "assets/lightwave.h"

#include "assets/image.h"
#include "assets/prepare.h"
#include "core/dynamic_error.h"
#include "core/random.h"
#include "object_builder.h"
#include "tests/support/temporary_file.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <limits>
#include <memory>
#include <sstream>

namespace lumenfold {
namespace {

using namespace object_builder;

// Reads from a block of exactly the file's size, so that a sanitizer sees any byte read beyond it.
std::string readObject(const std::string& file, Mesh& mesh, std::uint32_t modeBits = 1) {
    const auto bytes = std::make_unique<std::uint8_t[]>(file.size());
    std::memcpy(bytes.get(), file.data(), file.size());
    std::ostringstream commentary;
    readLightWaveObject(bytes.get(), file.size(), mesh, modeBits, commentary);
    return commentary.str();
}

// Everything that the mesh points to is touched.
void useMesh(Mesh& mesh) {
    ASSERT_EQ(mesh.vertexCount, mesh.transformed.size());
    ASSERT_EQ(mesh.faceCount, mesh.faces.size());
    computeNormals(mesh);
    for (const MeshFace& face : mesh.faces) {
        for (const MeshVertex* corner : face.corners)
            ASSERT_LT(corner->index, mesh.vertexCount);
        if (face.material != nullptr) {
            ASSERT_EQ(face.material->mode & 1U, 1U);
        }
    }
}

const std::string square = chunk("PNTS", vector(1, 1, 0) + vector(-1, -1, 0) + vector(-1, 1, 0) + vector(1, -1, 0));
const std::string names = chunk("SRFS", name("Red") + name("Blue"));
const std::string faces = chunk("POLS", polygon({0, 1, 2}, 2) + polygon({0, 1, 2, 3}, 1) + polygon({3, 1, 0}, 1));

std::string layer(const std::string& identifier, const std::string& mapping, int axis) {
    return subChunk(identifier, name(mapping)) + subChunk("TFLG", u16(axis)) + subChunk("TSIZ", vector(2, 2, 2)) +
           subChunk("TCTR", vector(0, 0, 0)) + subChunk("TWRP", u16(2) + u16(3)) + subChunk("TIMG", name("(none)"));
}

const std::string surfaces =
    chunk("SURF", name("Red") + subChunk("COLR", std::string("\xC8\x64\x0A\0", 4)) + subChunk("FLAG", u16(0)) +
                      subChunk("TRAN", u16(0x102)) + layer("CTEX", "Planar Image Map", 4)) +
    chunk("SURF", name("Blue") + layer("TTEX", "Spherical Image Map", 9) + layer("RTEX", "Cylindrical Image Map", 2));

const std::string wholeFile = object(square + names + faces + chunk("CRVS", "ab") + surfaces +
                                     chunk("SURF", name("Green")) + chunk("PNTS", vector(0, 0, 0)));

TEST(LightWave, ReportsWhatItReads) {
    const std::string layerText = "found mapping flags chunk \n"
                                  "texture axis = AXIS\n"
                                  "found texture size subchunk \n"
                                  "found texture center subchunk \n"
                                  "found texture filename \n"
                                  "filename is : (none)\n"
                                  "no texture allocated \n";
    const auto layerOn = [&layerText](const std::string& axis) {
        std::string text = layerText;
        return text.replace(text.find("AXIS"), 4, axis);
    };
    Mesh mesh;
    EXPECT_EQ(readObject(wholeFile, mesh), "length of file : " + std::to_string(wholeFile.size() - 8) +
                                               " bytes \n"
                                               "found FORM chunk.. \n"
                                               "found LWOB specifier.. \n"
                                               "found PNTS chunk....\n"
                                               "length of chunk : 48 bytes \n"
                                               "number of vertices: 4\n \n"
                                               "found SRFS chunk....\n"
                                               "length of chunk: 10 bytes \n \n"
                                               "number of surfaces.. 2\n"
                                               "string length is 4\n"
                                               "string length is 5\n"
                                               "surface 0 is called Red\n"
                                               "surface 1 is called Blue\n"
                                               "found POLS chunk....\n"
                                               "length of chunk: 32 bytes \n \n"
                                               "fucked up object!! non-triangle faces!!! \n"
                                               "face has 4 vertices!! \n"
                                               "2"
                                               "found unsupported chunk....\n"
                                               "called: CRVS\n"
                                               "length of chunk: 2 bytes \n \n"
                                               "found SURF chunk....\n"
                                               "describing Red surface (0)\n"
                                               "length of chunk: 122 bytes \n"
                                               "found unsupported subchunk....\n"
                                               "called: FLAG    "
                                               "found transparency info \n"
                                               "found surface mapping info \n"
                                               "surface mapping is : Planar Image Map\n" +
                                               layerOn("4") +
                                               "found SURF chunk....\n"
                                               "describing Blue surface (1)\n"
                                               "length of chunk: 196 bytes \n"
                                               "found surface transparency mapping info \n"
                                               "surface transparency mapping is : Spherical Image Map\n" +
                                               layerOn("1") +
                                               "found surface reflection mapping info \n"
                                               "surface reflection mapping is : Cylindrical Image Map\n" +
                                               layerOn("2") +
                                               "found SURF chunk....\n"
                                               "describing Green surface (-1)\n"
                                               "length of chunk: 6 bytes \n");
}

TEST(LightWave, FillsTheMesh) {
    Mesh mesh;
    readObject(wholeFile, mesh);
    ASSERT_EQ(mesh.vertexCount, 4U); // the points after the unknown surface were not read
    EXPECT_EQ(mesh.vertices[3].x, 1.0F);
    EXPECT_EQ(mesh.vertices[3].y, -1.0F);
    EXPECT_EQ(mesh.transformed[3].index, 3U);
    EXPECT_EQ(mesh.orientation[5], 1.0F);

    ASSERT_EQ(mesh.materialCount, 2U);
    const MeshMaterial& red = mesh.materials[0];
    const MeshMaterial& blue = mesh.materials[1];
    EXPECT_EQ(red.colour, (std::array<std::uint8_t, 3>{200, 100, 10}));
    EXPECT_EQ(red.transparency, 0x102);
    EXPECT_EQ(red.mode, 0x09U);
    EXPECT_EQ(blue.mode, 0x31U);
    EXPECT_EQ(red.colourLayer->mapping, 1U);
    EXPECT_EQ(red.colourLayer->wrapHeight, 3);
    EXPECT_EQ(red.colourLayer->texels, nullptr);
    EXPECT_EQ(blue.transparencyLayer->mapping, 3U);
    EXPECT_EQ(blue.transparencyLayer->axis, 1U); // three bits of the flags
    EXPECT_EQ(blue.reflectionLayer->mapping, 2U);

    ASSERT_EQ(mesh.faceCount, 2U);
    EXPECT_EQ(mesh.faces[0].material, &blue);
    EXPECT_EQ(mesh.faces[1].material, &red);
    EXPECT_EQ(mesh.faces[1].corners[0], &mesh.transformed[3]);
    // Corners (1, -1), (-1, -1), (1, 1) over the whole texture, top row first.
    EXPECT_EQ(mesh.faces[1].uv1, (FaceCoordinates{255, 255, 0, 255, 255, 0}));
}

TEST(LightWave, PlanarAxes) {
    const struct {
        int axis;
        FaceCoordinates expected; // of (0.5, 0.25, -0.5), (1, 1, 1) and (0, 0, 0), centre 0, size 2
    } cases[] = {{1, {63, 95, 255, 0, 127, 127}}, {2, {191, 63, 255, 255, 127, 127}}, {4, {191, 95, 255, 0, 127, 127}}};
    for (const auto& c : cases) {
        Mesh mesh;
        readObject(object(chunk("PNTS", vector(0.5F, 0.25F, -0.5F) + vector(1, 1, 1) + vector(0, 0, 0)) +
                          chunk("SRFS", name("S")) + chunk("POLS", polygon({0, 1, 2}, 1)) +
                          chunk("SURF", name("S") + layer("CTEX", "Planar Image Map", c.axis))),
                   mesh);
        EXPECT_EQ(mesh.faces[0].uv1, c.expected) << "axis " << c.axis;
    }
}

TEST(LightWave, DrawsRandomNumbersBySurfaceAndFace) {
    resetRand();
    Mesh mesh;
    readObject(wholeFile, mesh);
    // First red's face (its planar coordinates replace the numbers), then blue's: reflection before transparency.
    resetRand();
    for (int i = 0; i < 6; ++i)
        rand();
    for (const FaceCoordinates* set : {&mesh.faces[0].uv2, &mesh.faces[0].uv3}) {
        for (const float value : *set)
            EXPECT_EQ(value, static_cast<float>(rand() % 256));
    }
}

TEST(LightWave, ForeignFiles) {
    const std::string insult = "\n This is NOT an .lwo file, you retarded asshole!!!  \nthis is a ";
    const struct {
        std::string file;
        std::string commentary;
    } cases[] = {
        {"RIFF" + u32(9) + "WAVE", "length of file : 9 bytes \n" + insult + "RIFF file \n"},
        {chunk("FORM", "LWO2"), "length of file : 4 bytes \nfound FORM chunk.. \n" + insult + "LWO2 file \n"},
        {"", "length of file : 0 bytes \n" + insult + " file \n"},
    };
    for (const auto& c : cases) {
        Mesh mesh;
        EXPECT_EQ(readObject(c.file, mesh), c.commentary);
        EXPECT_EQ(mesh.faceCount, 0U);
        EXPECT_EQ(mesh.orientation[0], 1.0F);
    }
    Mesh mesh;
    testing::internal::CaptureStdout();
    readLightWaveObject("no such object.lwo", mesh, 1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\n  file not found!!!!! \n");
    EXPECT_EQ(mesh.orientation[15], 1.0F);
}

TEST(LightWave, DamagedFilesAreSkippedAndReported) {
    const std::string hugeLength = u32(std::numeric_limits<std::uint32_t>::max());
    const struct {
        const char* what;
        std::string file;
        std::string reported;
        std::uint32_t faceCount;
    } cases[] = {
        {"vertex numbers beyond the points, and negative",
         square + chunk("POLS", polygon({0, 1, 4}, 1) + polygon({0, 1, 0xFFFF}, 1) + polygon({0, 1, 3}, 1)),
         "3\n2 faces with absent points skipped \n", 1},
        {"faces before points are no damage", faces + square, "number of vertices: 4\n \n", 2},
        {"faces without points", faces, "2\n2 faces with absent points skipped \n", 0},
        {"points replaced", square + faces + chunk("PNTS", vector(0, 0, 0)), "2 faces with absent points skipped \n",
         0},
        {"a chunk longer than the file", square + faces + "PNTS" + hugeLength + vector(0, 0, 0),
         "chunk PNTS is longer than the file, skipped \n", 2},
        {"a polygon with more corners than the chunk", square + chunk("POLS", u16(0xFFFF) + u16(0)),
         "polygon without its end, skipped \n0", 0},
        {"a triangle cut short", square + chunk("POLS", u16(3) + u16(0) + u16(1) + u16(2)),
         "polygon without its end, skipped \n0", 0},
        {"a surface name without an end", square + names + faces + chunk("SURF", "Red"),
         "found SURF chunk....\nsurface name without an end, skipped \n", 2},
        {"a last surface without an end", chunk("SRFS", name("Red") + "Blue"),
         "number of surfaces.. 1\nstring length is 4\nname without an end, skipped \n", 0},
        {"texture data without a layer", names + chunk("SURF", name("Red") + subChunk("TIMG", name("x.jpg"))),
         "sub-chunk TIMG without a texture layer, skipped \n", 0},
        {"a sub-chunk that is too short", names + chunk("SURF", name("Red") + subChunk("COLR", "ab")),
         "sub-chunk COLR is too short, skipped \n", 0},
        {"a sub-chunk longer than its surface", names + chunk("SURF", name("Red") + "TRAN" + u16(3) + u16(1)),
         "sub-chunk TRAN is longer than its surface, skipped \n", 0},
        {"a mapping name without an end", names + chunk("SURF", name("Red") + subChunk("CTEX", "Planar")),
         "name without an end, skipped \n", 0},
    };
    for (const auto& c : cases) {
        Mesh mesh;
        EXPECT_NE(readObject(object(c.file), mesh).find(c.reported), std::string::npos) << c.what;
        EXPECT_EQ(mesh.faceCount, c.faceCount) << c.what;
        useMesh(mesh);
    }
}

TEST(LightWave, EveryTruncation) {
    for (std::size_t length = 0; length < wholeFile.size(); ++length) {
        Mesh mesh;
        readObject(wholeFile.substr(0, length), mesh);
        useMesh(mesh);
    }
}

// Files that modelling programs wrote, from the Debian package assimp-testmodels.
TEST(LightWave, FilesOfOtherPrograms) {
    const std::string folder = "/usr/share/assimp/models/LWO/";
    if (!std::ifstream(folder + "LWO2/boxuv.lwo"))
        GTEST_SKIP() << "assimp-testmodels is not installed";
    const struct {
        const char* file;
        std::uint32_t vertexCount;
        std::uint32_t faceCount;
        const char* reported;
    } cases[] = {
        {"LWOB/sphere_with_mat_gloss_10pc.lwo", 266, 48, "called: GLOS    found unsupported subchunk....\n"},
        {"LWOB/ConcavePolygon.lwo", 64, 0, "face has 66 vertices!! \n0found SURF chunk....\n"},
        {"LWO2/boxuv.lwo", 0, 0, "asshole!!!  \nthis is a LWO2 file \n"},
    };
    for (const auto& c : cases) {
        Mesh mesh;
        testing::internal::CaptureStdout();
        readLightWaveObject((folder + c.file).c_str(), mesh, 1);
        EXPECT_NE(testing::internal::GetCapturedStdout().find(c.reported), std::string::npos) << c.file;
        EXPECT_EQ(mesh.vertexCount, c.vertexCount) << c.file;
        EXPECT_EQ(mesh.faceCount, c.faceCount) << c.file;
        useMesh(mesh);
    }
}

TEST(LightWave, PadBytesAreNoNames) {
    Mesh mesh;
    readObject(object(chunk("SRFS", name("Red") + name("Blue")) + chunk("ODDS", "x") + std::string(1, '\0') +
                      chunk("PNTS", vector(1, 2, 3))),
               mesh);
    ASSERT_EQ(mesh.materialCount, 2U);
    EXPECT_EQ(mesh.materials[1].name, "Blue");
    EXPECT_EQ(mesh.vertexCount, 1U);
    EXPECT_EQ(mesh.faces.size(), 0U);
}

TEST(LightWave, OfTwoSurfacesOfOneNameTheLastIsDescribed) {
    Mesh mesh;
    readObject(object(square + chunk("SRFS", name("S") + name("S")) +
                      chunk("POLS", polygon({0, 1, 2}, 1) + polygon({0, 1, 2}, 3) + polygon({0, 1, 2}, 0)) +
                      chunk("SURF", name("S") + subChunk("TRAN", u16(7)))),
               mesh);
    EXPECT_EQ(mesh.materials[0].transparency, 0);
    EXPECT_EQ(mesh.materials[1].transparency, 7);
    EXPECT_EQ(mesh.faces[0].material, &mesh.materials[0]);
    EXPECT_EQ(mesh.faces[1].material, nullptr); // numbers that match no surface
    EXPECT_EQ(mesh.faces[2].material, nullptr);
}

class LightWaveTextures : public testing::Test {
  protected:
    void SetUp() override { textureCache.open(); }
    void TearDown() override { textureCache.close(); }

    static std::string objectWith(const std::string& image) {
        return object(names + chunk("SURF", name("Red") + subChunk("CTEX", name("Planar Image Map")) +
                                                subChunk("TIMG", name(image))));
    }
};

TEST_F(LightWaveTextures, FetchesTheNamedPicture) {
    const test::TemporaryFile file("layer.tga", std::string(18 + 3 * texturePixels, '\x40'));
    const std::string picture = file.name();
    Mesh mesh;
    const std::string commentary = readObject(objectWith(picture), mesh);
    EXPECT_NE(commentary.find("filename is : " + picture + "\nsending " + picture + "\n"), std::string::npos);
    const TextureLayer& colourLayer = *mesh.materials[0].colourLayer;
    EXPECT_EQ(colourLayer.imageName, picture);
    ASSERT_NE(colourLayer.texels, nullptr);
    EXPECT_EQ(colourLayer.texels[0], 0x404040U);
}

TEST_F(LightWaveTextures, MissingPicturesAreErrors) {
    Mesh mesh;
    EXPECT_THROW(readObject(objectWith("no such picture.jpg"), mesh), DynamicError);
}

} // namespace
} // namespace lumenfold
