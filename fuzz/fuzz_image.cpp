// The picture readers. The first byte selects the reader (and the PCX reader's scaling), the rest is the file. The
// targets have allocations of exactly their sizes. A JPEG file is decoded on the best and on the plainest target, which
// must agree.

#include "assets/jpeg.h"
#include "assets/pcx.h"
#include "assets/tga.h"
#include "core/dynamic_error.h"
#include "core/vector_target.h"

#include <cstdlib>
#include <string>
#include <vector>

using namespace lumenfold;

namespace {

constexpr FrameInfo target = {40, 24, 0, 0, 0};

std::vector<Pixel32> decodeJpeg(const std::uint8_t* data, std::size_t size, const std::string& vectors) {
    useVectorTarget(vectors);
    std::vector<Pixel32> pixels(static_cast<std::size_t>(target.width * target.height));
    try {
        decodeJpegFile(data, size, "input", pixels.data(), target);
    } catch (const DynamicError&) {
        pixels.clear();
    }
    return pixels;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const int selector = data[0] % 4;
    ++data;
    --size;
    std::vector<Pixel32> pixels(static_cast<std::size_t>(target.width * target.height));
    if (selector < 2)
        decodePcx(data, size, pixels.data(), 33, 17, target, selector);
    else if (selector == 2)
        decodeTga(data, size, pixels.data(), target);
    else if (decodeJpeg(data, size, vectorTargets().back()) != decodeJpeg(data, size, vectorTargets().front()))
        std::abort();
    return 0;
}
