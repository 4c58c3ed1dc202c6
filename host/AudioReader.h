#pragma once

#include "foundation/text/Result.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

struct sf_private_tag;

namespace pedl {

/// An audio file read from front to end: WAV, FLAC, AIFF, Ogg and whatever else libsndfile knows.
///
/// Only what the effect can be given is opened: one or two channels, 44100 to 192000 Hz.
class AudioReader {
public:
    static constexpr int kLowestRateHz = 44100;
    static constexpr int kHighestRateHz = 192000;

    static Result<AudioReader> open(const std::filesystem::path& path);

    [[nodiscard]] int channels() const { return channels_; }
    [[nodiscard]] int sampleRateHz() const { return sampleRateHz_; }
    /// As the file's head says and its size allows; a damaged file ends sooner.
    [[nodiscard]] std::int64_t lengthFrames() const { return lengthFrames_; }

    /// Reads interleaved frames, full scale at 1.0. Fewer than asked come at the end only.
    std::int64_t read(float* frames, std::int64_t most);
    std::int64_t read(double* frames, std::int64_t most);

    /// How many bytes the head promises and the file does not have; 0 where the head leaves it
    /// open.
    [[nodiscard]] std::int64_t missingBytes() const;

    /// Whether all that was asked for could be read; a damaged file says so only on reading.
    [[nodiscard]] Done state() const;

private:
    struct Closer {
        void operator()(sf_private_tag* file) const;
    };
    using Handle = std::unique_ptr<sf_private_tag, Closer>;

    AudioReader() = default;

    Handle file_;
    std::string name_;
    int channels_ = 0;
    int sampleRateHz_ = 0;
    std::int64_t lengthFrames_ = 0;
};

} // namespace pedl
