#include "resources/painter/Drawings.h"

#include "resources/painter/DisplayWords.h"
#include "resources/painter/Palette.h"

#include <string_view>
#include <vector>

namespace pedl::skin {

const GlassLight kAmberLight{palette::kAmber, palette::kAmberHot, palette::kAmberGlow};
const GlassLight kHostLight{palette::kHostAmber, palette::kHostHot, palette::kHostGlow};

namespace {

// Frames of a strip after the ten digits
constexpr int kBlank = 10;
constexpr int kPoint = 11;
constexpr int kSlash = 12;

// Segments: middle lines and thickness
constexpr double kLeft = 6.2;
constexpr double kRight = 20.8;
constexpr double kTop = 4.4;
constexpr double kMiddle = 17.8;
constexpr double kBottom = 31.2;
constexpr double kHalf = 3.3 / 2; // of the thickness
constexpr double kGap = 0.55;
constexpr double kSlant = 0.105;

/// Segments a to g of each digit.
constexpr std::string_view kDigits[]{"abcdef", "bc",     "abged", "abgcd",   "fgbc",
                                     "afgcd",  "afgedc", "abc",   "abcdefg", "abcdfg"};

Point slanted(double x, double y) {
    return {x - (y - kMiddle) * kSlant, y};
}

Path outline(std::initializer_list<Point> corners) {
    return [line = std::vector<Point>(corners)](cairo_t* to) {
        cairo_new_sub_path(to);
        for (const Point& corner : line) {
            const Point point = slanted(corner.x, corner.y);
            cairo_line_to(to, point.x, point.y);
        }
        cairo_close_path(to);
    };
}

Path across(double y) {
    const double x0 = kLeft + kGap;
    const double x1 = kRight - kGap;
    return outline({{x0, y},
                    {x0 + kHalf, y - kHalf},
                    {x1 - kHalf, y - kHalf},
                    {x1, y},
                    {x1 - kHalf, y + kHalf},
                    {x0 + kHalf, y + kHalf}});
}

Path upright(double x, double top, double bottom) {
    const double y0 = top + kGap;
    const double y1 = bottom - kGap;
    return outline({{x, y0},
                    {x + kHalf, y0 + kHalf},
                    {x + kHalf, y1 - kHalf},
                    {x, y1},
                    {x - kHalf, y1 - kHalf},
                    {x - kHalf, y0 + kHalf}});
}

Path segment(char name) {
    switch (name) {
    case 'a':
        return across(kTop);
    case 'b':
        return upright(kRight, kTop, kMiddle);
    case 'c':
        return upright(kRight, kMiddle, kBottom);
    case 'd':
        return across(kBottom);
    case 'e':
        return upright(kLeft, kMiddle, kBottom);
    case 'f':
        return upright(kLeft, kTop, kMiddle);
    default:
        return across(kMiddle);
    }
}

Path segments(std::string_view names) {
    return [names](cairo_t* to) {
        for (const char name : names)
            segment(name)(to);
    };
}

Path pointPath() {
    return circle(23.4, kBottom + 0.2, 1.9);
}

/// Without the slant of the digits: it leans more than they do.
Path slashPath() {
    return polygon(
        {{17.2, kTop - 0.9}, {20.8, kTop - 0.9}, {9.2, kBottom + 0.9}, {5.6, kBottom + 0.9}});
}

/// Bloom, the shape itself, the hotter core in the middle of the cell.
void drawLit(Canvas& canvas, const Path& path, const GlassLight& light, double hotInside,
             double hotOutside) {
    canvas.soft(path, {light.colour, 0.42, 2.2});
    canvas.soft(path, {light.glow, 0.55, 0.8});
    canvas.fill(path, light.colour);
    canvas.fill(path,
                radial({13.5, 16}, 22, {{0, light.hot, hotInside}, {1, light.hot, hotOutside}}));
}

/// What a strip does to the words under the digits. The face has them on its glass, "Hz" lit and
/// the others not; a frame leaves that open or covers it.
struct Words {
    const DisplayWord* withPoint = nullptr; // lit by that frame
    const DisplayWord* withSlash = nullptr;
    bool showHertz = false; // leave it open under the digits

