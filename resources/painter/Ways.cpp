#include "resources/painter/FaceParts.h"

#include "resources/painter/Palette.h"
#include "resources/painter/Type.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace pedl::skin {

namespace {

/// A pen for lines that fill whole pixels, each begins at the left and upper edge of its pixel.
class Pen {
public:
    Pen(Canvas& canvas, Colour ink) : canvas_(canvas), ink_(ink) {}

    void across(double x0, double x1, double y) {
        canvas_.fill(rectangle({std::min(x0, x1), y, std::max(x0, x1) - std::min(x0, x1), 1}),
                     ink_);
    }
    void down(double x, double y0, double y1) {
        canvas_.fill(rectangle({x, std::min(y0, y1), 1, std::max(y0, y1) - std::min(y0, y1)}),
                     ink_);
    }

    // Arrow heads, by their tips
    void headDown(double x, double y) { head(x, y, 0, 1); }
    void headUp(double x, double y) { head(x, y, 0, -1); }
    void headRight(double x, double y) { head(x, y, 1, 0); }

    /// A box, 11 pixels high, with a word.
    void box(double left, double right, double top, std::string_view word) {
        canvas_.stroke(rectangle({left + 0.5, top + 0.5, right - left - 1, 10}), 1, solid(ink_));
        write(canvas_, word, {(left + right) / 2, top + 8}, kTypeSB.tracked(0.3), ink_);
    }

    double word(std::string_view text, double left, double baseline, double tracking) {
        return write(canvas_, text, {left, baseline}, kTypeSB.tracked(tracking), ink_, Align::Left)
            .right;
    }

    void dot(double x, double y, double radius) { canvas_.fill(circle(x, y, radius), ink_); }

private:
    void head(double x, double y, double dx, double dy) {
        canvas_.fill(arrowHead({{x, y}, {dx, dy}, 4, 2.5}, canvas_.scale()), ink_);
    }

    Canvas& canvas_;
    Colour ink_;
};

/// What the follower does to the LFO: its rate, its depth.
void drawFollowerToLfo(Canvas& canvas) {
    Pen pen(canvas, palette::kInkFollower);
    pen.word("EF", 139, 235, 0.4);
    const double end = pen.word("LFO", 155, 235, 0.4);
    pen.headRight(152.5, 232.5);
    pen.across(std::round(end + 3), 386, 232);
    pen.across(130, 136, 232);
    for (const double x : {130.0, 184.0}) {
        pen.down(x, 232, 239);
        pen.headDown(x + 0.5, 242);
    }
}

/// From both sources to cut-off and gain.
void drawToFilter(Canvas& canvas) {
    Pen lfo(canvas, palette::kInkLfo);
    lfo.down(24, 240, 313);
    lfo.across(24, 196, 313);
    lfo.headDown(130.5, 317.5);
    lfo.headDown(195.5, 317.5);
    Pen follower(canvas, palette::kInkFollower);
    follower.down(496, 240, 313);
    follower.across(263, 497, 313);
    follower.headDown(263.5, 317.5);
    follower.headDown(327.5, 317.5);
}

/// The way of the signal, printed in the calm field between the panels.
void drawSignalPath(Canvas& canvas) {
    Pen ink(canvas, palette::kInk);
    Pen follower(canvas, palette::kInkFollower);
    Pen lfo(canvas, palette::kInkLfo);
    constexpr double kUpper = 125;
    constexpr double kLower = 154;
    ink.word("IN", 246, kUpper + 8, 0.3);
    ink.across(254, 256, kUpper + 5);
    ink.headRight(258.5, kUpper + 5.5);
    ink.box(259, 285, kUpper, "FILTER");
    ink.across(285, 287, kUpper + 5);
    ink.headRight(289.5, kUpper + 5.5);
    ink.box(290, 310, kUpper, "GAIN");
    ink.across(310, 312, kUpper + 5);
    ink.headRight(314.5, kUpper + 5.5);
    ink.word("OUT", 316, kUpper + 8, 0.2);
    follower.box(259, 275, kLower, "EF");
    lfo.box(289, 309, kLower, "LFO");
    ink.down(249, kUpper + 12, kLower + 6);
    ink.across(249, 255, kLower + 5);
    ink.headRight(258.5, kLower + 5.5);
    follower.across(275, 286, kLower + 5);
    follower.headRight(288.5, kLower + 5.5);
    // From below into filter and gain: heads under the boxes, each source on a level of its own
    constexpr double kTips = kUpper + 11.5;
    follower.down(266, kUpper + 14, kLower);
    follower.across(266, 296, kUpper + 18);
    follower.down(295, kUpper + 14, kUpper + 19);
    follower.headUp(266.5, kTips);
    follower.headUp(295.5, kTips);
    lfo.down(303, kUpper + 14, kLower);
    lfo.across(277, 304, kUpper + 23);
    lfo.down(277, kUpper + 14, kUpper + 24);
    lfo.headUp(277.5, kTips);
    lfo.headUp(303.5, kTips);
}

/// Where limiter and saturator, the dots, stand for each position of the routing: before the wet
/// level, after it, after the mix. From left to right, as the slide's positions are.
void drawRouting(Canvas& canvas) {
    constexpr double kWet = 476; // lines of the signals
    constexpr double kMix = 480;
    constexpr double kDry = 484;
    constexpr double kDot = 2.5;
    Pen print(canvas, palette::kPrint);
    Pen place(canvas, palette::kAmber);
    place.dot(275.5, kDry + 0.5, kDot);
    print.word("LIM+SAT", 281, kDry + 3, 0.2);
    print.across(326, 338, kWet);
    print.word("WET", 341, kWet + 3, 0.2);
    print.across(357, 371, kWet);
    print.word("DRY", 341, kDry + 3, 0.2);
    print.across(357, 371, kDry);
    print.down(370, kWet, kDry + 1);
    print.across(371, 375, kMix);
    print.word("MIX", 378, kMix + 3, 0.2);
    print.across(392, 405, kMix);
    print.headRight(408.5, kMix + 0.5);
    for (const Point& dot : {Point{331.5, kWet}, Point{363.5, kWet}, Point{398.5, kMix}})
        place.dot(dot.x, dot.y + 0.5, kDot);
}

} // namespace

void drawWays(Canvas& canvas) {
    drawFollowerToLfo(canvas);
    drawToFilter(canvas);
    drawSignalPath(canvas);
    drawRouting(canvas);
}

} // namespace pedl::skin
