#pragma once

#include "core/pixel.h"
#include "render/scene.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace lumenfold {

// A single object on a turntable, drawn as the scenes draw it: for those who make objects.
class Turntable {
  public:
    static constexpr int width = 512;
    static constexpr int height = 384;

    // With a first texture the object is loaded with normals, one material of the given mode, sphere-map coordinates
    // and the scale; without one (empty) plainly, with its own surfaces and textures, mode unused.
    struct Subject {
        std::string object;
        std::string firstTexture;
        std::string secondTexture;
        std::uint32_t mode = 0;
        float scale = 1.0F;
    };

    struct Counts {
        std::size_t vertices = 0;
        std::size_t faces = 0;
        std::size_t bareFaces = 0; // without a surface or a texture: not drawn
        std::size_t surfaces = 0;
        std::size_t textures = 0;
    };

    // The texture cache must be open. Replaces the depth buffer. Throws what getTexture throws, and DynamicError
    // when the file yields no face.
    explicit Turntable(const Subject& subject);

    // Frame 0 to frames - 1 of one turn, seen slightly from above on a dark ground, the object filling the picture
    // whatever its size. pixels: width x height.
    void draw(int frame, int frames, Pixel32* pixels);

    const Counts& counts() const { return objectCounts; }
    const Vector3& lowest() const { return low; } // bounds after scaling
    const Vector3& highest() const { return high; }

  private:
    void fitIntoView(float scale);
    void count();

    Scene scene;
    Mesh* mesh;
    Counts objectCounts;
    Vector3 low{};
    Vector3 high{};
};

} // namespace lumenfold
