// Strips that are packed frame by frame: what is unpacked when, and who shares it.

#include <atomic>
#include <thread>

#include "tests/foundation/vstgui/Canvas.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/platform/iplatformbitmap.h"

namespace pedl::test {

using namespace VSTGUI;

namespace {

constexpr int32_t kFrames = 40;
constexpr int32_t kSide = 8;
enum Id : int32_t { kKnob = 1, kAnotherKnobOfThatLook = 2 };

constinit std::atomic<int> unpackedFrames{0};

uint32_t colourOf(int32_t frame) {
    return 0xFF000000U + static_cast<uint32_t>(frame);
}

/// Every frame is the one before it and a little more; each fourth stands alone.
const PackedFormat format{
    [](const void*, int32_t frame) { return frame % 4 == 0 ? -1 : frame - 1; },
    [](const void* packed, int32_t frame, uint32_t* pixels, const uint32_t* basis) {
        ++unpackedFrames;
        const auto count =
            static_cast<std::size_t>(kSide * kSide * *static_cast<const int*>(packed));
        for (std::size_t i = 0; i < count; ++i)
            pixels[i] = basis ? basis[i] + 1 : colourOf(frame);
    }};

bool lookUp(const CResourceDescription&, int32_t scale, ResourceImage& image) {
    static constexpr int kPacked[]{1, 4}; // pixels per logical one
    image.widthPixels = kSide * scale;
    image.heightPixels = kSide * scale * kFrames;
    image.packed = &kPacked[scale - 1];
    image.format = &format;
    image.frames = kFrames;
    return true;
}

class PackedPictures : public testing::Test {
protected:
    PackedPictures() {
        setResourceLookup(lookUp);
        unpackedFrames = 0;
    }
    ~PackedPictures() override { setResourceLookup(nullptr); }

    /// @return the colour that is seen
    static uint32_t draw(Canvas& canvas, CBitmap& bitmap, int32_t frame, int32_t scale = 1) {
        bitmap.draw(canvas.context(), CRect(0, 0, kSide, kSide), CPoint(0, kSide * frame));
        return canvas.at(kSide * scale - 1, kSide * scale - 1);
    }
};

using Threads = PackedPictures;

TEST_F(PackedPictures, AFrameIsUnpackedOnceAndWithWhatItBuildsOnAlone) {
    Canvas canvas(kSide, kSide), twofold(kSide, kSide, 2);
    CBitmap bitmap(CResourceDescription{kKnob});
    EXPECT_EQ(draw(canvas, bitmap, 8), colourOf(8));
    EXPECT_EQ(unpackedFrames, 1);
    EXPECT_EQ(draw(canvas, bitmap, 6), colourOf(6));
    EXPECT_EQ(unpackedFrames, 4) << "frames 4 and 5 came along";
    CBitmap other(CResourceDescription{kAnotherKnobOfThatLook});
    EXPECT_EQ(draw(canvas, other, 5), colourOf(5));
    EXPECT_EQ(unpackedFrames, 4);
    EXPECT_EQ(draw(twofold, bitmap, 5, 2), colourOf(5));
    EXPECT_EQ(unpackedFrames, 6) << "those for scale 2 are others";
}

TEST_F(PackedPictures, ARectangleShowsAllFramesThatItMeets) {
    Canvas canvas(kSide, 3 * kSide);
    CBitmap bitmap(CResourceDescription{kKnob});
    bitmap.draw(canvas.context(), CRect(0, 0, kSide, 3 * kSide), CPoint(0, 8 * kSide + 1));
    EXPECT_EQ(canvas.at(0, kSide - 2), colourOf(8));
    EXPECT_EQ(canvas.at(0, kSide - 1), colourOf(9));
    EXPECT_EQ(canvas.at(0, 3 * kSide - 1), colourOf(11));
    bitmap.draw(canvas.context(), CRect(0, 0, kSide, 3 * kSide), CPoint(0, kSide * kFrames - 1));
    EXPECT_EQ(canvas.at(0, 0), colourOf(kFrames - 1)) << "and none below the last";
}

TEST_F(PackedPictures, TheyGoWithTheLastWindowThoughBitmapsStay) {
    CBitmap bitmap(CResourceDescription{kKnob});
    {
        Canvas first(kSide, kSide);
        draw(first, bitmap, 0);
        {
            Canvas second(kSide, kSide);
            draw(second, bitmap, 0);
        }
        draw(first, bitmap, 0);
        EXPECT_EQ(unpackedFrames, 1);
    }
    Canvas later(kSide, kSide);
    EXPECT_EQ(draw(later, bitmap, 0), colourOf(0));
    EXPECT_EQ(unpackedFrames, 2);
}

TEST_F(Threads, TwoWindowsUnpackTheSameFramesAtTheSameTime) {
    constexpr int kRounds = 300;
    const auto live = [] {
        for (int round = 0; round < kRounds && !HasFailure(); ++round) {
            Canvas canvas(kSide, kSide);
            CBitmap bitmap(CResourceDescription{kKnob});
            for (int32_t frame = kFrames - 1; frame >= 0; --frame)
                ASSERT_EQ(draw(canvas, bitmap, frame), colourOf(frame));
        }
    };
    std::thread other(live);
    live();
    other.join();
}

} // namespace
} // namespace pedl::test
