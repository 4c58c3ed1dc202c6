#pragma once

#include "foundation/text/Result.h"
#include "host/SoundTags.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

struct sf_private_tag;

namespace pedl {

/// An audio file read from front to end: WAV, FLAC, AIFF, Ogg and whatever else libsndfile knows.
/// Standard input is read as it comes; of what arrives through a pipe the library knows WAV and
/// AIFF.
///
/// Only what the effect can be given is opened: one or two channels, 44100 to 192000 Hz.
class AudioReader {
public:
    static constexpr int kLowestRateHz = 44100;
    static constexpr int kHighestRateHz = 192000;

    /// @param path  a file, or "-" for standard input
    static Result<AudioReader> open(const std::filesystem::path& path);

    /// What messages call it: its path, or "standard input".
    [[nodiscard]] const std::string& name() const { return name_; }

    [[nodiscard]] int channels() const { return channels_; }
    [[nodiscard]] int sampleRateHz() const { return sampleRateHz_; }
    /// As the file's head says and its size allows; a damaged file ends sooner. Nothing where a
    /// pipe's head leaves it open.
    [[nodiscard]] std::optional<std::int64_t> lengthFrames() const { return lengthFrames_; }
    [[nodiscard]] SoundTags tags() const;

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
    static Result<AudioReader> read(int descriptor, bool isOurs, std::string name);

    Handle file_;
    std::string name_;
    int channels_ = 0;
    int sampleRateHz_ = 0;
    std::optional<std::int64_t> lengthFrames_;
};

} // namespace pedl
