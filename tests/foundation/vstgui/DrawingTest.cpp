// Shapes, clips, bitmaps and states: which pixels they touch.

#include "tests/foundation/vstgui/Canvas.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/platform/iplatformbitmap.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace pedl::test {

using namespace VSTGUI;

namespace {

constexpr uint32_t kRed = 0xFFFF0000;
constexpr uint32_t kGreen = 0xFF00FF00;
constexpr uint32_t kBlue = 0xFF0000FF;
constexpr uint32_t kYellow = 0xFFFFFF00;

enum Resource : int32_t { kStrip = 1, kStripWithTwofold = 2, kWrongTwofold = 3, kMissing = 4 };

/// Three frames of 2 x 2, one above the other; at scale 2 in other colours.
constexpr std::array<uint32_t, 12> kStripPixels{kRed,   kRed,   kRed,  kRed,  kGreen, kGreen,
                                                kGreen, kGreen, kBlue, kBlue, kBlue,  kBlue};

const std::array<uint32_t, 48>& twofoldPixels() {
    static const auto pixels = [] {
        std::array<uint32_t, 48> made{};
        made.fill(kYellow);
        return made;
    }();
    return pixels;
}

bool lookUp(const CResourceDescription& resource, int32_t scale, ResourceImage& image) {
    const bool isNamed = resource.type == CResourceDescription::kStringType;
    const int32_t id = isNamed ? kStrip : resource.u.id;
    if (id == kMissing || (isNamed && std::string(resource.u.name) != "strip"))
        return false;
    if (scale == 1)
        image = {kStripPixels.data(), 2, 6};
    else if (id == kStripWithTwofold)
        image = {twofoldPixels().data(), 4, 12};
    else if (id == kWrongTwofold)
        image = {twofoldPixels().data(), 12, 4};
    return scale == 1 || id != kStrip;
}

class Bitmaps : public testing::Test {
protected:
    Bitmaps() { setResourceLookup(lookUp); }
    ~Bitmaps() override { setResourceLookup(nullptr); }
};

CBitmap resource(int32_t id) {
    return CBitmap(CResourceDescription(id));
}

} // namespace

TEST(Shapes, ARectangleFillsUpToItsRightEdgeAndItsFrameLiesInside) {
    Canvas filled(6, 5);
    filled->drawRect(CRect(1, 1, 5, 4), kDrawFilled);
    EXPECT_EQ(filled.picture(), (Rows{"......", ".####.", ".####.", ".####.", "......"}));

    Canvas framed(6, 5);
    framed->drawRect(CRect(1, 1, 5, 4));
    EXPECT_EQ(framed.picture(), (Rows{"......", ".####.", ".#..#.", ".####.", "......"}));

    Canvas wide(6, 6);
    wide->setLineWidth(2);
    wide->drawRect(CRect(0, 0, 6, 6));
    EXPECT_EQ(wide.picture(), (Rows{"######", "######", "##..##", "##..##", "######", "######"}));

    Canvas twofold(3, 3, 2.0);
    twofold->drawRect(CRect(0, 0, 3, 3));
    EXPECT_EQ(twofold.picture(), wide.picture());

    Canvas thinnerThanItsLine(4, 3);
    thinnerThanItsLine->setLineWidth(3);
    thinnerThanItsLine->drawRect(CRect(1, 1, 3, 2), kDrawFilledAndStroked);
    EXPECT_EQ(thinnerThanItsLine.picture(), (Rows{"....", ".##.", "...."}));
    thinnerThanItsLine->drawRect(CRect(3, 2, 1, 0), kDrawFilledAndStroked);
    EXPECT_EQ(thinnerThanItsLine.picture(), (Rows{"....", ".##.", "...."}));
}

TEST(Shapes, ATranslucentFrameIsEquallyDenseInItsCorners) {
    Canvas canvas(4, 4);
    canvas->setGlobalAlpha(0.5F);
    canvas->setFrameColor(CColor(255, 0, 0, 128));
    canvas->drawRect(CRect(0, 0, 4, 4));
    EXPECT_EQ(canvas.at(0, 0), 0x40400000U); // a quarter, premultiplied
    EXPECT_EQ(canvas.at(2, 0), canvas.at(0, 0));
    EXPECT_EQ(canvas.at(3, 3), canvas.at(0, 0));
}

