#include "effects/sparks.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "core/random.h"

namespace lumenfold {

void igniteSpark(SparkShower& shower, std::int32_t y0, FrameInfo settings) {
    if (shower.count >= SparkShower::maxCount)
        return;
    const std::int32_t right = rand() / 16000; // 0 or 1, seldom 2: about half of the sparks fall straight down
    const std::int32_t left = rand() / 16000;
    Spark& spark = shower.sparks[static_cast<std::size_t>(shower.count)];
    spark.x = static_cast<float>(settings.width / 2);
    spark.y = static_cast<float>(y0);
    spark.vx = static_cast<float>(right - left);
    spark.vy = static_cast<float>(rand() * 1.6666667e-05);
}

void updateSparks(Spark* sparks, std::int32_t resetHeight, FrameInfo settings, std::int32_t count) {
    const float bottom = static_cast<float>(settings.height);
    for (Spark* spark = sparks; spark != sparks + count; ++spark) {
        if (spark->y + spark->vy < bottom) {
            spark->x += spark->vx;
            spark->y += spark->vy;
            spark->vy = static_cast<float>(spark->vy + 0.9);
        } else {
            spark->y = static_cast<float>(resetHeight);
            spark->x = static_cast<float>(settings.width / 2);
            spark->vy = 0.0F;
        }
    }
}

void drawSparks(Pixel32* frame, FrameInfo settings, const SparkShower& shower, const Pixel32* sprite) {
    constexpr int border = 18;
    const auto right = static_cast<float>(settings.width - border);
    const auto bottom = static_cast<float>(settings.height - border);
    for (const Spark* spark = shower.sparks.data(); spark != shower.sparks.data() + shower.count; ++spark)
        if (border < spark->x && spark->x < right && spark->y < bottom)
            stampGlow(frame, settings, sprite, sparkSide, truncate(spark->x), truncate(spark->y));
}

void stampGlow(Pixel32* picture, FrameInfo settings, const Pixel32* sprite, int side, std::int32_t x, std::int32_t y) {
    constexpr int freeRows = 2;
    stampAdd(picture + freeRows * settings.width, settings.width, settings.height - freeRows, sprite, side, side,
             x - side, wrapSub(y, freeRows - 1));
}

} // namespace lumenfold
