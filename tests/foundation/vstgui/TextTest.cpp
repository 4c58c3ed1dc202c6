// Text: its widths, its place, and bytes that are no text.

#include "tests/foundation/vstgui/Canvas.h"
#include "vstgui/lib/platform/common/fontengine.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>

namespace pedl::test {

using namespace VSTGUI;

namespace {

constexpr double kUnitsPerEm = 2048.0;

void setFont(Canvas& canvas, double size, int32_t style = kNormalFace, const char* name = "Arial") {
    auto* font = new CFontDesc(name, size, style);
    canvas->setFont(font);
    font->forget();
}

double widthUnits(const char* text, int32_t style = kNormalFace, double size = 11) {
    Canvas canvas(1, 1);
    setFont(canvas, size, style);
    return canvas->getStringWidth(text) * kUnitsPerEm / size;
}

} // namespace

TEST(TextWidth, IsArialsAtEverySize) {
    struct Row {
        const char* text;
        int32_t style;
        double units; // of Arial's published advance widths, 2048 an em
    };
    for (const Row& row :
         {Row{" ", kNormalFace, 569}, Row{"A", kNormalFace, 1366}, Row{"H", kNormalFace, 1479},
          Row{"i", kNormalFace, 455}, Row{"0", kNormalFace, 1139}, Row{"W", kNormalFace, 1933},
          Row{"A", kBoldFace, 1479}, Row{"i", kBoldFace, 569}, Row{"W", kItalicFace, 1933},
          Row{"A", kBoldFace | kItalicFace, 1479},
          Row{"12.5 Hz", kNormalFace, 3 * 1139 + 2 * 569 + 1479 + 1024},
          Row{"AV", kNormalFace, 2 * 1366 - 152}, // kerned
          Row{"\xC3\xA9", kNormalFace, 1139}}) {
        SCOPED_TRACE(row.text);
        for (const double size : {9.0, 11.0, 18.5})
            EXPECT_NEAR(widthUnits(row.text, row.style, size), row.units, 1e-6);
    }
    EXPECT_EQ(widthUnits(""), 0);
    EXPECT_EQ(widthUnits(nullptr), 0);
    EXPECT_EQ(widthUnits("\n"), 569) << "control characters are spaces: there is one line";
}

TEST(TextPlace, CapitalsAreCentredVertically) {
    for (const double scale : {1.0, 2.0})
        for (const double size : {9.0, 10.0, 11.0, 12.0, 14.0, 18.0}) {
            SCOPED_TRACE(testing::Message() << size << " pixels at scale " << scale);
            Canvas canvas(40, 30, scale);
            setFont(canvas, size);
            canvas->drawString("HEH", CRect(0, 0, 40, 30));
            const Canvas::Ink ink = canvas.ink(64);
            const int below = canvas.surface().heightPixels() - ink.bottom;
            EXPECT_NEAR(ink.top, below, 1);
            EXPECT_NEAR(ink.bottom - ink.top, size * scale * 1409 / kUnitsPerEm, 1.5);
        }
}

TEST(TextPlace, FollowsTheAlignmentInsideTheRectangle) {
    const auto inkOf = [](CHoriTxtAlign align, bool antialias) {
        Canvas canvas(80, 20);
        setFont(canvas, 11);
        canvas->drawString("HH", CRect(10, 0, 70, 20), align, antialias);
        return canvas.ink();
    };
    for (const bool antialias : {true, false}) { // an H has 0.9 pixels of white on both sides
        EXPECT_NEAR(inkOf(kLeftText, antialias).left, 11, 1);
        EXPECT_NEAR(inkOf(kRightText, antialias).right, 69, 1);
        const Canvas::Ink centred = inkOf(kCenterText, antialias);
        EXPECT_NEAR((centred.left + centred.right) / 2.0, 40, 1);
    }
}

TEST(TextPlace, IsClippedToItsRectangleAndTheClipComesBack) {
    Canvas canvas(40, 20);
    setFont(canvas, 18);
    canvas->setOffset(CPoint(3, 2));
    canvas->drawString("WWWWWWWW", CRect(5, 5, 15, 11), kCenterText);
    const Canvas::Ink ink = canvas.ink();
    EXPECT_GE(ink.left, 8);
    EXPECT_GE(ink.top, 7);
    EXPECT_LE(ink.right, 18);
    EXPECT_LE(ink.bottom, 13);
    canvas->drawRect(CRect(0, 0, 37, 18), kDrawFilled);
    EXPECT_EQ(canvas.alphaAt(39, 19), 255U);
}

TEST(TextPlace, AtScaleTwoIsTheSameTextTwiceAsLargeAndSharp) {
    Canvas single(90, 20);
    Canvas twofold(90, 20, 2.0);
    for (Canvas* canvas : {&single, &twofold}) {
        setFont(*canvas, 11);
        (*canvas)->drawString("Resonance", CPoint(2, 15));
    }
    EXPECT_NEAR(twofold.ink().right, 2 * single.ink().right, 2);
    EXPECT_NEAR(twofold.ink().bottom, 2 * single.ink().bottom, 2);
    int greyRows = 0; // the upper edge of an H at 22 pixels is a whole row
    Canvas capital(20, 20, 2.0);
    setFont(capital, 11);
    capital->drawString("E", CPoint(2, 15));
    for (const std::string& row : capital.picture())
        greyRows += row.find('+') != std::string::npos && row.find('#') == std::string::npos;
    EXPECT_EQ(greyRows, 0);
}

TEST(TextStyle, WithoutAntialiasingThereIsNoGrey) {
    for (const bool antialias : {true, false}) {
        Canvas canvas(90, 20);
        setFont(canvas, 11);
        canvas->drawString("Resonance", CPoint(2, 15), antialias);
        std::ptrdiff_t grey = 0;
        for (const std::string& row : canvas.picture())
            grey += std::ranges::count(row, '+');
        EXPECT_EQ(grey > 0, antialias);
        EXPECT_GT(canvas.ink().right, 40);
    }
}

TEST(TextStyle, LinesRunBelowAndThroughTheWholeText) {
    for (const double scale : {1.0, 2.0})
        for (const int32_t style : {kUnderlineFace, kStrikethroughFace}) {
            SCOPED_TRACE(testing::Message() << "style " << style << " scale " << scale);
            Canvas canvas(60, 20, scale);
            setFont(canvas, 12, style);
            canvas->drawString("i i", CPoint(5, 14));
            const auto width = static_cast<int>(canvas->getStringWidth("i i") * scale);
            const std::string line(static_cast<std::size_t>(width), '#');
            int row = 0;
            while (row < 20 * scale &&
                   canvas.picture()[static_cast<std::size_t>(row)].find(line) == std::string::npos)
                ++row;
            const double belowBaseline = row / scale - 14;
            if (style == kUnderlineFace) {
                EXPECT_GT(belowBaseline, 0);
                EXPECT_LT(belowBaseline, 3);
            } else {
                EXPECT_LT(belowBaseline, -2);
                EXPECT_GT(belowBaseline, -6);
            }
        }
}

TEST(TextStyle, AFontOfAnyNameIsDrawn) {
    Canvas known(60, 20);
    Canvas unknown(60, 20);
    Canvas nameless(60, 20);
    setFont(known, 12);
    setFont(unknown, 12, kNormalFace, "No Such Face");
    setFont(nameless, 12, kNormalFace, nullptr);
    for (Canvas* canvas : {&known, &unknown, &nameless})
        (*canvas)->drawString("Cutoff", CRect(0, 0, 60, 20));
    EXPECT_EQ(known.picture(), unknown.picture());
    EXPECT_EQ(known.picture(), nameless.picture());
    EXPECT_GT(known.ink().right, 0);
}

TEST(TextStyle, ColourAndAlphaAreTheFonts) {
    Canvas canvas(20, 20);
    setFont(canvas, 18, kBoldFace);
    canvas->setFontColor(CColor(0, 0, 255, 128));
    canvas->drawString("\xE2\x96\xA0", CPoint(0, 18)); // a full square
    const Canvas::Ink ink = canvas.ink();
    EXPECT_EQ(canvas.at((ink.left + ink.right) / 2, (ink.top + ink.bottom) / 2), 0x80000080U);
}

TEST(Utf8, HostileTextIsDrawnAsBoxesAndEndsInTime) {
    const double box = widthUnits("\xEF\xBF\xBD");
    EXPECT_GT(box, 500);
    EXPECT_NEAR(widthUnits("\xFF"), box, 1e-6);
    EXPECT_NEAR(widthUnits("\xF0\x9F\x8E\xB5"), box, 1e-6) << "a letter that the face has not";

    Canvas canvas(60, 20);
    setFont(canvas, 12);
    std::string everyByte;
    for (int byte = 255; byte > 0; --byte)
        everyByte += static_cast<char>(byte);
    canvas->drawString(everyByte.c_str(), CPoint(-500, 15));
    canvas->drawString(std::string(2000000, 'W').c_str(), CRect(0, 0, 60, 20));
    EXPECT_GT(canvas.ink().right, 0);
    canvas->drawString(nullptr, CPoint(0, 0));
    for (const double size : {0.0, -3.0, 1e9, 1e-9, std::nan("")}) {
        setFont(canvas, size);
        canvas->drawString("text", CRect(0, 0, 60, 20));
        canvas->drawString("text", CPoint(1e12, std::nan("")), false);
    }
}

TEST(FontEngine, GoesWithTheLastThatHoldsIt) {
    {
        Canvas canvas(60, 20);
        canvas->drawString("Cutoff", CRect(0, 0, 60, 20));
    }
    FontEngine* engine = FontEngine::acquire();
    EXPECT_EQ(engine->getNbReference(), 1);
    engine->forget();
}

} // namespace pedl::test
