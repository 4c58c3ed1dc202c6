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

/// Reads at most the first `limitSeconds` of any file that libsndfile knows. Mono becomes two
/// equal channels; of more than two channels the first two are taken.
///
/// Throws std::runtime_error with the path and the reason.
StereoSound readSound(const std::string& path, double limitSeconds);

/// Writes a 32-bit float WAV file. Throws std::runtime_error with the path and the reason.
void writeSound(const std::string& path, const StereoSound& sound);

} // namespace pedl::demo
