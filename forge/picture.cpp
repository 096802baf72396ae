#include "forge/picture.h"

#include "forge/noise.h"
#include "forge/parallel.h"

namespace lumenfold::art {

namespace {

bool quick = false;

int inside(int place, int size, Edge edge) {
    return edge == Edge::wrap ? ((place % size) + size) % size : std::clamp(place, 0, size - 1);
}

// One pass of a Gaussian blur along rows (stepX 1) or columns (stepY 1).
Picture blurPass(const Picture& source, const std::vector<float>& weights, int stepX, int stepY, Edge edge) {
    const int reach = static_cast<int>(weights.size() / 2);
    Picture result(source.width(), source.height());
    parallelFor(source.height(), [&](int y) {
        for (int x = 0; x < source.width(); ++x) {
            Colour sum;
            for (int i = -reach; i <= reach; ++i) {
                sum += source.at(inside(x + i * stepX, source.width(), edge),
                                 inside(y + i * stepY, source.height(), edge)) *
                       weights[static_cast<std::size_t>(i + reach)];
            }
            result.at(x, y) = sum;
        }
    });
    return result;
}

} // namespace

void Picture::change(const std::function<Colour(Colour, int x, int y)>& change) {
    parallelFor(height_, [&](int y) {
        for (int x = 0; x < width_; ++x) {
            at(x, y) = change(at(x, y), x, y);
        }
    });
}

Picture renderPicture(int width, int height, int samples, const Shader& shade, float highlightWeight) {
    samples = quick ? std::min(samples, 2) : samples;
    Picture picture(width, height);
    const float share = 1 / static_cast<float>(samples * samples);
    const float step = 1 / static_cast<float>(samples);
    picture.change([&](Colour, int x, int y) {
        Colour sum;
        for (int i = 0; i < samples * samples; ++i) {
            const float column = static_cast<float>(i % samples) + hashUnit(x, y, i, 1);
            const float row = static_cast<float>(i / samples) + hashUnit(x, y, i, 2);
            const Colour light =
                shade(static_cast<float>(x) + column * step, static_cast<float>(y) + row * step, hashOf(x, y, i, 3));
            sum += light * (share / (1 + highlightWeight * largest(light)));
        }
        return sum * (1 / std::max(0.1F, 1 - highlightWeight * largest(sum)));
    });
    return picture;
}

void renderQuickly() {
    quick = true;
}

Picture blurred(const Picture& picture, float sigma, Edge edge) {
    const int reach = static_cast<int>(sigma * 3) + 1;
    std::vector<float> weights;
    float total = 0;
    for (int i = -reach; i <= reach; ++i) {
        weights.push_back(bell(static_cast<float>(i), sigma));
        total += weights.back();
    }
    for (float& weight : weights) {
        weight /= total;
    }
    return blurPass(blurPass(picture, weights, 1, 0, edge), weights, 0, 1, edge);
}

Picture withBloom(const Picture& picture, const Bloom& bloom, Edge edge) {
    const Picture narrow = blurred(picture, bloom.narrowSigma, edge);
    const Picture wide = blurred(picture, bloom.wideSigma, edge);
    Picture result = picture;
    const float kept = 1 - bloom.narrow - bloom.wide;
    result.change(
        [&](Colour c, int x, int y) { return c * kept + narrow.at(x, y) * bloom.narrow + wide.at(x, y) * bloom.wide; });
    return result;
}

void addVignette(Picture& picture, float strength) {
    const float w = static_cast<float>(picture.width());
    const float h = static_cast<float>(picture.height());
    picture.change([&](Colour c, int x, int y) {
        const float vx = (static_cast<float>(x) - w / 2) / (w * 0.65F);
        const float vy = (static_cast<float>(y) - h / 2) / (h * 0.78F);
        return c * std::max(0.0F, 1 - strength * (vx * vx + vy * vy));
    });
}

Bitmap developed(const Picture& picture, const Develop& develop) {
    Bitmap bitmap{picture.width(), picture.height(), {}};
    bitmap.rgb.reserve(static_cast<std::size_t>(bitmap.width) * bitmap.height * 3);
    for (int y = 0; y < bitmap.height; ++y) {
        for (int x = 0; x < bitmap.width; ++x) {
            const Colour light = picture.at(x, y) * develop.exposure;
            const Colour shown = develop.film ? filmic(light) : light;
            int channel = 0;
            for (const float value : {shown.x, shown.y, shown.z}) {
                const float grain = hashUnit(x, y, channel, 77) + hashUnit(x, y, channel, 78) - 1;
                const float noise = value > 0 ? grain * develop.dither : 0;
                const float byte = toScreen(value) + noise + 0.5F;
                bitmap.rgb.push_back(static_cast<std::uint8_t>(std::clamp(byte, 0.0F, 255.0F)));
                ++channel;
            }
        }
    }
    return bitmap;
}

Bitmap withTrueBlack(const Bitmap& bitmap, int floor) {
    Bitmap result = bitmap;
    for (std::size_t i = 0; i + 2 < result.rgb.size(); i += 3) {
        const int level = std::max({result.rgb[i], result.rgb[i + 1], result.rgb[i + 2]});
        const float keep =
            smoothStep(static_cast<float>(floor), static_cast<float>(floor * 3 + 1), static_cast<float>(level));
        for (std::size_t channel = 0; channel < 3; ++channel) {
            result.rgb[i + channel] = static_cast<std::uint8_t>(static_cast<float>(result.rgb[i + channel]) * keep);
        }
    }
    return result;
}

} // namespace lumenfold::art
