#pragma once

#include "resources/painter/Colour.h"
#include "resources/painter/Painter.h"

namespace pedl::skin {

/// An illuminated key without its legend: a dark seat, a bevelled cap, lit from inside or not.
Picture keyCap(double width, double height, int scale, bool lit, double radius = 1.8);

/// A key with a round outline, lit evenly.
struct RoundKey {
    double width, height;         // of the picture
    double halfWidth, halfHeight; // of the cap, in its middle
    double radius;
    Colour colour;
    bool lit;
};
Picture roundKeyCap(const RoundKey& key, int scale);

/// How a key of the preset bar stands.
enum class KeyState { Idle, Hover, Pressed, Lit };

/// A small flat key of the preset bar.
Picture barKeyCap(double width, double height, int scale, KeyState state, double radius = 1.6);

} // namespace pedl::skin
