#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace pedl::demo {

/// A whole sound in memory, full scale at 1.0. Both channels have the same length.
struct StereoSound {
    int sampleRateHz = 48000;
    std::vector<float> left;
    std::vector<float> right;

    [[nodiscard]] std::size_t lengthFrames() const { return left.size(); }
    [[nodiscard]] double lengthSeconds() const {
        return static_cast<double>(lengthFrames()) / sampleRateHz;
    }
};

/// Reads at most the first `limitSeconds` of any file that libsndfile knows, of one channel, which
/// becomes two equal ones, or of two.
///
/// Throws std::runtime_error with the path and the reason.
StereoSound readSound(const std::string& path, double limitSeconds);

enum class WavFormat {
    Float, ///< 32 bits: keeps what is beyond full scale
    Short  ///< 16 bits: half the size; what is beyond full scale is cut off
};

/// Writes a WAV file. Throws std::runtime_error with the path and the reason.
void writeSound(const std::string& path, const StereoSound& sound,
                WavFormat format = WavFormat::Float);

} // namespace pedl::demo
