// What the pictures of the documents cannot show of texts: their widths, their clip, and bytes and
// sizes that are none.

#include "tests/foundation/vstgui/Canvas.h"
#include "vstgui/lib/platform/common/fontengine.h"

#include <cmath>
#include <gtest/gtest.h>

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
         {Row{"A", kNormalFace, 1366}, Row{"i", kNormalFace, 455}, Row{"A", kBoldFace, 1479},
          Row{"W", kItalicFace, 1933}, Row{"A", kBoldFace | kItalicFace, 1479},
          Row{"12.5 Hz", kNormalFace, 3 * 1139 + 2 * 569 + 1479 + 1024},
          Row{"AV", kNormalFace, 2 * 1366 - 152}, // kerned
          Row{"\xC3\xA9", kNormalFace, 1139}, Row{"", kNormalFace, 0}, Row{nullptr, kNormalFace, 0},
          Row{"\n", kNormalFace, 569}}) // there is one line
        for (const double size : {9.0, 11.0, 18.5})
            EXPECT_NEAR(widthUnits(row.text, row.style, size), row.units, 1e-6);
}

TEST(Text, IsClippedToItsRectangleAndTheClipComesBack) {
    Canvas canvas(40, 20);
    setFont(canvas, 18, kNormalFace, nullptr); // any name will do
    canvas->setOffset(CPoint(3, 2));
    canvas->drawString("WWWWWWWW", CRect(5, 5, 15, 11), kCenterText);
    int inside = 0;
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 40; ++x)
            if (canvas.at(x, y) != 0) {
                ++inside;
                EXPECT_TRUE(CRect(8, 7, 18, 13).pointInside(CPoint(x, y))) << x << ' ' << y;
            }
    EXPECT_GT(inside, 10);
    canvas->drawRect(CRect(0, 0, 37, 18), kDrawFilled);
    EXPECT_EQ(canvas.at(39, 19), 0xFF000000U);
    canvas->setFontColor(CColor(0, 0, 255, 128));
    canvas->clearRect(CRect(-3, -2, 37, 18));
    canvas->drawString("\xE2\x96\xA0", CPoint(0, 18)); // a full square
    EXPECT_EQ(canvas.at(9, 12), 0x80000080U);
}

TEST(Text, OfHostileBytesIsDrawnAsBoxesAndEndsInTime) {
    const double box = widthUnits("\xEF\xBF\xBD");
    EXPECT_GT(box, 500);
    EXPECT_NEAR(widthUnits("\xFF"), box, 1e-6);
    EXPECT_NEAR(widthUnits("\xF0\x9F\x8E\xB5"), box, 1e-6) << "a letter that the face has not";
    EXPECT_NEAR(widthUnits("\xE2\x88"), 2 * box, 1e-6) << "one that was cut off";

    Canvas canvas(60, 20);
    setFont(canvas, 12);
    std::string everyByte;
    for (int byte = 255; byte > 0; --byte)
        everyByte += static_cast<char>(byte);
    canvas->drawString(everyByte.c_str(), CPoint(-500, 15));
    canvas->drawString(std::string(2000000, 'W').c_str(), CRect(0, 0, 60, 20));
    canvas->drawString(nullptr, CPoint(0, 0));
    for (const double size : {0.0, -3.0, 1e9, 1e-9, std::nan("")}) {
        setFont(canvas, size);
        EXPECT_GE(canvas->getStringWidth("text"), 0);
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
