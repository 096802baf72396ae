#include "forge/trace.h"

#include "forge/noise.h"

namespace lumenfold::art {

namespace {

constexpr int stepLimit = 220;

Vec3 normalAt(const World& world, Vec3 p, float reach) {
    // four corners of a tetrahedron
    const Vec3 corners[] = {{1, -1, -1}, {-1, -1, 1}, {-1, 1, -1}, {1, 1, 1}};
    Vec3 sum;
    for (const Vec3 corner : corners) {
        sum += corner * world.nearest(p + corner * reach).distance;
    }
    return normalize(sum);
}

// 1 in the open, towards 0 in hollows.
float openness(const World& world, Vec3 p, Vec3 normal) {
    if (world.ambientReach <= 0) {
        return 1;
    }
    float hidden = 0;
    float weight = 1;
    for (int i = 1; i <= 4; ++i) {
        const float reach = world.ambientReach * static_cast<float>(i) / 4;
        hidden += weight * std::max(0.0F, reach - world.nearest(p + normal * reach).distance) / reach;
        weight *= 0.6F;
    }
    return saturate(1 - 0.55F * hidden);
}

// 1 when the key lamp is seen, with a penumbra.
float keySeen(const World& world, Vec3 p) {
    const Vec3 direction = normalize(world.keyDirection);
    float seen = 1;
    float t = 0.03F;
    for (int i = 0; i < 48 && t < 12; ++i) {
        const float distance = world.nearest(p + direction * t).distance;
        seen = std::min(seen, 0.5F + 9 * distance / t * 0.5F);
        if (seen < 0.02F) {
            return 0;
        }
        t += std::clamp(distance, 0.03F, 0.7F);
    }
    return smoothStep(0, 1, seen);
}

Vec3 scattered(Vec3 direction, float roughness, std::uint32_t seed) {
    const auto offset = [&](int axis) { return 2 * hashUnit(axis, 5, 9, seed) - 1; };
    return normalize(direction + Vec3{offset(0), offset(1), offset(2)} * roughness);
}

Colour glowAlong(const World& world, const Ray& ray, float until, int parts) {
    if (!world.glow) {
        return {};
    }
    const float step = until / static_cast<float>(parts);
    Colour sum;
    for (int i = 0; i < parts; ++i) {
        sum += world.glow(ray.origin + ray.direction * (step * (static_cast<float>(i) + 0.5F))) * step;
    }
    return sum;
}

Colour fogged(const World& world, const Ray& ray, float distance, Colour light, int depth) {
    const float veil = 1 - exponential(-world.fogDensity * std::max(0.0F, distance - world.fogStart));
    return mix(light, world.fog, veil) + glowAlong(world, ray, distance, depth == 0 ? 40 : 16);
}

Colour bounce(const World& world, const Ray& ray, std::uint32_t seed, int depth, float start);

Colour surfaceLight(const World& world, const Ray& ray, float distance, std::uint32_t seed, int depth) {
    const Vec3 place = ray.origin + ray.direction * distance;
    const Vec3 normal = normalAt(world, place, std::max(0.0008F, 0.0008F * distance));
    const Material material = world.material(world.nearest(place).material, place, normal);
    const float facing = saturate(-dot(ray.direction, normal));
    const float open = depth == 0 ? openness(world, place, normal) : 1;

    const float grazing = power(1 - facing, 5);
    Colour mirror = mix(Colour{0.04F, 0.04F, 0.04F}, material.base, material.metal);
    mirror = mix(mirror, Colour{1, 1, 1}, grazing * (1 - 0.7F * material.roughness));
    if (material.film > 0) {
        const Colour film = thinFilm(facing, material.filmThickness) * 1.5F + Colour{0.15F, 0.15F, 0.15F};
        mirror = mirror * mix(Colour{1, 1, 1}, film, material.film);
    }

    Colour light = material.emission;
    const float lit = saturate(dot(normal, normalize(world.keyDirection)));
    if (material.metal < 1) {
        const float key = lit > 0 ? lit * keySeen(world, place + normal * 0.01F) : 0;
        light += material.base * (1 - material.metal) * (world.keyLight * key + world.sky(normal) * (0.5F * open));
    }
    if (largest(mirror) > 0.01F) {
        const Vec3 mirrorDirection = reflect(ray.direction, normal);
        Vec3 outgoing = scattered(mirrorDirection, material.roughness, seed);
        outgoing = dot(outgoing, normal) < 0.01F ? mirrorDirection : outgoing;
        const Ray next = {place + normal * std::max(0.002F, 0.001F * distance), outgoing};
        const Colour seen = depth + 1 < world.reflections
                                ? bounce(world, next, hashOf(depth, 7, 1, seed), depth + 1, 0.01F)
                                : world.sky(outgoing) * open;
        light += mirror * seen * mix(0.35F, 1, open);
    }
    return light;
}

Colour bounce(const World& world, const Ray& ray, std::uint32_t seed, int depth, float start) {
    const std::optional<float> hit = march(world, ray, start);
    if (!hit) {
        return fogged(world, ray, world.farthest, world.sky(ray.direction), depth);
    }
    return fogged(world, ray, *hit, surfaceLight(world, ray, *hit, seed, depth), depth);
}

} // namespace

Ray Camera::through(float x, float y, int width, int height) const {
    const float half = static_cast<float>(width) / 2;
    const Point2 screen = turned((x - half) / half, (static_cast<float>(height) / 2 - y) / half, roll);
    const Vec3 ahead = normalize(target - eye);
    const Vec3 right = normalize(cross({0, 1, 0}, ahead));
    const Vec3 up = cross(ahead, right);
    return {eye, normalize(ahead * zoom + right * screen.x + up * screen.y)};
}

std::optional<float> march(const World& world, const Ray& ray, float from) {
    float t = from;
    float before = from;
    for (int i = 0; i < stepLimit && t < world.farthest; ++i) {
        const float distance = world.nearest(ray.origin + ray.direction * t).distance;
        if (distance < 0) { // stepped through: halve the last step down to the surface
            float outside = before;
            for (int k = 0; k < 14; ++k) {
                const float middle = (outside + t) / 2;
                (world.nearest(ray.origin + ray.direction * middle).distance < 0 ? t : outside) = middle;
            }
            return outside;
        }
        if (distance < 0.0004F * (1 + t)) {
            return t;
        }
        before = t;
        t += std::max(distance, 0.0015F);
    }
    return std::nullopt;
}

Colour trace(const World& world, const Ray& ray, std::uint32_t seed) {
    return bounce(world, ray, seed, 0, 0.02F);
}

Picture photograph(const World& world, const Camera& camera, int width, int height, int samples) {
    return renderPicture(
        width, height, samples,
        [&](float x, float y, std::uint32_t seed) { return trace(world, camera.through(x, y, width, height), seed); },
        0.25F);
}

} // namespace lumenfold::art
