#include "host/AudioWriter.h"

#include "foundation/text/NameMatch.h"

#include <array>
#include <sndfile.h>
#include <string_view>

namespace pedl {

namespace {

struct Format {
    std::string_view ending;
    int code; // libsndfile's
};

// clang-format off
constexpr std::array<Format, 9> kFormats{{
    {".wav",  SF_FORMAT_WAV  | SF_FORMAT_FLOAT},
    {".flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
    {".aiff", SF_FORMAT_AIFF | SF_FORMAT_FLOAT},
    {".aif",  SF_FORMAT_AIFF | SF_FORMAT_FLOAT},
    {".ogg",  SF_FORMAT_OGG  | SF_FORMAT_VORBIS},
    {".oga",  SF_FORMAT_OGG  | SF_FORMAT_VORBIS},
    {".caf",  SF_FORMAT_CAF  | SF_FORMAT_FLOAT},
    {".w64",  SF_FORMAT_W64  | SF_FORMAT_FLOAT},
    {".rf64", SF_FORMAT_RF64 | SF_FORMAT_FLOAT},
}};
// clang-format on

constexpr int kChannels = 2;
constexpr std::int64_t kBytesPerFrame = kChannels * sizeof(float);

/// A WAV's length field has 32 bits; some room is left for its heads.
constexpr std::int64_t kMostWavBytes = 0xFFFF'0000;

/// Vorbis quality, 0 to 1: near transparent, some 200 kbit/s.
constexpr double kVorbisQuality = 0.7;

const Format* formatOf(const std::filesystem::path& path) {
    const std::string ending = lowerCase(path.extension().string());
    if (ending.empty())
        return &kFormats.front();
    for (const Format& format : kFormats)
        if (format.ending == ending)
            return &format;
    return nullptr;
}

OutputFile& fileOf(void* file) {
    return *static_cast<OutputFile*>(file);
}

sf_count_t sizeOf(void* file) {
    return fileOf(file).sizeBytes();
}

sf_count_t seekIn(sf_count_t offset, int whence, void* file) {
    const sf_count_t start = whence == SEEK_CUR   ? fileOf(file).placeBytes()
                             : whence == SEEK_END ? fileOf(file).sizeBytes()
                                                  : 0;
    fileOf(file).seek(start + offset);
    return start + offset;
}

sf_count_t readFrom(void* /*buffer*/, sf_count_t /*bytes*/, void* /*file*/) {
    return 0; // write only
}

sf_count_t writeTo(const void* data, sf_count_t bytes, void* file) {
    return static_cast<sf_count_t>(fileOf(file).write(data, static_cast<std::size_t>(bytes)));
}

sf_count_t placeIn(void* file) {
    return fileOf(file).placeBytes();
}

} // namespace

Done AudioWriter::checkName(const std::filesystem::path& path) {
    if (formatOf(path) != nullptr)
        return done();
    std::string endings;
    for (const Format& format : kFormats)
        endings += (endings.empty() ? "" : ", ") + std::string(format.ending);
    return Problem{path.string() + ": audio with the ending " + path.extension().string() +
                   " cannot be written; there are " + endings};
}

Result<AudioWriter> AudioWriter::create(const std::filesystem::path& path, int sampleRateHz,
                                        std::int64_t lengthFrames) {
    if (const Done named = checkName(path); !named.ok())
        return named.problem();
    const Format& format = *formatOf(path);
    Result<std::unique_ptr<OutputFile>> file = OutputFile::create(path);
    if (!file.ok())
        return file.problem();

    AudioWriter writer;
    writer.file_ = std::move(file.value());
    writer.name_ = path.string();
    const int subtype = format.code & SF_FORMAT_SUBMASK;
    writer.cutsAtFullScale_ = subtype == SF_FORMAT_PCM_24 || subtype == SF_FORMAT_VORBIS;

    SF_INFO info{};
    info.samplerate = sampleRateHz;
    info.channels = kChannels;
    info.format = format.code;
    const bool isWav = (format.code & SF_FORMAT_TYPEMASK) == SF_FORMAT_WAV;
    if (isWav && lengthFrames > kMostWavBytes / kBytesPerFrame)
        info.format = SF_FORMAT_RF64 | SF_FORMAT_FLOAT;

    SF_VIRTUAL_IO access{sizeOf, seekIn, readFrom, writeTo, placeIn};
    writer.encoder_.reset(sf_open_virtual(&access, SFM_WRITE, &info, writer.file_.get()));
    if (const Done state = writer.file_->state(); !state.ok())
        return state.problem(); // a full disk shows with the first head
    if (writer.encoder_ == nullptr)
        return Problem{path.string() + ": cannot be written: " + sf_strerror(nullptr)};
    sf_command(writer.encoder_.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
    // The peak chunk bears the time of writing: the same samples would give other bytes.
    sf_command(writer.encoder_.get(), SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
    double quality = kVorbisQuality;
    sf_command(writer.encoder_.get(), SFC_SET_VBR_ENCODING_QUALITY, &quality, sizeof quality);
    return writer;
}

Done AudioWriter::write(const float* frames, std::int64_t count) {
    return stateAfter(sf_writef_float(encoder_.get(), frames, count) == count);
}

Done AudioWriter::write(const double* frames, std::int64_t count) {
    return stateAfter(sf_writef_double(encoder_.get(), frames, count) == count);
}

Done AudioWriter::stateAfter(bool wroteAll) {
    if (const Done state = file_->state(); !state.ok())
        return state.problem();
    if (!wroteAll)
        return Problem{name_ + ": cannot be written: " + sf_strerror(encoder_.get())};
    return done();
}

Done AudioWriter::commit() {
    const int error = sf_close(encoder_.release()); // writes the head with the final length
    if (const Done state = file_->state(); !state.ok())
        return state.problem();
    if (error != 0)
        return Problem{name_ + ": cannot be completed: " + sf_error_number(error)};
    return file_->commit();
}

void AudioWriter::Closer::operator()(sf_private_tag* encoder) const {
    sf_close(encoder);
}

} // namespace pedl