TEST(Shapes, NeighboursShareAnEdgeWithoutGapAtEveryScale) {
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        Canvas canvas(9, 1, scale);
        for (int x = 0; x < 9; ++x)
            canvas->drawRect(CRect(x, 0, x + 1, 1), kDrawFilled);
        EXPECT_EQ(canvas.picture()[0].find('.'), std::string::npos);
    }
}

TEST(Shapes, ALineReachesBothItsEnds) {
    struct Row {
        CPoint from, to;
        Rows picture;
    };
    const std::vector<Row> rows{
        {{1, 1}, {3, 1}, {".....", ".###.", "....."}},
        {{2, 0}, {2, 2}, {"..#..", "..#..", "..#.."}},
        {{1, 0}, {3, 2}, {".#...", "..#..", "...#."}},
        {{1, 2}, {3, 0}, {"...#.", "..#..", ".#..."}},
        {{2, 1}, {2, 1}, {".....", "..#..", "....."}},
    };
    for (const Row& row : rows)
        for (const bool isReversed : {false, true}) {
            SCOPED_TRACE(testing::Message() << row.picture[0] << (isReversed ? " back" : ""));
            Canvas canvas(5, 3);
            canvas->moveTo(isReversed ? row.to : row.from);
            canvas->lineTo(isReversed ? row.from : row.to);
            EXPECT_EQ(canvas.picture(), row.picture);
        }
}

TEST(Shapes, AWideLineIsCentredAndAntialiasingLeavesStraightLinesSharp) {
    const Rows expected{".......", ".#####.", ".#####.", ".#####.", "......."};
    for (const CDrawMode mode : {kAliasing, kAntiAliasing}) {
        Canvas canvas(7, 5);
        canvas->setDrawMode(mode);
        canvas->setLineWidth(3);
        canvas->moveTo(CPoint(2, 2));
        canvas->lineTo(CPoint(4, 2));
        EXPECT_EQ(canvas.picture(), expected);
    }
}

TEST(Shapes, AnAntialiasedDiagonalCoversAsMuchAsItsAreaAsks) {
    Canvas canvas(40, 40);
    canvas->setDrawMode(kAntiAliasing);
    canvas->setLineWidth(2);
    canvas->moveTo(CPoint(5, 5));
    canvas->lineTo(CPoint(29, 29));
    double coverage = 0;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 40; ++x)
            coverage += canvas.alphaAt(x, y) / 255.0;
    const double lengthPixels = 24.0 * std::sqrt(2.0) + 2.0; // with half a width at each end
    EXPECT_NEAR(coverage, 2.0 * lengthPixels, 0.5);
}

TEST(Shapes, APolygonMayBeConcaveAndFarAway) {
    Canvas canvas(6, 6);
    const CPoint arrow[] = {{0, 0}, {6, 0}, {6, 6}, {4, 6}, {4, 2}, {0, 2}};
    canvas->drawPolygon(arrow, 6, kDrawFilled);
    EXPECT_EQ(canvas.picture(), (Rows{"######", "######", "....##", "....##", "....##", "....##"}));

    Canvas frame(5, 5);
    const CPoint square[] = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
    for (const CDrawMode mode : {kAliasing, kAntiAliasing}) {
        frame->clearRect(CRect(0, 0, 5, 5));
        frame->setDrawMode(mode);
        frame->drawPolygon(square, 4);
        EXPECT_EQ(frame.picture(), (Rows{"#####", "#...#", "#...#", "#...#", "#####"}));
    }

    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
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
    canvas->setOffset(CPoint(2, 1));
    canvas->setClipRect(CRect(1, 0, 90, 2));
    canvas->setOffset(CPoint(1, 1)); // the clip stays where it is
    canvas->drawRect(CRect(-9, -9, 99, 99), kDrawFilled);
    EXPECT_EQ(canvas.picture(), (Rows{"......", "...###", "...###", "......"}));
    CRect clip;
    EXPECT_EQ(canvas->getClipRect(clip), CRect(2, 0, 5, 2));

    canvas->resetClipRect();
    canvas->setOffset(CPoint(0, 0));
    canvas->clearRect(CRect(4, 0, 5, 1));
    EXPECT_EQ(canvas.picture(), (Rows{"......", "...###", "...###", "......"}));
    canvas->clearRect(CRect(4, 0, 5, 3));
    EXPECT_EQ(canvas.picture(), (Rows{"......", "...#.#", "...#.#", "......"}));

    canvas->setClipRect(CRect(50, 50, 60, 60));
    canvas->drawRect(CRect(-9, -9, 99, 99), kDrawFilledAndStroked);
    canvas->moveTo(CPoint(-9, -9));
    canvas->lineTo(CPoint(9, 8));
    canvas->drawString("text", CRect(0, 0, 6, 4));
    EXPECT_EQ(canvas.picture(), (Rows{"......", "...#.#", "...#.#", "......"}));
}

