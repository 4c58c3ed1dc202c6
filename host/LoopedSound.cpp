#include "host/LoopedSound.h"

#include "host/AudioReader.h"

namespace pedl {

Result<LoopedSound> LoopedSound::load(const std::filesystem::path& path) {
    Result<AudioReader> opened = AudioReader::open(path);
    if (!opened.ok())
        return opened.problem();
    AudioReader& reader = opened.value();
    LoopedSound sound;
    sound.channels_ = reader.channels();
    sound.sampleRateHz_ = reader.sampleRateHz();
    // Piece by piece: the length that a damaged head promises may be any number.
    constexpr std::int64_t kPieceFrames = 65536;
    const auto channels = static_cast<std::size_t>(sound.channels_);
    for (std::int64_t read = kPieceFrames; read == kPieceFrames;) {
        const auto whole = static_cast<std::size_t>(sound.lengthFrames_) * channels;
        sound.frames_.resize(whole + static_cast<std::size_t>(kPieceFrames) * channels);
        read = reader.read(sound.frames_.data() + whole, kPieceFrames);
        sound.lengthFrames_ += read;
    }
    sound.frames_.resize(static_cast<std::size_t>(sound.lengthFrames_) * channels);
    if (const Done read = reader.state(); !read.ok())
        return read.problem();
    if (sound.lengthFrames_ == 0)
        return Problem{path.string() + ": holds no audio"};
    return sound;
}

bool LoopedSound::advance(std::int64_t frames) {
    place_ += frames;
    if (place_ < lengthFrames_)
        return false;
    place_ = 0;
    return true;
}

} // namespace pedl
