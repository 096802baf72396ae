#include "artwork/pictures/crease.h"
#include "artwork/pictures/pictures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/sdf.h"
#include "forge/trace.h"

// "part3bak.jpg": an ivory stage in daylight, the one bright picture of the show. Bodies tumble before a round niche
// left of the middle; a window far to the left lays its bars over wall and floor; one thing is vermilion. A dark slab
// stands in the columns from 420 on, where a strip of pictures is added.

namespace lumenfold::art {

namespace {

enum Part { plaster, podium, slab, ball, cord, bars };

constexpr Vec3 nicheCentre = {-1.95F, 0.75F, 5.0F};
constexpr float nicheRadius = 4.6F;
constexpr float floorHeight = -3.4F;
constexpr Vec3 ballCentre = {3.15F, floorHeight + 0.62F, 1.3F};

// Wall and floor meet in a sweep; the niche is turned into the wall, with a step around its mouth.
float room(Vec3 p) {
    const float shell = sdf::smoothUnion(p.y - floorHeight, 5.0F - p.z, 2.2F);
    const Vec3 q = p - nicheCentre;
    const float drum = sdf::rectangle(length(q.x, q.y), q.z, nicheRadius, 1.5F);
    const float mouth = sdf::rectangle(length(q.x, q.y), q.z, nicheRadius + 0.55F, 0.22F);
    const float inner = sdf::rectangle(length(q.x, q.y), q.z, nicheRadius - 0.9F, 2.3F);
    return sdf::smoothCut(sdf::smoothCut(sdf::smoothCut(shell, drum, 0.10F), mouth, 0.06F), inner, 0.10F);
}

float steps(Vec3 p) {
    const Vec3 q = {p.x - nicheCentre.x, p.y - floorHeight, p.z - 2.4F};
    float body = sdf::cylinder(q, 3.9F, 0.30F, 0.05F);
    body = std::min(body, sdf::cylinder(q, 3.2F, 0.60F, 0.05F));
    return std::min(body, sdf::cylinder(q, 2.5F, 0.90F, 0.05F));
}

// Far out of the picture, between the sun and the stage.
float window(Vec3 p) {
    const sdf::Copy along = sdf::repeated(p.z + 1.4F, 4.6F);
    const float bar = std::fabs(along.place) - 0.85F;
    const float rail = std::fabs(std::fabs(p.y - 9.5F) - 3.4F) - 0.35F;
    return std::max(std::min(bar, rail), std::fabs(p.x + 15.0F) - 0.25F);
}

Nearest nearestPart(Vec3 p) {
    Nearest nearest = {0.9F * room(p), plaster};
    nearest = nearer(nearest, {steps(p), podium});
    nearest = nearer(nearest, {sdf::box(p - Vec3{6.12F, 2, -3.0F}, {3.0F, 12, 0.5F}, 0.04F), slab});
    nearest = nearer(nearest, {sdf::sphere(p - ballCentre, 0.62F), ball});
    nearest = nearer(nearest, {length(p.x - 4.55F, p.z - 2.0F) - 0.025F, cord});
    return nearer(nearest, {window(p), bars});
}

Material materialOf(int part, Vec3 p, Vec3) {
    const float grain = fractalNoise(p * 2.3F, 4, 941);
    Material m;
    m.roughness = 0.3F;
    switch (part) {
    case podium:
        m.base = fromHex(0xD8D2C4) * (0.95F + 0.12F * grain);
        break;
    case slab:
        m.base = fromHex(0x1C2024) * (1 + 0.3F * grain);
        m.roughness = 0.12F;
        break;
    case ball:
    case cord:
        m.base = fromHex(0xE23B1C);
        m.roughness = 0.05F;
        break;
    default:
        m.base = fromHex(0xE9E6DC) * (0.92F + 0.10F * grain);
        break;
    }
    return m;
}

World stageWorld() {
    World world;
    world.nearest = nearestPart;
    world.material = materialOf;
    world.sky = [](Vec3 direction) {
        return mix(fromHex(0xB9B2A4), fromHex(0xDCE8F0), smoothStep(-0.5F, 0.8F, direction.y)) * 0.50F;
    };
    world.keyDirection = normalize(Vec3{-0.78F, 0.46F, -0.52F});
    world.keyLight = fromHex(0xFFE6BC) * 1.9F;
    world.farthest = 40;
    world.reflections = 1;
    world.ambientReach = 2.4F;
    return world;
}

} // namespace

Bitmap makeIvoryStage() {
    const Camera camera = {{0, 0.35F, -9.5F}, {0, 0.05F, 0}, 1.30F, 0};
    Picture picture = photograph(stageWorld(), camera, 512, 384, 4);
    picture = withBloom(picture, {2, 0.06F, 18, 0.10F}, Edge::clamp);
    addCrease(picture, 0.35F);
    return developed(picture, {1.0F, true, 0.6F});
}

} // namespace lumenfold::art
