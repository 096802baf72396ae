// The object reader, the preparation and one draw over bytes of any kind.

#include "assets/image.h"
#include "assets/lightwave.h"
#include "assets/prepare.h"
#include "core/dynamic_error.h"
#include "render/depth_buffer.h"
#include "render/scene.h"

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <vector>

namespace {

constexpr int width = 128;
constexpr int height = 96;
constexpr std::uint32_t modes[] = {0x09, 0x29, 0x401, 0x501, 0x11, 0x19, 0x201};

void drawOnce(lumenfold::Scene& scene, lumenfold::Mesh& mesh, std::size_t choice) {
    static std::vector<lumenfold::Pixel32> texture(lumenfold::texturePixels, 0x00804020);
    for (lumenfold::MeshMaterial& material : mesh.materials) {
        material.mode = modes[choice % std::size(modes)];
        material.doubleSided = 1;
        for (auto* layer : {&material.colourLayer, &material.reflectionLayer}) {
            if (!*layer)
                *layer = std::make_unique<lumenfold::TextureLayer>();
            (*layer)->texels = texture.data();
        }
    }
    std::vector<lumenfold::Pixel32> frame(std::size_t{width} * height);
    lumenfold::clearDepthBuffer();
    lumenfold::drawScene(scene, {width, height, 0, 0, 0}, frame.data(), 0.0F);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static std::ostream nowhere(nullptr);
    if (lumenfold::depthBuffer == nullptr)
        lumenfold::allocateDepthBuffer(width, height);
    lumenfold::textureCache.open();
    lumenfold::Scene scene;
    lumenfold::Mesh& mesh = *scene.addObject();
    try {
        lumenfold::readLightWaveObject(data, size, mesh, 1, nowhere);
    } catch (const lumenfold::DynamicError&) {
        return 0; // it names a picture that is not there
    }
    lumenfold::computeNormals(mesh);
    drawOnce(scene, mesh, size);
    return 0;
}
