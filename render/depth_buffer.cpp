#include "render/depth_buffer.h"

#include <algorithm>
#include <vector>

namespace lumenfold {

float* depthBuffer = nullptr;

namespace {
std::vector<float> storage;
}

void allocateDepthBuffer(int width, int height) {
    storage = std::vector<float>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    depthBuffer = storage.data();
}

void clearDepthBuffer() {
    std::fill(storage.begin(), storage.end(), 0.0F);
}

} // namespace lumenfold
