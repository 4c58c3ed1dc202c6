#include "demo/StereoSound.h"

#include <sndfile.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace pedl::demo {

namespace {

struct CloseFile {
    void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundFile = std::unique_ptr<SNDFILE, CloseFile>;

SoundFile openSound(const std::string& path, int mode, SF_INFO& info) {
    SoundFile file(sf_open(path.c_str(), mode, &info));
    if (file == nullptr)
        throw std::runtime_error(path + ": " + sf_strerror(nullptr));
    return file;
}

} // namespace

StereoSound readSound(const std::string& path, double limitSeconds) {
    SF_INFO info{};
    const SoundFile file = openSound(path, SFM_READ, info);
    if (info.channels > 2)
        throw std::runtime_error(path + ": has " + std::to_string(info.channels) + " channels");
    const auto limitFrames = static_cast<sf_count_t>(limitSeconds * info.samplerate);
    const auto channels = static_cast<std::size_t>(info.channels);
    std::vector<float> interleaved(static_cast<std::size_t>(std::min(info.frames, limitFrames)) *
                                   channels);
    const auto frames = static_cast<std::size_t>(
        sf_readf_float(file.get(), interleaved.data(), std::min(info.frames, limitFrames)));

    StereoSound sound{info.samplerate, std::vector<float>(frames), std::vector<float>(frames)};
    const std::size_t second = channels > 1 ? 1 : 0;
    for (std::size_t i = 0; i < frames; ++i) {
        sound.left[i] = interleaved[i * channels];
        sound.right[i] = interleaved[i * channels + second];
    }
    return sound;
}

void writeSound(const std::string& path, const StereoSound& sound, WavFormat format) {
    SF_INFO info{};
    info.samplerate = sound.sampleRateHz;
    info.channels = 2;
    info.format = SF_FORMAT_WAV | (format == WavFormat::Short ? SF_FORMAT_PCM_16 : SF_FORMAT_FLOAT);
    const SoundFile file = openSound(path, SFM_WRITE, info);
    sf_command(file.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
    // That chunk holds the time of day: without it the same sound has the same bytes.
    sf_command(file.get(), SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);

    std::vector<float> interleaved(2 * sound.lengthFrames());
    for (std::size_t i = 0; i < sound.lengthFrames(); ++i) {
        interleaved[2 * i] = sound.left[i];
        interleaved[2 * i + 1] = sound.right[i];
    }
    const auto frames = static_cast<sf_count_t>(sound.lengthFrames());
    if (sf_writef_float(file.get(), interleaved.data(), frames) != frames)
        throw std::runtime_error(path + ": " + sf_strerror(file.get()));
}

} // namespace pedl::demo
