#pragma once

#include "foundation/text/Result.h"
#include "host/OutputFile.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

struct sf_private_tag;

namespace pedl {

/// A stereo audio file that appears whole or not at all.
///
/// The name's ending chooses the format: WAV (also without an ending), AIFF, CAF and W64 hold
/// 32-bit floats, FLAC 24-bit integers, Ogg is Vorbis. A WAV beyond 4 GB becomes an RF64, which is
/// the same with room for the length. The same samples give the same bytes, except in Ogg.
class AudioWriter {
public:
    /// Whether `path` has an ending that can be written; otherwise a line that names those.
    static Done checkName(const std::filesystem::path& path);

    /// @param lengthFrames  what will be written at most, to choose the container
    static Result<AudioWriter> create(const std::filesystem::path& path, int sampleRateHz,
                                      std::int64_t lengthFrames);

    /// Writes interleaved stereo frames, full scale at 1.0.
    Done write(const float* frames, std::int64_t count);
    Done write(const double* frames, std::int64_t count);

    /// Whether samples beyond full scale are cut off in this format.
    [[nodiscard]] bool cutsAtFullScale() const { return cutsAtFullScale_; }

    /// The last call: completes the file and puts it in its place.
    Done commit();

private:
    struct Closer {
        void operator()(sf_private_tag* encoder) const;
    };

    AudioWriter() = default;
    Done stateAfter(bool wroteAll);

    std::unique_ptr<OutputFile> file_; // before the encoder: that one writes until it is closed
    std::unique_ptr<sf_private_tag, Closer> encoder_;
    std::string name_;
    bool cutsAtFullScale_ = false;
};

} // namespace pedl
