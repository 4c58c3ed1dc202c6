#include "resources/packed/StripPacker.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace pedl::skin {

namespace {

/// A frame is a change of one that is at most this much more than a frame of its own away: drawing
/// a knob for the first time unpacks three frames at most.
constexpr int kMostSteps = 3;

/// How far two pixels are apart, beyond what is tolerated.
int distance(std::uint32_t a, std::uint32_t b, const Tolerance& tolerance) {
    if (a == b)
        return 0;
    int sum = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const int difference =
            std::abs(static_cast<int>(a >> shift & 0xFFU) - static_cast<int>(b >> shift & 0xFFU));
        const int tolerated = shift == 8 ? tolerance.green : shift == 24 ? 0 : tolerance.redAndBlue;
        sum += std::max(0, difference - tolerated);
    }
    // A large difference costs hardly more than a small one.
    constexpr int kEnough = 12;
    return std::min(sum, kEnough);
}

class Packer {
public:
    explicit Packer(const StripContent& content)
        : content_(content),
          isOpaque_(std::all_of(content.pixels.begin(), content.pixels.end(),
                                [](std::uint32_t pixel) { return pixel >> 24 == 0xFF; })),
          read_(content.pixels), steps_(static_cast<std::size_t>(content.frames)) {}

    PackedStrip pack() {
        chooseBases();
        // Once to learn what the strip's bits are like, then to write them.
        PixelOdds learnt;
        for (int frame = 0; frame < content_.frames; ++frame)
            write(frame, learnt);
        PackedStrip packed;
        packed.isOpaque = isOpaque_;
        for (const BitOdds& odds : listOf(learnt))
            packed.odds.push_back(odds.stored());
        const PixelOdds start = oddsOf(packed.odds.data());
        for (int frame = 0; frame < content_.frames; ++frame) {
            PixelOdds odds = start;
            packed.frames.push_back({bases_[static_cast<std::size_t>(frame)], write(frame, odds)});
        }
        return packed;
    }

private:
    void chooseBases() {
        for (int frame = 0; frame < content_.frames; ++frame) {
            const std::optional<int> basis = nearestBefore(frame);
            bases_.push_back(basis.value_or(-1));
            if (basis)
                steps_[static_cast<std::size_t>(frame)] =
                    steps_[static_cast<std::size_t>(*basis)] + 1;
        }
    }

    /// The frame before `frame` that is most like it; none when it is like none of them.
    [[nodiscard]] std::optional<int> nearestBefore(int frame) const {
        std::optional<int> nearest;
        // Half of all pixels changed: neighbours say more of a pixel than such a basis.
        std::size_t least = content_.framePixels() * 2;
        for (int other = 0; other < frame; ++other) {
            if (steps_[static_cast<std::size_t>(other)] == kMostSteps)
                continue;
            const std::size_t sum = distanceOf(frame, other, least);
            if (sum < least) {
                least = sum;
                nearest = other;
            }
        }
        return nearest;
    }

    [[nodiscard]] std::size_t distanceOf(int frame, int other, std::size_t limit) const {
        const std::uint32_t *a = content_.frame(frame), *b = content_.frame(other);
        std::size_t sum = 0;
        for (std::size_t i = 0; i < content_.framePixels() && sum < limit; ++i)
            sum += static_cast<std::size_t>(distance(a[i], b[i], content_.tolerance));
        return sum;
    }

    /// Of what a reader will have as its basis; `odds` learn.
    std::vector<std::uint8_t> write(int frame, PixelOdds& odds) {
        const std::size_t size = content_.framePixels();
        std::uint32_t* const pixels = read_.data() + static_cast<std::size_t>(frame) * size;
        std::copy_n(content_.frame(frame), size, pixels);
        const int basis = bases_[static_cast<std::size_t>(frame)];
        const std::uint32_t* const basisPixels =
            basis < 0 ? nullptr : read_.data() + static_cast<std::size_t>(basis) * size;
        BitWriter writer;
        PixelCoder(writer, odds, {pixels, content_.width, content_.height, content_.width},
                   basisPixels, isOpaque_)
            .codeFrame(content_.tolerance);
        return writer.finish();
    }

    const StripContent& content_;
    const bool isOpaque_;
    std::vector<std::uint32_t> read_; // what a reader gets
    std::vector<int> bases_;
    std::vector<int> steps_; // from a frame that stands alone
};

} // namespace

bool StripContent::looksLike(const StripContent& other) const {
    // Blurred at another place of its frame, the same knob rounds otherwise in a pixel of 50 000.
    const auto isAStepApartAtMost = [](std::uint32_t a, std::uint32_t b) {
        for (int shift = 0; shift < 24; shift += 8)
            if (std::abs(static_cast<int>(a >> shift & 0xFFU) -
                         static_cast<int>(b >> shift & 0xFFU)) > 1)
                return false;
        return a >> 24 == b >> 24;
    };
    return width == other.width && height == other.height && frames == other.frames &&
           std::equal(pixels.begin(), pixels.end(), other.pixels.begin(), isAStepApartAtMost);
}

PackedStrip packStrip(const StripContent& content) {
    return Packer(content).pack();
}

} // namespace pedl::skin