TEST(State, IsSavedAndRestoredWholeTheSharedFontUntouched) {
    const int32_t references = kNormalFont->getNbReference();
    {
        Canvas canvas(4, 2);
        canvas->restoreGlobalState(); // nothing was saved
        canvas->setFont(kNormalFont);
        canvas->saveGlobalState();
        canvas->setFont(kNormalFont, 31, kBoldFace);
        EXPECT_EQ(canvas->getFont()->getSize(), 31);
        EXPECT_EQ(canvas->getFont()->getStyle(), kBoldFace);
        EXPECT_EQ(kNormalFont->getSize(), 12);
        canvas->setFillColor(kRedCColor);
        canvas->setClipRect(CRect(0, 0, 1, 1));
        canvas->setOffset(CPoint(9, 9));
        canvas->setGlobalAlpha(0.1F);
        canvas->saveGlobalState();
        canvas->restoreGlobalState();
        canvas->restoreGlobalState();
        EXPECT_EQ(canvas->getFont(), kNormalFont);
        canvas->drawRect(CRect(0, 0, 4, 2), kDrawFilled);
        EXPECT_EQ(canvas.at(3, 1), 0xFF000000U);
        canvas->setFont(kNormalFont, 0, -1); // as it is
        EXPECT_EQ(canvas->getFont(), kNormalFont);
        canvas->saveGlobalState(); // left unmatched
    }
    EXPECT_EQ(kNormalFont->getNbReference(), references);
}

TEST_F(Bitmaps, LandWithTheirOffsetOnTheCornerOfTheRectangleThatClipsThem) {
    const CBitmap strip = resource(kStrip);
    EXPECT_EQ(strip.getWidth(), 2);
    EXPECT_EQ(strip.getHeight(), 6);

    struct Row {
        const char* story;
        CRect dest;
        CPoint offset;
        Rows picture;
    };
    const std::vector<Row> rows{
        {"second frame", {1, 1, 3, 3}, {0, 2}, {"....", ".##.", ".##.", "...."}},
        {"larger than the picture", {0, 0, 4, 4}, {1, 5}, {"#...", "....", "....", "...."}},
        {"before the picture", {0, 0, 4, 4}, {-1, -2}, {"....", "....", ".##.", ".##."}},
        {"beyond the picture", {0, 0, 4, 4}, {2, 0}, {"....", "....", "....", "...."}},
        {"smaller than a frame", {3, 3, 4, 4}, {1, 1}, {"....", "....", "....", "...#"}},
        {"reversed", {3, 3, 1, 1}, {0, 0}, {"....", "....", "....", "...."}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.story);
        Canvas canvas(4, 4);
        resource(kStrip).draw(canvas.context(), row.dest, row.offset);
        EXPECT_EQ(canvas.picture(), row.picture);
    }
    Canvas canvas(4, 4);
    resource(kStrip).draw(canvas.context(), CRect(1, 1, 3, 3), CPoint(0, 2));
    EXPECT_EQ(canvas.at(1, 1), kGreen);
}

