#pragma once

#include "foundation/text/Result.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace pedl {

/// A sound file in memory that begins anew at its end, so that a thread in real time reads no disk.
class LoopedSound {
public:
    static Result<LoopedSound> load(const std::filesystem::path& path);

    [[nodiscard]] int channels() const { return channels_; }
    [[nodiscard]] int sampleRateHz() const { return sampleRateHz_; }

    /// The frames, interleaved, from the place where the loop stands.
    [[nodiscard]] const float* here() const { return frames_.data() + place_ * channels_; }
    /// How many are left before the end, at least one.
    [[nodiscard]] std::int64_t framesLeft() const { return lengthFrames_ - place_; }
    /// At most as many as are left.
    /// @return whether the loop begins anew
    bool advance(std::int64_t frames);

private:
    std::vector<float> frames_;
    std::int64_t lengthFrames_ = 0;
    std::int64_t place_ = 0;
    int channels_ = 0;
    int sampleRateHz_ = 0;
};

} // namespace pedl
