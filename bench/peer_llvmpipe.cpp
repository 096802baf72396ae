#include "bench/peer_llvmpipe.h"

#include "core/dynamic_error.h"

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>
#include <GL/osmesa.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace lumenfold::bench {

namespace {

constexpr int width = 512;
constexpr int height = 384;

struct Vertex {
    float position[4]; // clip space
    float texture[2];
};

std::vector<Vertex> clipSpace(const std::vector<LoadTriangle>& triangles) {
    std::vector<Vertex> vertices;
    for (const LoadTriangle& triangle : triangles) {
        for (const LoadCorner& c : triangle) {
            const float x = c.x / (width / 2.0F) - 1.0F;
            const float y = 1.0F - c.y / (height / 2.0F);
            vertices.push_back({{x * c.z, y * c.z, c.z * 0.5F - 1.0F, c.z}, {c.u / 256.0F, c.v / 256.0F}});
        }
    }
    return vertices;
}

} // namespace

struct LlvmpipeLoad::State {
    OSMesaContext context = nullptr;
    std::vector<Pixel32> pixels = std::vector<Pixel32>(static_cast<std::size_t>(width) * height);
    GLsizei vertexCount = 0;
};

LlvmpipeLoad::LlvmpipeLoad(int side, bool add) : state_(std::make_unique<State>()) {
    setenv("GALLIUM_DRIVER", "llvmpipe", 1);
    setenv("LP_NUM_THREADS", "0", 1); // rasterises on the calling thread
    state_->context = OSMesaCreateContextExt(OSMESA_BGRA, 24, 0, 0, nullptr);
    if (state_->context == nullptr ||
        !OSMesaMakeCurrent(state_->context, state_->pixels.data(), GL_UNSIGNED_BYTE, width, height))
        throw DynamicError("llvmpipe: no off-screen context");

    glViewport(0, 0, width, height);
    glDisable(GL_DITHER);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL); // the same triangles again pass
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (add) {
        glEnable(GL_BLEND);
        glBlendFunc(GL_ONE, GL_ONE);
        glDepthMask(GL_FALSE);
    }

    const std::vector<Pixel32> texels = loadTexture();
    glEnable(GL_TEXTURE_2D);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_REPLACE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, textureSide, textureSide, 0, GL_BGRA, GL_UNSIGNED_BYTE, texels.data());

    const std::vector<Vertex> vertices = clipSpace(loadTriangles(side));
    state_->vertexCount = static_cast<GLsizei>(vertices.size());
    GLuint buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size() * sizeof(Vertex)), vertices.data(),
                 GL_STATIC_DRAW);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(4, GL_FLOAT, sizeof(Vertex), nullptr);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the interface wants the offset as a pointer
    glTexCoordPointer(2, GL_FLOAT, sizeof(Vertex), reinterpret_cast<const void*>(offsetof(Vertex, texture)));
    drawPicture();
    if (glGetError() != GL_NO_ERROR)
        throw DynamicError("llvmpipe: cannot draw");
}

LlvmpipeLoad::~LlvmpipeLoad() {
    OSMesaDestroyContext(state_->context);
}

void LlvmpipeLoad::drawPicture() {
    glDrawArrays(GL_TRIANGLES, 0, state_->vertexCount);
    glFinish();
}

std::int64_t LlvmpipeLoad::coveredPixels() const {
    return static_cast<std::int64_t>(state_->pixels.size()) -
           std::count(state_->pixels.begin(), state_->pixels.end(), Pixel32{0});
}

std::string LlvmpipeLoad::renderer() const {
    return reinterpret_cast<const char*>(glGetString(GL_RENDERER));
}

} // namespace lumenfold::bench
