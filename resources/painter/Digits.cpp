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

/// The words that a strip lights.
struct Words {
    const DisplayWord* withPoint = nullptr;
    const DisplayWord* withSlash = nullptr;

    [[nodiscard]] const DisplayWord* litBy(int frame) const {
        return frame == kPoint ? withPoint : frame == kSlash ? withSlash : nullptr;
    }
};

/// What the frame's own glass covers.
Rectangle ground(int frame, const DisplayWord* lit) {
    if (frame == kSlash) // stands alone, its cell has nothing below it
        return {0, 0, kCellWidth, kDisplay.height};
    if (frame != kPoint) // the words of the face show below the digits
        return {0, 0, kCellWidth, kWordsFrom};
    if (lit == &kWordHost) // it stands where another word is printed
        return {0, kWordsFrom, kCellWidth, kDisplay.height - kWordsFrom};
    return {0, 0, 0, 0}; // a point lies over a digit
}

Picture digit(const SkinBitmap& size, int frame, int scale, const GlassLight& light,
              const Words& words) {
    Canvas canvas(size.width, size.frameHeight, scale);
    const Rectangle cell{0, 0, kCellWidth, kDisplay.height};
    const DisplayWord* const lit = words.litBy(frame);
    canvas.clipped(rectangle(ground(frame, lit)), [&] { fillGlass(canvas, cell); });
    if (frame <= kBlank)
        drawUnlitCell(canvas, 0, 0);
    if (frame < kBlank)
        drawLit(canvas, segments(kDigits[frame]), light, 0.85, 0.15);
    if (frame == kBlank)
        dimWord(canvas, 0, 0, kWordHertz);
    if (frame == kPoint)
        drawLit(canvas, pointPath(), light, 0.6, 0.6);
    if (frame == kSlash) {
        drawLit(canvas, slashPath(), light, 0.45, 0.45);
        drawUnlitWord(canvas, 0, 0, kWordNote);
        drawUnlitWord(canvas, 0, 0, kWordHertz);
    }
    if (lit != nullptr)
        drawLitWord(canvas, 0, 0, *lit, light);
    return canvas.picture();
}

} // namespace

namespace {

Paint glass(Rectangle box, double alpha) {
    return vertical(box, {{0, palette::kGlassTop, alpha},
                          {0.5, palette::kGlass, alpha},
                          {1, palette::kGlassBottom, alpha}});
}

Path partOf(double x, double y, const DisplayWord& word) {
    return rectangle({x + word.partBegin, y + kWordsFrom, word.partEnd - word.partBegin,
                      kDisplay.height - kWordsFrom});
}

} // namespace

void fillGlass(Canvas& canvas, Rectangle box) {
    canvas.fill(rectangle(box), glass(box, 1));
}

void drawUnlitCell(Canvas& canvas, double x, double y) {
    canvas.fill(moved(x, y, segments("abcdefg")), palette::kAmberGhost);
    canvas.fill(moved(x, y, pointPath()), palette::kAmberGhost);
}

void drawLitWord(Canvas& canvas, double x, double y, const DisplayWord& word,
                 const GlassLight& light) {
    const Path letters = lettering(word.text, {x + word.left, y + kWordBaseline}, kWordType,
                                   Align::Left, canvas.scale());
    canvas.clipped(partOf(x, y, word), [&] {
        canvas.soft(letters, {light.glow, 0.6, 1.2});
        canvas.fill(letters, mix(light.colour, light.hot, 0.75F));
    });
}

void dimWord(Canvas& canvas, double x, double y, const DisplayWord& word) {
    canvas.fill(partOf(x, y, word),
                glass({x, y, kCellWidth, kDisplay.height}, 1 - unlitWord(canvas.scale())));
}

void drawUnlitWord(Canvas& canvas, double x, double y, const DisplayWord& word) {
    drawLitWord(canvas, x, y, word, kAmberLight);
    dimWord(canvas, x, y, word);
}

/// The cut-off shows no point that could light its word: it is lit on the face.
Picture paintCutoffDigits(const SkinBitmap& size, int frame, int scale) {
    return digit(size, frame, scale, kAmberLight, {});
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
