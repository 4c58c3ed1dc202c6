#pragma once

#include "resources/painter/Canvas.h"
#include "resources/painter/Colour.h"

#include <string_view>

namespace pedl::skin {

enum class Weight { Regular, Medium, Bold };

/// How letters look. Capitals are whole pixels high, so that they fill rows at scale 1.
struct TypeStyle {
    double capHeight; // logical pixels
    Weight weight;
    double tracking; // added after each letter

    [[nodiscard]] constexpr TypeStyle tracked(double to) const { return {capHeight, weight, to}; }
};

inline constexpr TypeStyle kTypeXL{8, Weight::Bold, 0.8};   // names of the encoders
inline constexpr TypeStyle kTypeT{7, Weight::Bold, 1.1};    // titles of sections
inline constexpr TypeStyle kTypeL{6, Weight::Medium, 0.45}; // legends on the plate
inline constexpr TypeStyle kTypeLB{6, Weight::Bold, 0.45};  // on keys
inline constexpr TypeStyle kTypeU{6, Weight::Medium, 0.2};  // units
inline constexpr TypeStyle kTypeS{5, Weight::Medium, 0.4};  // small legends
inline constexpr TypeStyle kTypeSB{5, Weight::Bold, 0.4};   // on small keys

/// Part of a letter's height that its capital fills.
inline constexpr double kCapShare = 0.711;

/// The style whose letters have that size instead of a height of capitals.
constexpr TypeStyle ofSize(double size, Weight weight, double tracking) {
    return {size * kCapShare, weight, tracking};
}

enum class Align { Left, Centre, Right };

/// Sum of the letters' advances and the tracking between them, logical pixels.
double textWidth(std::string_view text, const TypeStyle& style);

/// Writes a line, its baseline on `baseline`. Letters are not hinted; their pens stand on quarters
/// of a device pixel.
///
/// @return  where the line begins and ends
struct Extent {
    double left, right;
};
Extent write(Canvas& canvas, std::string_view text, Point anchor, const TypeStyle& style,
             const Paint& paint, Align align = Align::Centre);
Extent write(Canvas& canvas, std::string_view text, Point anchor, const TypeStyle& style,
             Colour colour, Align align = Align::Centre);

/// The letters as a path, for glows.
Path lettering(std::string_view text, Point anchor, const TypeStyle& style, Align align, int scale);

} // namespace pedl::skin
