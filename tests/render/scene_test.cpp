#include "render/scene.h"

#include "filler_scene.h"
#include "render/matrix.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lumenfold {
namespace {

using namespace test;

// One triangle around its origin that looks towards negative z.
void fillTriangle(Mesh& mesh, Pixel32* texels, std::uint32_t mode) {
    mesh.vertices = {{-1, 1, 0, 0, 0, -1, 0}, {1, 1, 0, 1, 0, 0, 0}, {1, -1, 0, 0, 1, 0, 0}};
    mesh.transformed = mesh.vertices;
    for (std::uint32_t k = 0; k < 3; ++k)
        mesh.transformed[k].index = k;
    mesh.materials = std::vector<MeshMaterial>(1);
    mesh.materials[0].mode = mode;
    mesh.materials[0].colourLayer = std::make_unique<TextureLayer>();
    mesh.materials[0].colourLayer->texels = texels;
    MeshFace face;
    for (std::size_t i = 0; i < 3; ++i)
        face.corners[i] = &mesh.transformed[i];
    face.material = mesh.materials.data();
    face.uv2 = {1, 2, 3, 4, 5, 6};
    mesh.faces = {face};
    mesh.vertexCount = 3;
    mesh.faceCount = mesh.materialCount = 1;
    matrixIdentity(mesh.orientation);
}

class SceneTest : public testing::Test {
  protected:
    void draw(float bias = 0.0F) { drawScene(scene, picture.info(), picture.select(), bias); }
    Mesh& addTriangle(std::uint32_t mode = DrawMode::Affine) {
        Mesh& mesh = *scene.addObject();
        fillTriangle(mesh, texture.data(), mode);
        return mesh;
    }
    bool drawnAt(int x, int y) { return picture.depth()[y * 64 + x] > 0.0F; }

    std::vector<Pixel32> texture = randomPixels(texturePixels, 6);
    GuardedPicture picture{64, 48};
    Scene scene;
};

TEST_F(SceneTest, AnEmptySceneStillTurnsItsCamera) {
    scene.cameraAngles = {0, 0, 90};
    draw();
    EXPECT_NEAR(scene.cameraMatrix[1], 1.0F, 1e-6);
    EXPECT_EQ(std::count(picture.target(), picture.target() + picture.size(), 0U), 64 * 48);
}

TEST_F(SceneTest, MovesVerticesToTheCamera) {
    Mesh& mesh = addTriangle();
    draw();
    EXPECT_EQ(mesh.transformed[0].z, 10.0F);
    EXPECT_EQ(mesh.transformed[0].x, -1.0F);
    EXPECT_TRUE(drawnAt(33, 23));

    // Orientation, then place, then the camera's place and turn; normals by the orientation with its translation row.
    mesh.orientation[12] = 0.5F;
    mesh.position = {4, 0, -2};
    scene.cameraPosition = {4, 2, -10};
    scene.cameraAngles = {0, 0, 180};
    draw();
    const MeshVertex& vertex = mesh.transformed[0];
    EXPECT_NEAR(vertex.x, 0.5F, 1e-5); // -(-1 + 0.5)
    EXPECT_NEAR(vertex.y, 1.0F, 1e-5); // -(1 - 2)
    EXPECT_EQ(vertex.z, 8.0F);
    EXPECT_EQ(vertex.nx, 0.5F);
    EXPECT_EQ(vertex.nz, -1.0F);
    EXPECT_EQ(vertex.index, 0U);
}

TEST_F(SceneTest, SpinTurnsAtEveryDraw) {
    Mesh& mesh = addTriangle();
    mesh.spin = {0, 0, 90};
    draw();
    EXPECT_NEAR(mesh.transformed[0].x, -1.0F, 1e-5); // (-1, 1) turned to (-1, -1)
    EXPECT_NEAR(mesh.transformed[0].y, -1.0F, 1e-5);
    for (int i = 0; i < 3; ++i)
        draw();
    Matrix identity;
    matrixIdentity(identity);
    for (std::size_t k = 0; k < 16; ++k)
        EXPECT_NEAR(mesh.orientation[k], identity[k], 1e-5);
}

TEST_F(SceneTest, ReflectionModesMapTheNormals) {
    const FaceCoordinates mapped = {128, 128, 256, 128, 128, 256};
    EXPECT_EQ(addTriangle(DrawMode::Affine).faces[0].uv2, (FaceCoordinates{1, 2, 3, 4, 5, 6}));
    addTriangle(DrawMode::Reflection);
    addTriangle(modeReflectionLayer); // even where nothing is drawn
    scene.objects[2]->faces[0].material = nullptr;
    draw();
    EXPECT_EQ(scene.objects[0]->faces[0].uv2, (FaceCoordinates{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(scene.objects[1]->faces[0].uv2, mapped);
    EXPECT_EQ(scene.objects[2]->faces[0].uv2, (FaceCoordinates{1, 2, 3, 4, 5, 6}));
}

TEST_F(SceneTest, DepthNotOrderDecides) {
    Mesh& nearer = addTriangle();
    Mesh& farther = addTriangle();
    std::vector<Pixel32> white(texturePixels, 0x00FFFFFF);
    farther.materials[0].colourLayer->texels = white.data();
    nearer.position[2] = -1;
    draw();
    EXPECT_NE(picture.target()[23 * 64 + 33], 0x00FFFFFFU);
    farther.position[2] = -2;
    draw(3.0F);
    EXPECT_EQ(picture.target()[23 * 64 + 33], 0x00FFFFFFU);
}

TEST_F(SceneTest, OneMeshInTwoSlotsTurnsTwice) {
    Mesh& mesh = addTriangle();
    scene.objects[1] = scene.objects[0];
    scene.objectCount = 2;
    mesh.spin = {0, 0, 45};
    draw();
    EXPECT_NEAR(mesh.orientation[1], 1.0F, 1e-6);
    EXPECT_NEAR(mesh.transformed[0].y, -1.0F, 1e-5);
}

TEST_F(SceneTest, HoldsAHundredObjects) {
    for (int i = 0; i < Scene::maxObjects; ++i)
        EXPECT_NE(scene.addObject(), nullptr);
    EXPECT_EQ(scene.addObject(), nullptr);
    EXPECT_EQ(scene.objectCount, Scene::maxObjects);
}

TEST_F(SceneTest, CountsBeyondTheArraysAreCut) {
    Mesh& mesh = addTriangle();
    mesh.vertexCount = mesh.faceCount = 1000000;
    scene.objectCount = 1000;
    scene.spriteCount = 1000000;
    draw();
    EXPECT_TRUE(drawnAt(33, 23));
    scene.objectCount = scene.spriteCount = -1;
    draw();
}

TEST_F(SceneTest, SpritesFollowTheFaces) {
    addTriangle();
    const std::vector<Pixel32> image(4, 0x00112233);
    scene.sprites[0] = {{0, 0, -5}, image.data(), 2, 2, 0, 3};
    scene.spriteCount = 1;
    draw();
    EXPECT_EQ(scene.sprites[0].position[2], -5.0F);
    EXPECT_EQ(scene.spriteWork[0].position[2], 5.0F);
    EXPECT_EQ(picture.target()[25 * 64 + 33], 0x00112233U);
}

TEST_F(SceneTest, ABandOfTheFrameHasItsOwnHeight) {
    addTriangle();
    GuardedPicture band(64, 20);
    drawScene(scene, band.info(), band.select(), 0.0F);
    EXPECT_GT(band.depth()[9 * 64 + 33], 0.0F); // centred on row 10 of the band
    EXPECT_TRUE(band.guardsIntact());
}

} // namespace
} // namespace lumenfold
