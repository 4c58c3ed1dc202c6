#include "resources/painter/Drawings.h"

#include "resources/painter/Canvas.h"
#include "resources/painter/Palette.h"
#include "resources/painter/Type.h"

#include <array>
#include <cmath>
#include <string>

namespace pedl::skin {

namespace {

// 20 Hz to 20 kHz over the needle's way
constexpr double kLowestHz = 20.0;
constexpr double kHighestHz = 20000.0;
constexpr double kDecades = 3.0;
constexpr double kWay = 423.0;
constexpr double kTicksFrom = 15.5;   // where the way begins in the slider's strips
constexpr double kNumbersFrom = 10.5; // and in the strip of numbers
constexpr double kLowestCHz = 32.703;

double wayTo(double hertz) {
    return kWay * std::log10(hertz / kLowestHz) / kDecades;
}

struct Tick {
    double length; // pixels from the upper edge
    double alpha;
};
constexpr Tick kLongTick{6, 0.95};
constexpr Tick kTick{4.5, 0.95};
constexpr Tick kFineTick{3, 0.55};
constexpr Tick kSemitoneTick{3, 0.45};

/// At scale 1 ticks fill whole pixels, so that all look the same.
void drawTick(Canvas& canvas, double hertz, const Tick& tick) {
    const double x = kTicksFrom + wayTo(hertz);
    const bool crisp = canvas.scale() == 1;
    const double middle = crisp ? std::round(x - 0.5) + 0.5 : x;
    canvas.stroke(polyline({{middle, 0.5}, {middle, tick.length}}), crisp ? 1 : 0.9,
                  solid(palette::kAmber, tick.alpha));
}

void writeNumber(Canvas& canvas, double hertz, const std::string& text) {
    write(canvas, text, {kNumbersFrom + wayTo(hertz), 8}, kTypeL,
          mix(palette::kAmber, palette::kAmberHot, 0.35F));
}

struct Number {
    double hertz;
    const char* text;
};

} // namespace

Picture paintHertzTicks(const SkinBitmap& size, int, int scale) {
    Canvas canvas(size.width, size.frameHeight, scale);
    for (int decade = 10; decade <= 10000; decade *= 10)
        for (int digit = 1; digit <= 9; ++digit) {
            const int hertz = decade * digit;
            if (hertz < kLowestHz || hertz > kHighestHz)
                continue;
            const bool isLong = digit == 1 || hertz == kLowestHz || hertz == kHighestHz;
            drawTick(canvas, hertz,
                     isLong                     ? kLongTick
                     : digit == 2 || digit == 5 ? kTick
                                                : kFineTick);
        }
    return canvas.picture();
}

Picture paintNoteTicks(const SkinBitmap& size, int, int scale) {
    Canvas canvas(size.width, size.frameHeight, scale);
    for (int semitone = -12;; ++semitone) {
        const double hertz = kLowestCHz * std::exp2(semitone / 12.0);
        if (hertz > kHighestHz)
            break;
        if (hertz >= kLowestHz)
            drawTick(canvas, hertz, semitone % 12 == 0 ? kLongTick : kSemitoneTick);
    }
    return canvas.picture();
}

/// Frame 0 counts in Hz, frame 1 in octaves of C.
Picture paintDialNumbers(const SkinBitmap& size, int frame, int scale) {
    constexpr std::array kNumbers{Number{20, "20"},    Number{50, "50"},   Number{100, "100"},
                                  Number{200, "200"},  Number{500, "500"}, Number{1000, "1k"},
                                  Number{2000, "2k"},  Number{5000, "5k"}, Number{10000, "10k"},
                                  Number{20000, "20k"}};
    Canvas canvas(size.width, size.frameHeight, scale);
    if (frame == 0)
        for (const Number& number : kNumbers)
            writeNumber(canvas, number.hertz, number.text);
    else
        for (int octave = 1; octave <= 10; ++octave)
            writeNumber(canvas, kLowestCHz * std::exp2(octave - 1), "C" + std::to_string(octave));
    write(canvas, frame == 0 ? "Hz" : "NOTE", {static_cast<double>(size.width), 8},
          kTypeL.tracked(frame == 0 ? kTypeL.tracking : 0.2), palette::kAmber, Align::Right);
    return canvas.picture();
}

/// A groove with a fine brass wire.
Picture paintDialGroove(const SkinBitmap& size, int, int scale) {
    Canvas canvas(size.width, size.frameHeight, scale);
    const Rectangle groove{7, 10.5, 446, 3};
    canvas.fill(roundRect(groove, 1.5),
                vertical(groove, {{0, palette::kBlack, 0.9}, {1, palette::kDialGroove, 0.9}}));
    canvas.fill(rectangle({9, 11.6, 442, 0.8}), linear({0, 0}, {461, 0},
                                                       {{0, palette::kWireLeft, 0.8},
                                                        {0.3, palette::kWire, 0.9},
                                                        {1, palette::kWireRight, 0.8}}));
    return canvas.picture();
}

/// A glowing needle on a small carriage. Its line, x from 8 to 9, is where the value stands.
Picture paintDialNeedle(const SkinBitmap& size, int, int scale) {
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.soft(rectangle({7.2, 1, 2.6, 16}), {palette::kNeedleGlow, 0.75, 2.0});
    canvas.soft(rectangle({7.6, 0.5, 1.8, 17}), {palette::kAmber, 0.6, 0.8});
    const Rectangle carriage{3.5, 9.5, 10, 5};
    canvas.fill(roundRect(carriage, 1.3), vertical(carriage, {{0, palette::kCarriageTop},
                                                              {0.5, palette::kCarriage},
                                                              {1, palette::kCarriageBottom}}));
    canvas.stroke(roundRect(carriage, 1.3), 0.5, solid(palette::kBlack, 0.7));
    canvas.stroke(polyline({{4.4, 10}, {12.6, 10}}), 0.5, solid(palette::kWarmWhite, 0.55));
    canvas.fill(rectangle({8, 0, 1, 18}), palette::kNeedle);
    canvas.fill(join({rectangle({7.5, 0, 0.5, 18}), rectangle({9, 0, 0.5, 18})}),
                solid(palette::kNeedleEdge, 0.9));
    return canvas.picture();
}

} // namespace pedl::skin
