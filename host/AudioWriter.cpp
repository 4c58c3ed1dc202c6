#include "host/AudioWriter.h"

#include "foundation/platform/StandardStream.h"
#include "host/OutputFile.h"
#include "host/SoundHead.h"
#include "host/StandardOutput.h"

#include <sndfile.h>
#include <unistd.h>

namespace pedl {

namespace {

constexpr int kChannels = 2;

/// A WAV's length field has 32 bits; some room is left for its heads.
constexpr std::int64_t kMostWavBytes = 0xFFFF'0000;

/// Vorbis quality, 0 to 1: near transparent, some 200 kbit/s.
constexpr double kVorbisQuality = 0.7;

/// Whether the length field of a WAV will do.
bool fitsWav(const SoundDescription& sound) {
    const std::int64_t frameBytes = kChannels * sound.format.bytesPerSample();
    return sound.mostFrames && *sound.mostFrames <= kMostWavBytes / frameBytes;
}

Result<std::unique_ptr<ByteSink>> sinkOf(const std::filesystem::path& path, AudioFormat format) {
    if (path != kStandardStream) {
        Result<std::unique_ptr<OutputFile>> file = OutputFile::create(path);
        if (!file.ok())
            return file.problem();
        return std::unique_ptr<ByteSink>(std::move(file.value()));
    }
    if (isatty(STDOUT_FILENO) == 1)
        return Problem{std::string(kStandardOutput) +
                       ": is a terminal; audio goes into a file or a pipe"};
    std::unique_ptr<ByteSink> output = StandardOutput::create();
    if (!output->canGoBack() && !format.canStream())
        return Problem{std::string(kStandardOutput) + ": is a pipe, and " + format.ending() +
                       " is not written without going back; .wav, .aiff, .flac and .ogg are"};
    return output;
}

} // namespace

Result<AudioWriter> AudioWriter::create(const std::filesystem::path& path,
                                        const SoundDescription& sound) {
    Result<std::unique_ptr<ByteSink>> sink = sinkOf(path, sound.format);
    if (!sink.ok())
        return sink.problem();
    AudioWriter writer(sound.format);
    writer.name_ = path == kStandardStream ? std::string(kStandardOutput) : path.string();
    writer.appearsWhole_ = path != kStandardStream;
    writer.target_ = std::make_unique<EncoderTarget>(std::move(sink.value()));

    const int container = sound.format.container();
    const bool goesBack = writer.target_->sink().canGoBack();
    if (!goesBack && (container == SF_FORMAT_WAV || container == SF_FORMAT_AIFF))
        writer.target_->holdHead();

    SF_INFO info{0, sound.sampleRateHz, kChannels, sound.format.code(), 0, 0};
    const bool canGrow = goesBack && container == SF_FORMAT_WAV && !fitsWav(sound);
    if (canGrow)
        info.format = SF_FORMAT_RF64 | (info.format & SF_FORMAT_SUBMASK);
    SF_VIRTUAL_IO access = EncoderTarget::functions();
    writer.encoder_.reset(sf_open_virtual(&access, SFM_WRITE, &info, writer.target_.get()));
    if (const Done state = writer.target_->sink().state(); !state.ok())
        return state.problem(); // a full disk shows with the first head
    if (writer.encoder_ == nullptr)
        return Problem{writer.name_ + ": cannot be written: " + sf_strerror(nullptr)};
    if (canGrow) // and is an ordinary WAV in the end if it has not grown
        sf_command(writer.encoder_.get(), SFC_RF64_AUTO_DOWNGRADE, nullptr, SF_TRUE);
    writer.prepare(sound);
    if (writer.target_->holdsHead())
        if (const Done released = writer.releaseHead(sound.lengthFrames); !released.ok())
            return released.problem();
    return writer;
}

void AudioWriter::prepare(const SoundDescription& sound) {
    SNDFILE* const encoder = encoder_.get();
    sf_command(encoder, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    // The peak chunk bears the time of writing: the same samples would give other bytes.
    sf_command(encoder, SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
    double quality = kVorbisQuality;
    sf_command(encoder, SFC_SET_VBR_ENCODING_QUALITY, &quality, sizeof quality);
    for (const auto& [tag, text] : sound.tags)
        sf_set_string(encoder, tag, text.c_str());
}

/// The encoder writes the head once more, with the tags, and behind it goes on.
Done AudioWriter::releaseHead(std::optional<std::int64_t> lengthFrames) {
    sf_command(encoder_.get(), SFC_UPDATE_HEADER_NOW, nullptr, 0);
    std::vector<std::byte> head = target_->takeHead();
    writeLengthInto(head, lengthFrames, kChannels * format_.bytesPerSample());
    target_->sink().write(head.data(), head.size());
    return target_->sink().state();
}

Done AudioWriter::write(const float* frames, std::int64_t count) {
    return stateAfter(sf_writef_float(encoder_.get(), frames, count) == count);
}

Done AudioWriter::write(const double* frames, std::int64_t count) {
    return stateAfter(sf_writef_double(encoder_.get(), frames, count) == count);
}

Done AudioWriter::stateAfter(bool wroteAll) {
    if (const Done state = target_->sink().state(); !state.ok())
        return state.problem();
    if (!wroteAll)
        return Problem{name_ + ": cannot be written: " + sf_strerror(encoder_.get())};
    return done();
}

Done AudioWriter::commit() {
    const int error = sf_close(encoder_.release()); // writes the head with the final length
    if (const Done state = target_->sink().state(); !state.ok())
        return state.problem();
    if (error != 0)
        return Problem{name_ + ": cannot be completed: " + sf_error_number(error)};
    return target_->sink().commit();
}

void AudioWriter::Closer::operator()(sf_private_tag* encoder) const {
    sf_close(encoder);
}

} // namespace pedl
