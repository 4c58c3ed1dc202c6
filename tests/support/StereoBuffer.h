#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

namespace pedl::test {

/// Two channels of samples in the shape that the processing calls want.
template <typename Sample> struct StereoBuffer {
    explicit StereoBuffer(std::size_t frames) : left(frames), right(frames) {}

    /// Where the calls find both channels, `firstFrame` frames in.
    [[nodiscard]] std::array<Sample*, 2> from(std::size_t firstFrame) {
        return {left.data() + firstFrame, right.data() + firstFrame};
    }

    [[nodiscard]] bool isFinite() const {
        const auto finite = [](Sample sample) { return std::isfinite(sample); };
        return std::all_of(left.begin(), left.end(), finite) &&
               std::all_of(right.begin(), right.end(), finite);
    }

    bool operator==(const StereoBuffer&) const = default;

    std::vector<Sample> left;
    std::vector<Sample> right;
};

/// White noise between -level and level, the same for the same seed.
template <typename Sample>
StereoBuffer<Sample> noise(std::size_t frames, unsigned seed, double level = 0.5) {
    std::mt19937 random(seed);
    StereoBuffer<Sample> buffer(frames);
    for (std::size_t frame = 0; frame < frames; ++frame)
        for (std::vector<Sample>* channel : {&buffer.left, &buffer.right})
            (*channel)[frame] = static_cast<Sample>(
                level * (2.0 * std::generate_canonical<double, 32>(random) - 1.0));
    return buffer;
}

} // namespace pedl::test
