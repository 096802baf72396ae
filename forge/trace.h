#pragma once

#include "forge/picture.h"

#include <functional>
#include <optional>

// Pictures of worlds given by signed distances: sphere tracing, mirror and rough reflections, soft shadows, hollows
// darkened, lamps that light the fog around them.

namespace lumenfold::art {

struct Material {
    Colour base{0.5F, 0.5F, 0.5F}; // diffuse colour, or what a metal reflects straight on
    float metal = 0;               // 0 paint under clear coat, 1 metal
    float roughness = 0;           // 0 mirror, 0.3 satin
    float film = 0;                // weight of petrol interference in the reflection
    float filmThickness = 0.7F;    // units of 500 nm
    Colour emission;
};

struct Nearest {
    float distance = 1e9F; // lower bound of the distance to the nearest surface, negative inside
    int material = 0;      // a number of the world's own
};
inline Nearest nearer(Nearest a, Nearest b) {
    return b.distance < a.distance ? b : a;
}

// x right, y up, z away from the first viewer or as the world likes.
struct World {
    std::function<Nearest(Vec3 place)> nearest;
    std::function<Material(int material, Vec3 place, Vec3 normal)> material;
    std::function<Colour(Vec3 direction)> sky;
    std::function<Colour(Vec3 place)> glow;   // light that the fog gives off per unit of length; none if empty
    Vec3 keyDirection{-0.55F, 0.75F, -0.35F}; // towards the key lamp
    Colour keyLight;
    Colour fog;
    float fogDensity = 0; // per unit of length, beyond fogStart
    float fogStart = 0;
    float farthest = 40;
    int reflections = 3;
    float ambientReach = 0.5F; // how far hollows are felt; 0 not at all
};

struct Ray {
    Vec3 origin;
    Vec3 direction; // unit length
};

// Looks from eye to target; zoom 1 shows 90 degrees across; roll in radians, positive turns the picture's content
// clockwise.
struct Camera {
    Vec3 eye;
    Vec3 target;
    float zoom = 1;
    float roll = 0;
    // x, y in pixels of a picture width x height.
    Ray through(float x, float y, int width, int height) const;
};

// Where the ray first meets a surface; nothing within world.farthest gives an empty result.
std::optional<float> march(const World& world, const Ray& ray, float from);

// Light that comes back along the ray. seed: chooses the directions of rough reflections.
Colour trace(const World& world, const Ray& ray, std::uint32_t seed);

// The whole picture with samples x samples rays per pixel.
Picture photograph(const World& world, const Camera& camera, int width, int height, int samples);

} // namespace lumenfold::art