TEST_F(Bitmaps, AlphaIsMultipliedByTheGlobalOne) {
    Canvas canvas(2, 2);
    canvas->setGlobalAlpha(0.5F);
    resource(kStrip).draw(canvas.context(), CRect(0, 0, 2, 2), CPoint(0, 0), 0.5F);
    EXPECT_EQ(canvas.at(0, 0), 0x40400000U);
    resource(kStrip).draw(canvas.context(), CRect(0, 0, 2, 2), CPoint(0, 2), -1.0F);
    resource(kStrip).draw(canvas.context(), CRect(0, 0, 2, 2), CPoint(0, 2),
                          std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(canvas.at(0, 0), 0x40400000U);
}

TEST_F(Bitmaps, AreDoubledWithoutBlurOrReplacedByTheirTwofoldImage) {
    for (const int32_t id : {kStrip, kWrongTwofold}) {
        Canvas canvas(4, 4, 2.0);
        resource(id).draw(canvas.context(), CRect(1, 1, 3, 3), CPoint(0, 1));
        EXPECT_EQ(canvas.picture(), (Rows{"........", "........", "..####..", "..####..",
                                          "..####..", "..####..", "........", "........"}));
        EXPECT_EQ(canvas.at(2, 3), kRed);
        EXPECT_EQ(canvas.at(5, 4), kGreen);
    }
    Canvas canvas(4, 4, 2.0);
    resource(kStripWithTwofold).draw(canvas.context(), CRect(1, 1, 3, 3), CPoint(0, 1));
    EXPECT_EQ(canvas.at(2, 3), kYellow);
    EXPECT_EQ(canvas.alphaAt(6, 3), 0U);
}

TEST_F(Bitmaps, FramesOfAStripNeverShowTheirNeighbours) {
    for (const double scale : {1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0}) {
        SCOPED_TRACE(scale);
        Canvas canvas(4, 4, scale);
        resource(kStrip).draw(canvas.context(), CRect(1, 1, 3, 3), CPoint(0, 2));
        int painted = 0;
        for (int y = 0; y < canvas.surface().heightPixels(); ++y)
            for (int x = 0; x < canvas.surface().widthPixels(); ++x)
                if (canvas.alphaAt(x, y) != 0) {
                    ++painted;
                    EXPECT_EQ(canvas.at(x, y), kGreen);
                }
        EXPECT_NEAR(painted, 4 * scale * scale, 2 * scale + 1);
    }
}

TEST_F(Bitmaps, AMissingResourceGivesAnObjectThatDrawsNothing) {
    Canvas canvas(2, 2);
    CBitmap missing = resource(kMissing);
    CBitmap nameless{CResourceDescription()};
    CBitmap endless(1e9, 1e9);
    CBitmap sizeless(0, 5);
    for (CBitmap* bitmap : {&missing, &nameless, &endless, &sizeless}) {
        EXPECT_FALSE(bitmap->isLoaded());
        EXPECT_EQ(bitmap->getWidth(), 0);
        bitmap->draw(canvas.context(), CRect(0, 0, 2, 2));
    }
    EXPECT_EQ(canvas.picture(), (Rows{"..", ".."}));
    EXPECT_TRUE(CBitmap(CResourceDescription("strip")).isLoaded());
    setResourceLookup(nullptr);
    EXPECT_FALSE(resource(kStrip).isLoaded());
}

TEST(OffscreenContext, KeepsItsPixelsAtTheScaleOfTheWindow) {
    COffscreenContext* offscreen = createPixmanOffscreenContext(3, 2, 2.0);
    EXPECT_EQ(offscreen->getWidth(), 3);
    offscreen->beginDraw();
    offscreen->setLineWidth(0.5); // one pixel of the surface
    offscreen->drawRect(CRect(0, 0, 3, 2));
    offscreen->endDraw();

    Canvas canvas(4, 3, 2.0);
    offscreen->copyFrom(canvas.context(), CRect(1, 1, 4, 3));
    EXPECT_EQ(canvas.picture(),
              (Rows{"........", "........", "..######", "..#....#", "..#....#", "..######"}));

    CBitmap* kept = offscreen->getBitmap();
    kept->remember();
    offscreen->forget();
    Canvas later(3, 2);
    kept->draw(later.context(), CRect(0, 0, 3, 2));
    kept->forget();
    EXPECT_EQ(later.picture()[0], "+++"); // made smaller, not cut
}

} // namespace pedl::test
