// What the pictures of the documents cannot show: clips, odd sizes, extremes of transparency,
// scales between the whole ones, and how far a shape or a strip's picture reaches to the pixel.

#include "tests/foundation/vstgui/Canvas.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/platform/iplatformbitmap.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>

namespace pedl::test {

using namespace VSTGUI;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr uint32_t kRed = 0xFFFF0000;
constexpr uint32_t kGreen = 0xFF00FF00;

enum Resource : int32_t { kStrip = 1, kWrongTwofold = 2, kMissing = 3 };

/// Two frames of 2 x 2, one above the other.
constexpr std::array<uint32_t, 8> kPixels{kRed, kRed, kRed, kRed, kGreen, kGreen, kGreen, kGreen};

bool lookUp(const CResourceDescription& resource, int32_t scale, ResourceImage& image) {
    image = {kPixels.data(), 2, 4};
    return resource.u.id != kMissing && (scale == 1 || resource.u.id == kWrongTwofold);
}

class Bitmaps : public testing::Test {
protected:
    Bitmaps() { setResourceLookup(lookUp); }
    ~Bitmaps() override { setResourceLookup(nullptr); }

    static void draw(Canvas& canvas, int32_t id, const CRect& dest, const CPoint& offset,
                     float alpha = 1.0F) {
        CBitmap(CResourceDescription(id)).draw(canvas.context(), dest, offset, alpha);
    }
};

} // namespace

TEST(Shapes, AbsurdOnesEndInTimeAndInsideTheSurface) {
    Canvas canvas(6, 6);
    const CPoint wild[] = {{-1e30, 2}, {1e30, 2}, {kNaN, 1e300}, {3, -1e9}};
    for (const CDrawMode mode : {kAliasing, kAntiAliasing})
        for (const double width : {0.0, 1.0, 1e12, kNaN}) {
            canvas->setDrawMode(mode);
            canvas->setLineWidth(width);
            canvas->drawPolygon(wild, 4, kDrawFilledAndStroked);
            canvas->moveTo(wild[0]);
            canvas->lineTo(wild[1]);
            canvas->lineTo(wild[2]);
            canvas->drawRect(CRect(kNaN, -1e40, 1e40, kNaN), kDrawFilledAndStroked);
        }
    canvas->drawPolygon(nullptr, 3);
    canvas->drawPolygon(wild, 1, kDrawFilledAndStroked);
}

TEST(Clip, IsMovedByTheOffsetAndCutToTheSurface) {
    Canvas canvas(6, 4);
    const Rows expected{"......", "...#.#", "...#.#", "......"};
    canvas->setOffset(CPoint(2, 1));
    canvas->setClipRect(CRect(1, 0, 90, 2));
    canvas->setOffset(CPoint(1, 1)); // the clip stays where it is
    canvas->drawRect(CRect(-9, -9, 99, 99), kDrawFilled);
    CRect clip;
    EXPECT_EQ(canvas->getClipRect(clip), CRect(2, 0, 5, 2));
    canvas->clearRect(CRect(3, -1, 4, 2));
    EXPECT_EQ(canvas.picture(), expected);
    canvas->setClipRect(CRect(50, 50, 60, 60));
    canvas->drawRect(CRect(-9, -9, 99, 99), kDrawFilledAndStroked);
    canvas->moveTo(CPoint(-9, -9));
    canvas->lineTo(CPoint(9, 8));
    canvas->drawString("text", CRect(0, 0, 6, 4));
    EXPECT_EQ(canvas.picture(), expected) << "nothing is inside the clip";
}

