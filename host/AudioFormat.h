#pragma once

#include "foundation/text/Result.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace pedl {

/// How a sound file that is written holds its sound: the container, and the form of a sample.
///
/// WAV, AIFF, CAF, W64 and RF64 hold 32-bit floats, FLAC 24-bit integers, Ogg is Vorbis.
class AudioFormat {
public:
    /// WAV.
    AudioFormat();

    /// The one that the name's ending chooses, WAV without one; else a line that names the endings.
    static Result<AudioFormat> ofFile(const std::filesystem::path& path);

    /// The one with this ending, with or without its dot, in upper or lower case.
    static Result<AudioFormat> named(std::string_view name);

    /// The same with another form of samples.
    /// @param bits  "16" or "24", rounded to integers, or "32f", floats
    [[nodiscard]] Result<AudioFormat> withBits(std::string_view bits) const;

    /// libsndfile's.
    [[nodiscard]] int code() const { return code_; }
    [[nodiscard]] std::string ending() const { return std::string(ending_); }
    [[nodiscard]] int container() const;
    /// Of one channel; 0 where that is no fixed number.
    [[nodiscard]] int bytesPerSample() const;
    /// Whether samples beyond full scale are cut off.
    [[nodiscard]] bool cutsAtFullScale() const;
    /// Whether it can be written from front to end without going back.
    [[nodiscard]] bool canStream() const;

private:
    AudioFormat(std::string_view ending, int code) : ending_(ending), code_(code) {}

    std::string_view ending_; // with its dot
    int code_;
};

} // namespace pedl
