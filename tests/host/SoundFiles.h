#pragma once

#include <filesystem>
#include <functional>
#include <vector>

namespace pedl {

struct Sound {
    int channels = 0;
    int sampleRateHz = 0;
    int format = 0;              // libsndfile's
    std::vector<double> samples; // interleaved
    [[nodiscard]] std::size_t frames() const {
        return samples.size() / static_cast<std::size_t>(channels);
    }
};

/// Writes 32-bit float WAV whose samples are `value(frame, channel)`.
void writeSound(const std::filesystem::path& path, int channels, int sampleRateHz, long frames,
                const std::function<double(long frame, int channel)>& value);

[[nodiscard]] Sound readSound(const std::filesystem::path& path);

} // namespace pedl
