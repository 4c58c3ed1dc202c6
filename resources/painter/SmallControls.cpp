#include "resources/painter/Drawings.h"

#include "resources/painter/Canvas.h"
#include "resources/painter/KeyCaps.h"
#include "resources/painter/Palette.h"
#include "resources/painter/Type.h"

#include <array>
#include <numbers>

namespace pedl::skin {

namespace {

/// The four frames of the relative controls: idle, hover, active, active and hover.
struct RelativeState {
    bool active;
    bool hover;

    explicit RelativeState(int frame) : active(frame >= 2), hover(frame % 2 == 1) {}

    [[nodiscard]] Colour key() const {
        const Colour base = active ? palette::kKeyAmber : palette::kKeyDark;
        return hover ? mix(base, palette::kWarmWhite, 0.10F) : base;
    }
    [[nodiscard]] Colour sign() const {
        return active ? palette::kKeyLitText : hover ? palette::kAmber : palette::kKeyDarkText;
    }
};

} // namespace

/// A cross-fader: a ball between two arrows.
Picture paintMixKey(const SkinBitmap& size, int frame, int scale) {
    const RelativeState state(frame);
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.put(roundKeyCap({27, 22, 12, 9.4, 4.5, state.key(), state.active}, scale), 0, 0);
    constexpr double kAxis = 7.5;
    canvas.fill(
        join({arrowHead({{4, kAxis}, {-1, 0}, 4, 2.8}, scale),
              arrowHead({{23, kAxis}, {1, 0}, 4, 2.8}, scale), rectangle({8, kAxis - 0.5, 11, 1})}),
        state.sign());
    canvas.fill(circle(13.5, kAxis, 2), state.sign());
    write(canvas, "MIX", {13.5, 17}, kTypeSB.tracked(0.5), state.sign());
    return canvas.picture();
}

/// Input and outputs move against each other.
Picture paintLinkKey(const SkinBitmap& size, int frame, int scale) {
    const RelativeState state(frame);
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.put(roundKeyCap({11, 20, 4.4, 8.8, 4.4, state.key(), state.active}, scale), 0, 0);
    const auto arrow = [&](double x, double tip, double direction) {
        canvas.fill(rectangle({x - 0.5, 6, 1, 8}), state.sign());
        canvas.fill(arrowHead({{x, tip}, {0, direction}, 3.2, 1.6}, scale), state.sign());
    };
    arrow(3.5, 4, -1);
    arrow(7.5, 16, 1);
    return canvas.picture();
}

/// Above the knob of the threshold: where the level has to be for the follower to work.
Picture paintThresholdMode(const SkinBitmap& size, int frame, int scale) {
    constexpr std::array kWords{"ABOVE", "BELOW", "AROUND"};
    const double middle = scale == 1 ? 15.5 : 15; // of pictogram and word, on whole pixels
    const std::array ranges{Rectangle{4, middle - 4.5, 9, 4}, Rectangle{4, middle + 0.5, 9, 4},
                            Rectangle{4, middle - 2.5, 9, 5}};
    const auto mode = static_cast<std::size_t>(frame);
    const Colour lit = mix(palette::kAmber, palette::kAmberHot, 0.25F);
    Canvas canvas(size.width, size.frameHeight, scale);
    write(canvas, "THRESHOLD", {24, 5}, kTypeSB.tracked(0.25), palette::kInk);
    const Rectangle window{0, 8, 48, 14};
    canvas.fill(roundRect(window, 1.6),
                vertical(window, {{0, palette::kGlassTop}, {1, palette::kGlassBottom}}));
    canvas.softInside(roundRect(window, 1.6), {palette::kBlack, 0.8, 1.0, 0.4, 0.8});
    canvas.stroke(roundRect(window.inset(0.25), 1.6), 0.5,
                  vertical(window, {{0, palette::kBlack, 0.8}, {1, palette::kLitEdge, 0.35}}));
    canvas.fill(rectangle({4, middle - 4.5, 9, 9}), palette::kRangeDark);
    canvas.fill(rectangle(ranges[mode]), lit);
    canvas.fill(rectangle({4, middle - 0.5, 9, 1}), palette::kRangeLine);
    canvas.fill(rectangle({3, middle - 0.5, 11, 1}), palette::kNeedle);
    write(canvas, kWords[mode], {30.5, middle + 2.5}, kTypeSB.tracked(0.15), lit);
    return canvas.picture();
}

/// A tab of smoked glass over the four keys that send modulation.
Picture paintLockOverlay(const SkinBitmap& size, int, int scale) {
    Canvas canvas(size.width, size.frameHeight, scale);
    const Rectangle whole{0, 0, 264, 17};
    canvas.fill(roundRect(whole.inset(0.5), 2.5),
                vertical(whole, {{0, palette::kLockTop}, {1, palette::kLockBottom}}));
    canvas.stroke(roundRect(whole.inset(1), 2), 0.6,
                  vertical(whole, {{0, palette::kLitEdge, 0.38}, {1, palette::kBlack, 0.6}}));
    for (const double x : {10.0, 247.0}) { // padlocks
        canvas.fill(roundRect({x, 8, 7, 5.5}, 0.8), palette::kAmber);
        canvas.stroke(
            [x](cairo_t* to) {
                cairo_arc(to, x + 3.5, 8, 2.3, std::numbers::pi, 2 * std::numbers::pi);
            },
            1.1, solid(palette::kAmber));
    }
    write(canvas, "ALL MODULATION LOCKED OFF", {132, 12}, kTypeLB.tracked(1.4), palette::kLockText);
    canvas.fill(polygon({{2, 1.5}, {150, 1.5}, {120, 8.5}, {2, 8.5}}),
                solid(palette::kWhite, 0.05));
    return canvas.picture();
}

} // namespace pedl::skin
