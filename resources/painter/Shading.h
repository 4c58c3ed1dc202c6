#pragma once

#include "resources/painter/Colour.h"

namespace pedl::skin {

/// x to the right, y down, z towards the eye.
struct Vector {
    float x, y, z;
};

constexpr float dot(Vector a, Vector b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector unit(Vector vector);

/// Towards the softbox above left; not of unit length.
inline constexpr Vector kKeyLight{-0.48F, -0.62F, 0.70F};

constexpr float square(float x) {
    return x * x;
}

/// From 0 at `a` to 1 at `b` without a corner; `a` may be the larger one.
constexpr float smoothStep(float a, float b, float x) {
    float t = (x - a) / (b - a);
    t = t < 0.0F ? 0.0F : t > 1.0F ? 1.0F : t;
    return t * t * (3.0F - 2.0F * t);
}

/// How a point of a surface stands to the two lights and to the room that it mirrors.
struct Facet {
    Vector normal;
    Vector reflection; // where the eye's ray goes on to
    float key;         // cosine to the key light, 0 where turned away
    float fill;
    float keyMirrored; // cosine between reflection and key light

    /// @param slopeX, slopeY  rise of the surface per pixel
    Facet(float slopeX, float slopeY);
};

/// The brightness of the room in the mirrored direction: dark floor, soft ceiling, one softbox.
float room(const Facet& facet);

/// The highlight of the key light on something hard and smooth.
float glint(const Facet& facet, float begin, float end);

/// Lacquer, bakelite, ivory: colour from within, mirror image on top.
Light dielectric(const Facet& facet, Light albedo, float gloss);

/// Polished or blasted metal.
Light metal(const Facet& facet, Light albedo);

/// Metal with fine cuts along (`alongX`, `alongY`), which must be a unit vector: a bright bow
/// across them, from upper left to lower right on a face that was turned.
Light cutMetal(const Facet& facet, Light albedo, float alongX, float alongY);

/// A bowl cut into metal.
Light bowl(const Facet& facet, Light albedo);

/// To the screen: highlights bend softly into white.
Colour screen(Light light);

} // namespace pedl::skin
