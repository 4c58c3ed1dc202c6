#include "resources/painter/Drawings.h"

#include "resources/painter/Canvas.h"
#include "resources/painter/KeyCaps.h"
#include "resources/painter/Palette.h"
#include "resources/painter/Type.h"

#include <cmath>
#include <string_view>

namespace pedl::skin {

namespace {

Colour keyText(bool lit) {
    return lit ? palette::kKeyLitText : palette::kKeyDarkText;
}

/// A key that fills its frame, with one word.
Picture wordKey(const SkinBitmap& size, int scale, bool lit, std::string_view word,
                const TypeStyle& style, double baseline) {
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.put(keyCap(size.width, size.frameHeight, scale, lit), 0, 0);
    write(canvas, word, {size.width / 2.0, baseline}, style, keyText(lit));
    return canvas.picture();
}

/// A way of modulation, from one word to another. The lock overlay takes the place of these keys,
/// so they bring their own shadow and lip.
Picture wayKey(const SkinBitmap& size, int scale, bool lit, std::string_view from,
               std::string_view to) {
    Canvas canvas(size.width, size.frameHeight, scale);
    const Rectangle key{0, 0, size.width - 1.0, size.frameHeight - 1.0};
    canvas.soft(roundRect(key.inset(0.5), 2), {palette::kWarmShadow, 0.55, 0.8, 0.6, 0.9});
    canvas.put(keyCap(key.width, key.height, scale, lit), 0, 0);
    canvas.stroke(roundRect({0.1, 0.1, key.width + 0.2, key.height + 0.2}, 2.4), 0.6,
                  linear({0, 0}, {8, 14},
                         {{0, palette::kLitEdge, 0},
                          {0.6, palette::kLitEdge, 0},
                          {1, palette::kLitEdge, 0.75}}));
    const TypeStyle& style = kTypeLB;
    constexpr double kArrow = 9.0; // with the gaps beside it
    const double left =
        std::round(key.width / 2 - (textWidth(from, style) + kArrow + textWidth(to, style)) / 2);
    const double arrow = left + textWidth(from, style);
    write(canvas, from, {left, 10}, style, keyText(lit), Align::Left);
    write(canvas, to, {arrow + kArrow, 10}, style, keyText(lit), Align::Left);
    const double tip = std::round(arrow + 2) + (scale == 1 ? 4 : 5);
    canvas.fill(arrowHead({{tip, 7}, {1, 0}, 5, 2.5}, scale), keyText(lit));
    return canvas.picture();
}

constexpr double kBaseline = 10; // of six-pixel capitals in a key of 14

} // namespace

Picture paintLfoToCutoffKey(const SkinBitmap& size, int frame, int scale) {
    return wayKey(size, scale, frame == 1, "LFO", "CUT");
}

Picture paintLfoToGainKey(const SkinBitmap& size, int frame, int scale) {
    return wayKey(size, scale, frame == 1, "LFO", "GAIN");
}

Picture paintFollowerToCutoffKey(const SkinBitmap& size, int frame, int scale) {
    return wayKey(size, scale, frame == 1, "EF", "CUT");
}

Picture paintFollowerToGainKey(const SkinBitmap& size, int frame, int scale) {
    return wayKey(size, scale, frame == 1, "EF", "GAIN");
}

Picture paintRateKey(const SkinBitmap& size, int frame, int scale) {
    return wordKey(size, scale, frame == 1, "RATE", kTypeLB.tracked(0.3), kBaseline);
}

Picture paintDepthKey(const SkinBitmap& size, int frame, int scale) {
    return wordKey(size, scale, frame == 1, "DEPTH", kTypeLB.tracked(0.3), kBaseline);
}

Picture paintDryKey(const SkinBitmap& size, int frame, int scale) {
    return wordKey(size, scale, frame == 1, "DRY", kTypeLB, kBaseline);
}

Picture paintWetKey(const SkinBitmap& size, int frame, int scale) {
    return wordKey(size, scale, frame == 1, "WET", kTypeLB, kBaseline);
}

Picture paintLimiterKey(const SkinBitmap& size, int frame, int scale) {
    return wordKey(size, scale, frame == 1, "LIM", kTypeSB, 9);
}

/// The upper two rows stay clear: the panel's edge is there.
Picture paintSaturatorKey(const SkinBitmap& size, int frame, int scale) {
    const bool lit = frame == 1;
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.put(keyCap(size.width, size.frameHeight - 2, scale, lit), 0, 2);
    write(canvas, "SOFT", {14, 10}, kTypeSB, keyText(lit));
    write(canvas, "SAT", {14, 16}, kTypeSB, keyText(lit));
    return canvas.picture();
}

/// Off is the fast kind, which is the usual one: it is the lit frame.
Picture paintRandomKey(const SkinBitmap& size, int frame, int scale) {
    const bool fast = frame == 0;
    return wordKey(size, scale, fast, fast ? "FAST RND" : "SLOW RND", kTypeS.tracked(0), kBaseline);
}

Picture paintMixScopeKey(const SkinBitmap& size, int frame, int scale) {
    return wordKey(size, scale, frame == 1, frame == 1 ? "B" : "P", kTypeLB, kBaseline);
}

/// The value says "locked": frame 0 is modulation at work.
Picture paintModulationKey(const SkinBitmap& size, int frame, int scale) {
    const bool lit = frame == 0;
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.put(keyCap(size.width, size.frameHeight, scale, lit, 2.2), 0, 0);
    write(canvas, lit ? "MODULATION ON" : "MODULATION OFF", {130, 11}, kTypeT.tracked(1.8),
          keyText(lit));
    return canvas.picture();
}

} // namespace pedl::skin
