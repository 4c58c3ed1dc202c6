#include "resources/painter/Painter.h"

#include "editor/ControlLayout.h"
#include "resources/painter/FacePlaces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <thread>
#include <vector>

namespace pedl::skin {
namespace {

/// The middle frame of every drawing.
std::vector<Picture> oneOfEach(int scale) {
    std::vector<Picture> pictures;
    for (int index = 0; index < static_cast<int>(Drawing::kCount); ++index) {
        const auto drawing = static_cast<Drawing>(index);
        pictures.push_back(paintFrame(drawing, firstBitmapOf(drawing).frames / 2, scale));
    }
    return pictures;
}

TEST(Painter, GivesTheSameBytesWhateverRunsBesideIt) {
    std::vector<Picture> first;
    std::vector<Picture> second;
    {
        const std::jthread one([&first] { first = oneOfEach(1); });
        const std::jthread two([&second] { second = oneOfEach(1); });
    }
    const std::vector<Picture> alone = oneOfEach(1);
    for (std::size_t i = 0; i < alone.size(); ++i)
        EXPECT_TRUE(alone[i].pixels == first[i].pixels && alone[i].pixels == second[i].pixels)
            << firstBitmapOf(static_cast<Drawing>(i)).id;
}

TEST(Painter, FramesHaveTheTablesSizeAndArePremultiplied) {
    for (const int scale : {1, 2}) {
        const std::vector<Picture> pictures = oneOfEach(scale);
        for (std::size_t i = 0; i < pictures.size(); ++i) {
            const SkinBitmap& size = firstBitmapOf(static_cast<Drawing>(i));
            EXPECT_EQ(pictures[i].width, size.width * scale) << size.id;
            EXPECT_EQ(pictures[i].height, size.frameHeight * scale) << size.id;
            for (const std::uint32_t pixel : pictures[i].pixels) {
                const std::uint32_t alpha = pixel >> 24U;
                ASSERT_TRUE((pixel >> 16U & 255U) <= alpha && (pixel >> 8U & 255U) <= alpha &&
                            (pixel & 255U) <= alpha)
                    << size.id;
            }
        }
    }
}

TEST(Painter, StripsHoldTheirFramesInOrderAndAnEncoderComesRound) {
    const Picture strip = paint(Drawing::ThresholdMode, 2);
    const Picture last = paintFrame(Drawing::ThresholdMode, 2, 2);
    EXPECT_EQ(strip.height, 3 * last.height);
    EXPECT_TRUE(std::equal(last.pixels.rbegin(), last.pixels.rend(), strip.pixels.rbegin()));
    EXPECT_TRUE(paintFrame(Drawing::Encoder, 100, 1).pixels ==
                paintFrame(Drawing::Encoder, 0, 1).pixels);
}

/// The middle of what a control shows at first, on the face.
Point middleOf(const ControlRow& row) {
    constexpr int kScale = 2;
    const SkinBitmap& bitmap = *findSkinBitmap(row.bitmaps[0]);
    const Picture picture = paintFrame(bitmap.drawing, 0, kScale);
    int left = picture.width, top = picture.height, right = 0, bottom = 0;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            if (picture.pixels[static_cast<std::size_t>(y * picture.width + x)] >> 24U > 20) {
                left = std::min(left, x);
                right = std::max(right, x + 1);
                top = std::min(top, y);
                bottom = std::max(bottom, y + 1);
            }
    return {row.place.left + (left + right) / 2.0 / kScale,
            row.place.top + (top + bottom) / 2.0 / kScale};
}

/// How many controls of these kinds are shown, and that each has its place among `places`.
std::size_t controlsAt(const std::vector<Point>& places, std::initializer_list<ControlKind> kinds) {
    std::size_t count = 0;
    for (const ControlRow& row : kPanelRows) {
        if (std::find(kinds.begin(), kinds.end(), row.kind) == kinds.end())
            continue;
        ++count;
        const Point middle = middleOf(row);
        EXPECT_TRUE(std::any_of(places.begin(), places.end(),
                                [&](const Point& place) {
                                    return std::hypot(place.x - middle.x, place.y - middle.y) < 0.4;
                                }))
            << row.tag << " at " << middle.x << ' ' << middle.y;
    }
    return count;
}

TEST(Painter, ShadowsAndScalesAreWhereTheControlsAre) {
    std::vector<Point> knobs{{kExtendPlace.x, kExtendPlace.y}};
    const auto add = [&knobs](const auto& places) {
        for (const KnobPlace& place : places)
            knobs.push_back({place.x, place.y});
    };
    add(kEncoderPlaces);
    add(kLargePlaces);
    add(kMediumPlaces);
    add(kSmallPlaces);
    EXPECT_EQ(
        controlsAt(knobs, {ControlKind::Encoder, ControlKind::LabelledKnob, ControlKind::Knob}),
        knobs.size());
    const std::vector<Point> lamps(kLampPlaces.begin(), kLampPlaces.end());
    EXPECT_EQ(controlsAt(lamps, {ControlKind::IndicatorLamp, ControlKind::MeterLamp}),
              lamps.size());
    for (const Seat& seat : kSeatPlaces)
        EXPECT_TRUE(std::any_of(kPanelRows.begin(), kPanelRows.end(),
                                [&](const ControlRow& row) {
                                    return row.place.left == seat.box.x &&
                                           row.place.right == seat.box.right() &&
                                           std::fabs(row.place.bottom - seat.box.bottom()) < 1 &&
                                           row.place.top <= seat.box.y;
                                }))
            << seat.box.x << ' ' << seat.box.y;
}

} // namespace
} // namespace pedl::skin
