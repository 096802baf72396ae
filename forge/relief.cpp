#include "forge/relief.h"

#include "forge/parallel.h"

namespace lumenfold::art {

Relief::Relief(int size, const std::function<float(float u, float v)>& height) : Relief(size) {
    parallelFor(size, [&](int y) {
        for (int x = 0; x < size; ++x) {
            heights_[static_cast<std::size_t>(y) * size_ + x] =
                height((static_cast<float>(x) + 0.5F) / static_cast<float>(size),
                       (static_cast<float>(y) + 0.5F) / static_cast<float>(size));
        }
    });
}

float Relief::at(int x, int y) const {
    const auto wrapped = [this](int a) { return ((a % size_) + size_) % size_; };
    return heights_[static_cast<std::size_t>(wrapped(y)) * size_ + wrapped(x)];
}

Vec3 Relief::normal(int x, int y, float depth) const {
    const float scale = depth * static_cast<float>(size_) / 2;
    return normalize(Vec3{(at(x - 1, y) - at(x + 1, y)) * scale, (at(x, y - 1) - at(x, y + 1)) * scale, 1});
}

Relief Relief::lowPass(float reach) const {
    Picture heights(size_, size_);
    heights.change([&](Colour, int x, int y) { return Colour{at(x, y), 0, 0}; });
    const Picture soft = blurred(heights, reach, Edge::wrap);
    Relief result(size_);
    for (int y = 0; y < size_; ++y) {
        for (int x = 0; x < size_; ++x) {
            result.heights_[static_cast<std::size_t>(y) * size_ + x] = soft.at(x, y).x;
        }
    }
    return result;
}

Picture shadedRelief(int side, const Relief& relief, const std::function<Colour(int x, int y)>& shade) {
    const int factor = relief.size() / side;
    const float share = 1 / static_cast<float>(factor * factor);
    Picture picture(side, side);
    picture.change([&](Colour, int x, int y) {
        Colour sum;
        for (int i = 0; i < factor * factor; ++i) {
            sum += shade(x * factor + i % factor, y * factor + i / factor) * share;
        }
        return sum;
    });
    return picture;
}

Picture texture(int side, int samples, const std::function<Colour(float u, float v)>& shade) {
    const auto scale = 1 / static_cast<float>(side);
    return renderPicture(side, side, samples,
                         [&](float x, float y, std::uint32_t) { return shade(x * scale, y * scale); });
}

} // namespace lumenfold::art
