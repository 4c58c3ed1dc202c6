#pragma once

#include "resources/painter/Canvas.h"

namespace pedl::skin {

/// The face, logical pixels.
inline constexpr int kFaceWidth = firstBitmapOf(Drawing::Background).width;
inline constexpr int kFaceHeight = firstBitmapOf(Drawing::Background).frameHeight;
inline constexpr int kBarTop = 491;

// What stands on the face, one step of the background each, in the order of drawing.

void drawHousing(Canvas& canvas); // cheeks, plate, panels, windows, name plate
void drawShadows(Canvas& canvas); // that knobs, keys and lamps throw; the seats they stand in
void drawScales(Canvas& canvas);  // round the knobs
void drawScrews(Canvas& canvas);
void drawBar(Canvas& canvas); // ground of the preset bar
void drawEmblem(Canvas& canvas, Point centre, double factor);
void drawWays(Canvas& canvas); // lines of modulation and signal
void drawLegends(Canvas& canvas);

/// The pedal's name in two weights, its middle at `centre`.
void drawName(Canvas& canvas, Point centre, double size, const Paint& paint);

} // namespace pedl::skin