TEST(State, IsSavedAndRestoredWholeTheSharedFontUntouched) {
    const int32_t references = kNormalFont->getNbReference();
    {
        Canvas canvas(4, 2);
        canvas->restoreGlobalState(); // nothing was saved
        canvas->setFont(kNormalFont);
        canvas->saveGlobalState();
        canvas->setFont(kNormalFont, 31, kBoldFace);
        CFontDesc* const large = canvas->getFont();
        large->remember();
        EXPECT_EQ(large->getSize() - kNormalFont->getSize(), 31 - 12);
        canvas->setFillColor(kRedCColor);
        canvas->setClipRect(CRect(0, 0, 1, 1));
        canvas->setOffset(CPoint(9, 9));
        canvas->setGlobalAlpha(0.1F);
        canvas->restoreGlobalState();
        EXPECT_EQ(canvas->getFont(), kNormalFont);
        EXPECT_EQ(large->getNbReference(), 1);
        large->forget();
        canvas->drawRect(CRect(0, 0, 4, 2), kDrawFilled);
        EXPECT_EQ(canvas.at(3, 1), 0xFF000000U);
        canvas->saveGlobalState(); // left unmatched
    }
    EXPECT_EQ(kNormalFont->getNbReference(), references);
}

TEST_F(Bitmaps, AlphasAreMultipliedAndWhatIsNoneDrawsNothing) {
    Canvas canvas(4, 4);
    canvas->setGlobalAlpha(0.5F);
    canvas->setFrameColor(CColor(255, 0, 0, 128));
    canvas->drawRect(CRect(0, 0, 4, 4));
    draw(canvas, kStrip, CRect(1, 1, 2, 2), CPoint(0, 0), 0.5F);
    for (const float none : {-1.0F, std::numeric_limits<float>::quiet_NaN()}) {
        draw(canvas, kStrip, CRect(0, 0, 4, 4), CPoint(0, 0), none);
        canvas->setGlobalAlpha(none);
        EXPECT_EQ(canvas->getGlobalAlpha(), 0);
    }
    for (const int corner : {0, 1, 3}) // a frame is as dense in its corners as elsewhere
        EXPECT_EQ(canvas.at(corner, corner), 0x40400000U) << "a quarter, premultiplied";
    EXPECT_EQ(canvas.at(2, 0), 0x40400000U);
}

TEST_F(Bitmaps, NeighboursMeetAndFramesOfAStripStayAloneAtEveryScale) {
    for (const double scale : {1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0}) {
        SCOPED_TRACE(scale);
        Canvas canvas(4, 4, scale);
        for (int x = 0; x < 4; ++x)
            canvas->drawRect(CRect(x, 0, x + 1, 4), kDrawFilled);
        for (const std::string& row : canvas.picture())
            EXPECT_EQ(row.find('.'), std::string::npos);
        draw(canvas, kStrip, CRect(1, 1, 3, 3), CPoint(0, 2));
        int green = 0;
        for (int y = 0; y < canvas.surface.heightPixels(); ++y)
            for (int x = 0; x < canvas.surface.widthPixels(); ++x) {
                green += canvas.at(x, y) == kGreen;
                EXPECT_TRUE(canvas.at(x, y) == kGreen || canvas.at(x, y) == 0xFF000000U);
            }
        EXPECT_NEAR(green, 4 * scale * scale, 2 * scale + 1);
    }
}

TEST_F(Bitmaps, WhatDoesNotFitOrIsMissingDrawsNothing) {
    Canvas twofold(2, 2, 2.0);
    draw(twofold, kWrongTwofold, CRect(0, 0, 2, 2), CPoint(0, 0));
    EXPECT_EQ(twofold.at(3, 3), kRed) << "the image of scale 1 in its place";
    Canvas canvas(2, 2);
    CBitmap missing{CResourceDescription(kMissing)};
    CBitmap nameless{CResourceDescription()};
    CBitmap endless(1e9, 1e9);
    CBitmap sizeless(0, 5);
    for (CBitmap* bitmap : {&missing, &nameless, &endless, &sizeless}) {
        EXPECT_FALSE(bitmap->isLoaded());
        bitmap->draw(canvas.context(), CRect(0, 0, 2, 2));
    }
    EXPECT_EQ(canvas.picture(), (Rows{"..", ".."}));
}

} // namespace pedl::test
