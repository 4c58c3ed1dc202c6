#include "resources/painter/Drawings.h"

#include "resources/painter/Canvas.h"
#include "resources/painter/KeyCaps.h"
#include "resources/painter/Palette.h"
#include "resources/painter/Type.h"

#include <string_view>

namespace pedl::skin {

namespace {

/// Most keys of the bar have these three frames.
KeyState stateOf(int frame) {
    return frame == 0 ? KeyState::Idle : frame == 1 ? KeyState::Hover : KeyState::Pressed;
}

Colour signOf(KeyState state) {
    switch (state) {
    case KeyState::Hover:
        return palette::kAmberHot;
    case KeyState::Pressed:
        return palette::kAmber;
    case KeyState::Lit:
        return palette::kKeyLitText;
    default:
        return palette::kPrint;
    }
}

/// A key that fills its frame, without its sign.
Canvas barKey(const SkinBitmap& size, int scale, KeyState state) {
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.put(barKeyCap(size.width, size.frameHeight, scale, state), 0, 0);
    return canvas;
}

/// An open tray and an arrow that leaves or enters it. At scale 1 all is on whole pixels.
Picture fileKey(const SkinBitmap& size, int frame, int scale, bool save) {
    const KeyState state = stateOf(frame);
    Canvas canvas = barKey(size, scale, state);
    const bool coarse = scale == 1;
    const double sunk = state != KeyState::Pressed ? 0 : coarse ? 1 : 0.5;
    const double tray = coarse ? 4 : 3.5; // half its width
    const double shaft = coarse ? 1 : 0.5;
    constexpr double kMiddle = 6; // across and down: where shaft and head meet
    const ArrowHead head{{kMiddle, save ? 9.0 : 3.0}, {0, save ? 1.0 : -1.0}, 3, 2.6};
    canvas.fill(
        moved(0, sunk,
              join({rectangle({kMiddle - tray, 10, 2 * tray, 1}),
                    rectangle({kMiddle - tray, 8, 1, 2}), rectangle({kMiddle + tray - 1, 8, 1, 2}),
                    rectangle({kMiddle - shaft, save ? 3.0 : kMiddle, 2 * shaft, 3}),
                    arrowHead(head, scale)})),
        signOf(state));
    return canvas.picture();
}

/// A word that takes a double click; the mouse over it lights its ground.
Picture word(const SkinBitmap& size, int frame, int scale, std::string_view text) {
    Canvas canvas(size.width, size.frameHeight, scale);
    if (frame > 0)
        canvas.fill(roundRect({0.5, 0, size.width - 1.0, static_cast<double>(size.frameHeight)}, 2),
                    solid(palette::kAmber, frame == 1 ? 0.16 : 0.32));
    write(canvas, text, {size.width / 2.0, 8}, kTypeL.tracked(0.7),
          frame > 0 ? palette::kAmberHot : palette::kPrint);
    return canvas.picture();
}

/// The rows above stay clear for the legend that is printed there.
constexpr double kLowKeyTop = 8;

Canvas lowKey(const SkinBitmap& size, int scale, KeyState state) {
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.put(barKeyCap(size.width, 7, scale, state, 1.4), 0, kLowKeyTop);
    return canvas;
}

} // namespace

Picture paintLoadKey(const SkinBitmap& size, int frame, int scale) {
    return fileKey(size, frame, scale, false);
}

Picture paintSaveKey(const SkinBitmap& size, int frame, int scale) {
    return fileKey(size, frame, scale, true);
}

Picture paintBankWord(const SkinBitmap& size, int frame, int scale) {
    return word(size, frame, scale, "BANK");
}

Picture paintPresetWord(const SkinBitmap& size, int frame, int scale) {
    return word(size, frame, scale, "PRESET");
}

Picture paintMidiWord(const SkinBitmap& size, int frame, int scale) {
    return word(size, frame, scale, "MIDI");
}

/// Frames: idle, mouse over the left half, over the right half, left pressed, right pressed.
Picture paintRocker(const SkinBitmap& size, int frame, int scale) {
    Canvas canvas(size.width, size.frameHeight, scale);
    for (int side = 0; side < 2; ++side) {
        const KeyState state = frame == 1 + side   ? KeyState::Hover
                               : frame == 3 + side ? KeyState::Pressed
                                                   : KeyState::Idle;
        const double left = side == 0 ? 0 : 15;
        canvas.put(barKeyCap(16, 14, scale, state), left, 0);
        const double out = side == 0 ? -1 : 1;
        canvas.fill(arrowHead({{left + 8 + out * 2.6, 7}, {out, 0}, 4.6, 3.6}, scale),
                    signOf(state));
    }
    return canvas.picture();
}

/// Frames: off, mouse over it, on.
Picture paintLearnKey(const SkinBitmap& size, int frame, int scale) {
    const KeyState state = frame == 2 ? KeyState::Lit : stateOf(frame);
    Canvas canvas = lowKey(size, scale, state);
    canvas.fill(rectangle({6, 11, 10, 1}), state == KeyState::Lit     ? palette::kKeyLitText
                                           : state == KeyState::Hover ? palette::kAmber
                                                                      : palette::kKeySignDim);
    return canvas.picture();
}

Picture paintResetKey(const SkinBitmap& size, int frame, int scale) {
    const KeyState state = stateOf(frame);
    Canvas canvas = lowKey(size, scale, state);
    canvas.fill(scale == 1 ? rectangle({10, 11, 2, 1}) : circle(11, 11.5, 1.3),
                state == KeyState::Pressed ? palette::kAmberHot
                : state == KeyState::Hover ? palette::kAmber
                                           : palette::kKeySignDim);
    return canvas.picture();
}

/// An open book.
Picture paintManualKey(const SkinBitmap& size, int frame, int scale) {
    const KeyState state = stateOf(frame);
    Canvas canvas = barKey(size, scale, state);
    const auto page = [](double side) {
        return [side](cairo_t* to) { // from the middle's top round to the middle's foot
            cairo_move_to(to, 8, 4.5);
            cairo_curve_to(to, 8 + side * 1.5, 3.2, 8 + side * 3.5, 3.2, 8 + side * 5, 3.5);
            cairo_line_to(to, 8 + side * 5, 10);
            cairo_curve_to(to, 8 + side * 3.5, 9.6, 8 + side * 1.5, 9.8, 8, 11);
        };
    };
    const double crisp = scale == 1 ? -0.5 : 0; // upright lines fill whole pixels
    canvas.stroke(moved(crisp, 0, join({page(-1), page(1), polyline({{8, 4.5}, {8, 11}})})), 1,
                  solid(signOf(state)));
    return canvas.picture();
}

/// Frames: off, mouse over it, on.
Picture paintHintsKey(const SkinBitmap& size, int frame, int scale) {
    const KeyState state = frame == 2 ? KeyState::Lit : stateOf(frame);
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.put(barKeyCap(15, 15, scale, state), 0, 0);
    write(canvas, "?", {7.5, 11}, kTypeXL, signOf(state));
    return canvas.picture();
}

} // namespace pedl::skin
