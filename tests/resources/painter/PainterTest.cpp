#include "resources/painter/Painter.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace pedl::skin
