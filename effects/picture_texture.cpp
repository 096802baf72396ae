#include "effects/picture_texture.h"

namespace lumenfold {

void textureFromPicture(Pixel32* texture, const Pixel32* picture) {
    constexpr int pictureWidth = 2 * textureSide;
    for (int v = 0; v < textureSide; ++v) {
        const Pixel32* row = picture + v * 3 / 2 * pictureWidth;
        for (int u = 0; u < textureSide; ++u)
            *texture++ = row[2 * u];
    }
}

} // namespace lumenfold
