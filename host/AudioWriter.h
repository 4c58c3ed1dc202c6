#pragma once

#include "foundation/text/Result.h"
#include "host/AudioFormat.h"
#include "host/EncoderTarget.h"
#include "host/SoundTags.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

struct sf_private_tag;

namespace pedl {

/// What is to be written, but for its samples.
struct SoundDescription {
    AudioFormat format;
    int sampleRateHz = 0;
    std::optional<std::int64_t> lengthFrames; ///< nothing while it is open
    std::optional<std::int64_t> mostFrames;   ///< it can become; nothing where there is no saying
    SoundTags tags;                           ///< those that the format has room for are written
};

/// A stereo audio file that appears whole or not at all; or such a file on standard output, whose
/// bytes go out as they are made.
///
/// A WAV file beyond 4 GB becomes an RF64, which is the same with room for the length. On a pipe
/// the head comes first, so it has the length that is known by then, or an open one. The same
/// samples give the same bytes, except in Ogg.
class AudioWriter {
public:
    /// @param path  a file, or "-" for standard output
    static Result<AudioWriter> create(const std::filesystem::path& path,
                                      const SoundDescription& sound);

    /// Writes interleaved stereo frames, full scale at 1.0.
    Done write(const float* frames, std::int64_t count);
    Done write(const double* frames, std::int64_t count);

    /// Whether samples beyond full scale are cut off in this format.
    [[nodiscard]] bool cutsAtFullScale() const { return format_.cutsAtFullScale(); }

    /// Whether what was written stays out of sight until the last call.
    [[nodiscard]] bool appearsWhole() const { return appearsWhole_; }

    /// The last call: completes the file and puts it in its place.
    Done commit();

private:
    struct Closer {
        void operator()(sf_private_tag* encoder) const;
    };

    explicit AudioWriter(AudioFormat format) : format_(format) {}
    void prepare(const SoundDescription& sound);
    Done releaseHead(std::optional<std::int64_t> lengthFrames);
    Done stateAfter(bool wroteAll);

    AudioFormat format_;
    std::unique_ptr<EncoderTarget>
        target_; // before the encoder: that one writes until it is closed
    std::unique_ptr<sf_private_tag, Closer> encoder_;
    std::string name_;
    bool appearsWhole_ = true;
};

} // namespace pedl