    [[nodiscard]] const DisplayWord* litBy(int frame) const {
        return frame == kPoint ? withPoint : frame == kSlash ? withSlash : nullptr;
    }

    /// What the frame's own glass covers.
    [[nodiscard]] Path cover(int frame) const {
        const Path digits = rectangle({0, 0, kCellWidth, kWordsFrom});
        const double height = kDisplay.height - kWordsFrom;
        const Path words = rectangle({0, kWordsFrom, kCellWidth, height});
        if (frame == kPoint) // over a digit; the host's word stands where another one would be
            return withPoint == &kWordHost ? words : Path([](cairo_t*) {});
        if (frame == kSlash || (frame == kBlank && showHertz))
            return join({digits, words});
        return showHertz ? digits : join({digits, rectangle({0, kWordsFrom, kHertzEnd, height})});
    }
};

Picture digit(const SkinBitmap& size, int frame, int scale, const GlassLight& light,
              const Words& words) {
    Canvas canvas(size.width, size.frameHeight, scale);
    const Rectangle cell{0, 0, kCellWidth, kDisplay.height};
    canvas.clipped(words.cover(frame), [&] { fillGlass(canvas, cell); });
    if (frame <= kBlank)
        drawUnlitCell(canvas, 0, 0);
    if (frame < kBlank)
        drawLit(canvas, segments(kDigits[frame]), light, 0.85, 0.15);
    if (frame == kPoint)
        drawLit(canvas, pointPath(), light, 0.6, 0.6);
    if (frame == kSlash)
        drawLit(canvas, slashPath(), light, 0.45, 0.45);
    if (frame == kSlash && words.withSlash == nullptr)
        drawUnlitWord(canvas, 0, 0, kWordNote);
    if (const DisplayWord* const word = words.litBy(frame))
        drawLitWord(canvas, 0, 0, *word, light);
    return canvas.picture();
}

} // namespace

void fillGlass(Canvas& canvas, Rectangle box) {
    canvas.fill(rectangle(box), vertical(box, {{0, palette::kGlassTop},
                                               {0.5, palette::kGlass},
                                               {1, palette::kGlassBottom}}));
}

void drawUnlitCell(Canvas& canvas, double x, double y) {
    canvas.fill(moved(x, y, segments("abcdefg")), palette::kAmberGhost);
    canvas.fill(moved(x, y, pointPath()), palette::kAmberGhost);
}

void drawUnlitWord(Canvas& canvas, double x, double y, const DisplayWord& word) {
    write(canvas, word.text, {x + word.left, y + kWordBaseline}, kWordType, palette::kAmberGhost,
          Align::Left);
}

void drawLitWord(Canvas& canvas, double x, double y, const DisplayWord& word,
                 const GlassLight& light) {
    const Path letters = lettering(word.text, {x + word.left, y + kWordBaseline}, kWordType,
                                   Align::Left, canvas.scale());
    canvas.soft(letters, {light.glow, 0.45, 1.2});
    canvas.fill(letters, mix(light.colour, light.hot, 0.45F));
}

/// The cut-off shows no point that could light its word: its digits leave the face's own open.
Picture paintCutoffDigits(const SkinBitmap& size, int frame, int scale) {
    return digit(size, frame, scale, kAmberLight, {nullptr, nullptr, true});
}

Picture paintRateDigits(const SkinBitmap& size, int frame, int scale) {
    return digit(size, frame, scale, kAmberLight, {&kWordHertz, &kWordNote});
}

Picture paintTempoDigits(const SkinBitmap& size, int frame, int scale) {
    return digit(size, frame, scale, kAmberLight, {&kWordTempo});
}

Picture paintHostTempoDigits(const SkinBitmap& size, int frame, int scale) {
    return digit(size, frame, scale, kHostLight, {&kWordHost});
}

} // namespace pedl::skin
