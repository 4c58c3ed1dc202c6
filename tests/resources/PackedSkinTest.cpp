// What comes out of a packed block is what went in, as far as its tolerance says.

#include "resources/packed/PackedSkin.h"
#include "resources/packed/SkinPacker.h"

#include <cstdlib>
#include <random>
#include <vector>

namespace pedl::skin {
namespace {

constexpr int kFrames = 9;

/// A frame of 40 by 37 with a lit disc on a ramp of transparency, grain over it, and a square that
/// moves from frame to frame.
DrawnStrip knob(std::uint32_t id, unsigned seed = 1) {
    DrawnStrip strip{{id}, 1, 40, 37, kFrames, {}, {}};
    std::minstd_rand grain(seed);
    for (int frame = 0; frame < kFrames; ++frame)
        for (int y = 0; y < strip.height; ++y)
            for (int x = 0; x < strip.width; ++x) {
                const int square = (x - 20) * (x - 20) + (y - 18) * (y - 18);
                const auto alpha = static_cast<std::uint32_t>(square < 200   ? 255
                                                              : square < 290 ? 290 - square
                                                                             : 0);
                const bool isMarked = x / 4 == frame + 1 && y / 4 == 4;
                const std::uint32_t grey = isMarked
                                               ? 255
                                               : 100 + static_cast<std::uint32_t>(grain() % 8) +
                                                     static_cast<std::uint32_t>(x);
                const auto channel = [&](std::uint32_t value) { return value * alpha / 255; };
                strip.pixels.push_back(alpha << 24 | channel(grey) << 16 | channel(grey / 2) << 8 |
                                       channel(255 - grey));
            }
    return strip;
}

/// Nothing but noise of premultiplied colours, in which no two neighbours are alike.
DrawnStrip noise(std::uint32_t id) {
    DrawnStrip strip{{id}, 2, 31, 17, 3, {}, {}};
    std::minstd_rand random(7);
    for (int i = 0; i < 31 * 17 * 3; ++i) {
        const auto alpha = static_cast<std::uint32_t>(random() % 256);
        std::uint32_t pixel = alpha << 24;
        for (int shift = 0; shift < 24; shift += 8)
            pixel |= static_cast<std::uint32_t>(random() % (alpha + 1)) << shift;
        strip.pixels.push_back(pixel);
    }
    return strip;
}

DrawnStrip plain(std::uint32_t id, std::uint32_t pixel) {
    return {{id}, 1, 5, 4, 6, {}, std::vector<std::uint32_t>(5 * 4 * 6, pixel)};
}

/// Reads all frames, the last one first, as a window may ask for them.
std::vector<std::uint32_t> unpacked(const PackedSkin& skin, std::uint32_t id, int scale) {
    const PictureRow& picture = *skin.find(id, scale);
    const std::size_t size = std::size_t{picture.width} * picture.height;
    std::vector<std::uint32_t> pixels(size * picture.frames);
    std::vector<bool> isThere(picture.frames);
    const std::function<void(int)> read = [&](int frame) {
        if (isThere[static_cast<std::size_t>(frame)])
            return;
        const int basis = skin.basisOf(picture, frame);
        if (basis >= 0)
            read(basis);
        const auto at = [&](int index) {
            return pixels.data() + size * static_cast<std::size_t>(index);
        };
        skin.unpack(picture, frame, at(frame), basis < 0 ? nullptr : at(basis));
        isThere[static_cast<std::size_t>(frame)] = true;
    };
    for (int frame = picture.frames - 1; frame >= 0; --frame)
        read(frame);
    return pixels;
}

/// The largest difference of a channel.
int furthest(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b, int shift) {
    int most = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        most = std::max(most, std::abs(static_cast<int>(a[i] >> shift & 0xFF) -
                                       static_cast<int>(b[i] >> shift & 0xFF)));
    return most;
}

TEST(PackedSkin, EveryFrameComesBackAsItWasDrawnInAnyOrder) {
    const std::vector<DrawnStrip> strips{plain(5, 0),          knob(3),  noise(4),
                                         plain(9, 0xFF102030), noise(1), knob(8, 2)};
    const std::vector<std::uint8_t> block = packSkin(strips, 2);
    const PackedSkin skin(std::as_bytes(std::span(block)));
    for (const DrawnStrip& strip : strips)
        EXPECT_EQ(unpacked(skin, strip.ids.front(), strip.scale), strip.pixels)
            << strip.ids.front();
    EXPECT_FALSE(skin.find(3, 2));
    EXPECT_FALSE(skin.find(10, 1));
    EXPECT_EQ(packSkin(strips, 1), block) << "the number of threads changes nothing";
}

TEST(PackedSkin, ColoursStayWithinTheirToleranceAndTransparencyIsKept) {
    for (const Tolerance tolerance : {Tolerance{0, 1}, Tolerance{1, 2}, Tolerance{3, 5}})
        for (DrawnStrip strip : {knob(3), noise(3)}) {
            strip.tolerance = tolerance;
            const std::vector<std::uint8_t> block = packSkin({strip}, 1);
            const auto pixels =
                unpacked(PackedSkin(std::as_bytes(std::span(block))), 3, strip.scale);
            EXPECT_EQ(furthest(pixels, strip.pixels, 24), 0);
            EXPECT_LE(furthest(pixels, strip.pixels, 8), tolerance.green);
            EXPECT_LE(furthest(pixels, strip.pixels, 0), tolerance.redAndBlue);
            EXPECT_LE(furthest(pixels, strip.pixels, 16), tolerance.redAndBlue);
        }
}

TEST(PackedSkin, TolerancesTintNoMetal) {
    DrawnStrip steel{{1}, 1, 64, 64, 1, {1, 2}, {}};
    std::minstd_rand grain(3);
    for (unsigned i = 0; i < 64 * 64; ++i) {
        const auto green = static_cast<std::uint32_t>(100 + i % 64 + grain() % 3);
        const auto warmth = static_cast<std::uint32_t>(3 + grain() % 2);
        steel.pixels.push_back(0xFF000000 | (green + warmth) << 16 | green << 8 | (green - warmth));
    }
    const std::vector<std::uint8_t> block = packSkin({steel}, 1);
    const auto pixels = unpacked(PackedSkin(std::as_bytes(std::span(block))), 1, 1);
    for (const int shift : {0, 8, 16}) {
        double sum = 0;
        for (std::size_t i = 0; i < pixels.size(); ++i)
            sum += static_cast<int>(pixels[i] >> shift & 0xFF) -
                   static_cast<int>(steel.pixels[i] >> shift & 0xFF);
        EXPECT_NEAR(sum / static_cast<double>(pixels.size()), 0, 0.2) << "of the bits " << shift;
    }
}

TEST(PackedSkin, WhatLooksTheSameIsStoredOnceWhereverItStands) {
    DrawnStrip moved = knob(2);
    moved.height += 3;
    for (int frame = kFrames - 1; frame >= 0; --frame)
        moved.pixels.insert(moved.pixels.begin() + (frame * 37) * 40, 3 * 40, 0U);
    const std::size_t alone = packSkin({knob(1)}, 1).size();
    const std::vector<std::uint8_t> block = packSkin({knob(1), moved, knob(3)}, 1);
    EXPECT_LT(block.size(), alone + 100);
    const PackedSkin skin(std::as_bytes(std::span(block)));
    EXPECT_EQ(unpacked(skin, 2, 1), moved.pixels);
    EXPECT_EQ(&skin.firstLike(*skin.find(3, 1)), skin.find(1, 1)) << "unpacked once, too";
    EXPECT_EQ(&skin.firstLike(*skin.find(2, 1)), skin.find(2, 1));
}

TEST(PackedSkin, AMovedMarkCostsLittle) {
    DrawnStrip still = knob(1);
    still.frames = 1;
    still.pixels.resize(40 * 37);
    // Grain that stays where it is, as on a knob that turns below it.
    DrawnStrip turning = still;
    turning.frames = kFrames;
    for (int frame = 1; frame < kFrames; ++frame)
        for (int i = 0; i < 40 * 37; ++i)
            turning.pixels.push_back(i / 40 / 4 == 4 && i % 40 / 4 == frame + 1
                                         ? 0xFFFFFFFF
                                         : still.pixels[static_cast<std::size_t>(i)]);
    EXPECT_LT(packSkin({turning}, 1).size(), packSkin({still}, 1).size() * 3 / 2);
}

} // namespace
} // namespace pedl::skin
