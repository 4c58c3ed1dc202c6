#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

#include "resources/packed/RangeCoder.h"

namespace pedl::skin {

/// A frame's pixels: premultiplied ARGB words, rows `stride` words apart.
struct FramePixels {
    std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    int stride = 0;
};

/// What a picture's colours may be off by, in steps of 255: zero keeps them. The grain of paint and
/// the dither of shades cost more than all that one sees; a step less of it in red and blue, which
/// the eye resolves worst, halves a picture.
struct Tolerance {
    int green = 0;
    int redAndBlue = 0;
};

/// The odds of all kinds of bits of a frame. A kind is a plane and how wild its neighbourhood is.
struct PixelOdds {
    static constexpr std::size_t kPlanes = 4; // green, blue less green, red less green, alpha
    static constexpr std::size_t kWildness = 6;
    static constexpr std::size_t kSteps = 14; // of a difference that have a bit each

    struct Plane {
        std::array<BitOdds, kWildness> isZero;
        std::array<BitOdds, 3> isNegative; // by the sign of the left one
        std::array<std::array<BitOdds, kSteps>, kWildness> isLarger;
        std::array<BitOdds, 9> size; // of what is larger than all of them
    };

    std::array<BitOdds, 8> isAsForetold; // by three neighbours that were or were not
    std::array<Plane, kPlanes> planes;
};

constexpr std::size_t kNumOdds = sizeof(PixelOdds) / sizeof(BitOdds);

/// All of them in the order in which they are stored.
inline std::array<BitOdds, kNumOdds> listOf(const PixelOdds& odds) {
    return std::bit_cast<std::array<BitOdds, kNumOdds>>(odds);
}

/// From a stored byte each.
inline PixelOdds oddsOf(const std::uint8_t* stored) {
    std::array<BitOdds, kNumOdds> list;
    for (BitOdds& odds : list)
        odds.restore(*stored++);
    return std::bit_cast<PixelOdds>(list);
}

/// Codes frames, in both directions by the same steps.
///
/// Every pixel is foretold, from its neighbours or from the same place of another frame, its basis;
/// what is coded is whether that is right and else by how much not. Blue and red are foretold as
/// their differences from green, since grain and light move all three alike.
template <typename Coder> class PixelCoder {
public:
    /// @param basis  the pixels of another frame of the same size and stride, or none
    PixelCoder(Coder& coder, PixelOdds& odds, const FramePixels& frame, const std::uint32_t* basis,
               bool isOpaque)
        : coder_(coder), odds_(odds), frame_(frame), basis_(basis), isOpaque_(isOpaque),
          above_(static_cast<std::size_t>(frame.width) + 2), current_(above_.size()) {}

    /// Writing: the frame becomes what a reader gets of it.
    void codeFrame(const Tolerance& tolerance) {
        greenStep_ = 2 * tolerance.green + 1;
        colourStep_ = 2 * tolerance.redAndBlue + 1;
        for (int y = 0; y < frame_.height; ++y) {
            const std::ptrdiff_t row = static_cast<std::ptrdiff_t>(y) * frame_.stride;
            if (basis_)
                codeRow<true>(y, frame_.pixels + row, basis_ + row);
            else
                codeRow<false>(y, frame_.pixels + row, nullptr);
            std::swap(above_, current_);
        }
    }

private:
    using Planes = std::array<int, PixelOdds::kPlanes>;
    enum Plane { kGreen, kBlue, kRed, kAlpha };

    /// What is known of a pixel. The outer ones of a row stand for what is beyond the frame.
    struct Known {
        Planes planes{};
        Planes difference{}; // from what was foretold, in steps
        bool isAsForetold = true;
    };

    static Planes planesOf(std::uint32_t pixel) {
        const auto channel = [pixel](int shift) {
            return static_cast<int>(pixel >> shift & 0xFFU);
        };
        const int green = channel(8);
        return {green, channel(0) - green, channel(16) - green, channel(24)};
    }

    static std::uint32_t pixelOf(const Planes& planes) {
        const auto byte = [](int value) { return static_cast<std::uint32_t>(value); };
        return byte(planes[kAlpha]) << 24 | byte(planes[kRed] + planes[kGreen]) << 16 |
               byte(planes[kGreen]) << 8 | byte(planes[kBlue] + planes[kGreen]);
    }

    /// Colours are never above the alpha that they are multiplied by.
    static void keepInRange(Planes& planes) {
        const int alpha = planes[kAlpha];
        const int green = planes[kGreen] = std::clamp(planes[kGreen], 0, alpha);
        planes[kBlue] = std::clamp(planes[kBlue], -green, alpha - green);
        planes[kRed] = std::clamp(planes[kRed], -green, alpha - green);
    }

    /// The neighbours' slope continued, unless they show an edge. For light, which has slopes; of
    /// colours, which seldom change, dither is best smoothed away.
    static int continued(int left, int up, int upLeft) {
        return std::clamp(left + up - upLeft, std::min(left, up), std::max(left, up));
    }

    /// @param half  what a half is rounded up by, 0 or 1: by turns, or all greys would drift
    /// towards
    ///              purple or green as far as their tolerance lets them
    [[nodiscard]] Planes foretell(const Planes& left, const Planes& up, const Planes& upLeft,
                                  int half) const {
        const auto continuedAt = [&](Plane plane) {
            return continued(left[plane], up[plane], upLeft[plane]);
        };
        const auto meanAt = [&](Plane plane) { return (left[plane] + up[plane] + half) >> 1; };
        Planes planes;
        planes[kGreen] = continuedAt(kGreen);
        planes[kBlue] = meanAt(kBlue);
        planes[kRed] = meanAt(kRed);
        planes[kAlpha] = isOpaque_ ? 255 : continuedAt(kAlpha);
        keepInRange(planes);
        return planes;
    }

    template <bool kHasBasis>
    void codeRow(int y, std::uint32_t* row, const std::uint32_t* basisRow) {
        if constexpr (!kHasBasis) {
            // Beyond the left edge it goes on as it began one row higher.
            current_[0].planes = y > 0 ? above_[1].planes : Planes{0, 0, 0, isOpaque_ ? 255 : 0};
            if (y == 0)
                for (Known& known : above_)
                    known.planes = current_[0].planes;
            above_[0].planes = current_[0].planes;
        }
        // A copy that the row's bits alone change stays in registers.
        Coder coder = std::move(coder_);
        for (int x = 0; x < frame_.width; ++x) {
            const auto place = static_cast<std::size_t>(x) + 1;
            const Known &left = current_[place - 1], &up = above_[place];
            Planes foretold;
            if constexpr (kHasBasis) {
                foretold = planesOf(basisRow[x]);
            } else {
                foretold = foretell(left.planes, up.planes, above_[place - 1].planes, (x + y) & 1);
            }
            codePixel(coder, row[x], foretold, left, up, above_[place + 1], current_[place]);
        }
        coder_ = std::move(coder);
    }

    [[gnu::always_inline]] void codePixel(Coder& coder, std::uint32_t& pixel,
                                          const Planes& foretold, const Known& left,
                                          const Known& up, const Known& upRight, Known& known) {
        Planes wanted{};
        bool isAsForetold = true;
        if constexpr (Coder::kWrites) {
            wanted = planesOf(pixel);
            isAsForetold = isNear(wanted, foretold);
        }
        const std::size_t kind = (left.isAsForetold ? 1U : 0U) | (up.isAsForetold ? 2U : 0U) |
                                 (upRight.isAsForetold ? 4U : 0U);
        known.isAsForetold = coder.code(odds_.isAsForetold[kind], !isAsForetold) == false;
        known.planes = foretold;
        known.difference = {};
        if (!known.isAsForetold)
            codePlanes(coder, wanted, left, up, known);
        pixel = pixelOf(known.planes);
    }

    [[gnu::always_inline]] void codePlanes(Coder& coder, const Planes& wanted, const Known& left,
                                           const Known& up, Known& known) {
        Planes& planes = known.planes;
        const auto code = [&](Plane plane, int step) __attribute__((always_inline)) {
            int difference = 0;
            if constexpr (Coder::kWrites)
                difference = stepsOf(step, wantedOf(plane, wanted, planes) - planes[plane]);
            difference = codeDifference(coder, odds_.planes[plane], difference,
                                        left.difference[plane], up.difference[plane]);
            known.difference[plane] = difference;
            planes[plane] += difference * step;
        };
        if (!isOpaque_)
            code(kAlpha, 1);
        code(kGreen, greenStep_);
        planes[kGreen] = std::clamp(planes[kGreen], 0, planes[kAlpha]);
        code(kBlue, colourStep_);
        code(kRed, colourStep_);
        keepInRange(planes);
    }

    /// The difference from green that gives the wanted colour beside the green there is.
    static int wantedOf(Plane plane, const Planes& wanted, const Planes& planes) {
        const bool isColour = plane == kBlue || plane == kRed;
        return isColour ? wanted[plane] + wanted[kGreen] - planes[kGreen] : wanted[plane];
    }

    static int stepsOf(int step, int difference) {
        const int size = (std::abs(difference) + step / 2) / step;
        return difference < 0 ? -size : size;
    }

    [[nodiscard]] bool isNear(const Planes& wanted, const Planes& foretold) const {
        const auto isZero = [&](Plane plane, int step) {
            return stepsOf(step, wantedOf(plane, wanted, foretold) - foretold[plane]) == 0;
        };
        return isZero(kAlpha, 1) && isZero(kGreen, greenStep_) && isZero(kBlue, colourStep_) &&
               isZero(kRed, colourStep_);
    }

    [[gnu::always_inline]] int codeDifference(Coder& coder, PixelOdds::Plane& odds, int difference,
                                              int left, int up) {
        static constexpr std::array<std::uint8_t, 10> kWildnessOf{0, 1, 2, 2, 3, 3, 3, 4, 4, 5};
        const std::size_t sum =
            static_cast<std::size_t>(std::abs(left)) + static_cast<std::size_t>(std::abs(up));
        const std::size_t wildness = kWildnessOf[std::min(sum, kWildnessOf.size() - 1)];
        if (!coder.code(odds.isZero[wildness], difference != 0))
            return 0;
        const std::size_t side = left == 0 ? 0 : left < 0 ? 1 : 2;
        const bool isNegative = coder.code(odds.isNegative[side], difference < 0);
        const int wantedSize = std::abs(difference);
        int size = 1;
        for (BitOdds& isLarger : odds.isLarger[wildness]) {
            if (!coder.code(isLarger, wantedSize > size))
                return isNegative ? -size : size;
            ++size;
        }
        size += codeRest(coder, odds, wantedSize - size);
        return isNegative ? -size : size;
    }

    /// A rare large one, bit by bit.
    [[gnu::always_inline]] int codeRest(Coder& coder, PixelOdds::Plane& odds, int rest) {
        int read = 0;
        for (std::size_t bit = 0; bit < odds.size.size(); ++bit)
            read |= (coder.code(odds.size[bit], (rest >> bit & 1) != 0) ? 1 : 0) << bit;
        return read;
    }

    Coder& coder_;
    PixelOdds& odds_;
    FramePixels frame_;
    const std::uint32_t* basis_;
    bool isOpaque_;
    int greenStep_ = 1;
    int colourStep_ = 1;
    std::vector<Known> above_;
    std::vector<Known> current_;
};

} // namespace pedl::skin
