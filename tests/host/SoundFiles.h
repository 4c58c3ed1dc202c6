#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <sndfile.h>
#include <stdexcept>
#include <vector>

namespace pedl::test {

/// An open sound file. Throws, and so fails the test, where there is none.
inline std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> opened(const std::filesystem::path& path,
                                                          int mode, SF_INFO& info) {
    SNDFILE* const file = sf_open(path.c_str(), mode, &info);
    if (file == nullptr)
        throw std::runtime_error(path.string() + ": " + sf_strerror(nullptr));
    return {file, sf_close};
}

/// Writes 32-bit float WAV whose samples are `value(frame, channel)`.
inline void writeSound(const std::filesystem::path& path, int channels, int sampleRateHz,
                       long frames, const std::function<double(long frame, int channel)>& value) {
    SF_INFO info{0, sampleRateHz, channels, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0, 0};
    std::vector<double> samples;
    for (long frame = 0; frame < frames; ++frame)
        for (int channel = 0; channel < channels; ++channel)
            samples.push_back(value(frame, channel));
    sf_writef_double(opened(path, SFM_WRITE, info).get(), samples.data(), frames);
}

struct Sound {
    SF_INFO info{};
    std::vector<double> samples; // interleaved
};

inline Sound readSound(const std::filesystem::path& path) {
    Sound sound;
    const auto file = opened(path, SFM_READ, sound.info);
    sound.samples.resize(static_cast<std::size_t>(sound.info.frames * sound.info.channels));
    sf_readf_double(file.get(), sound.samples.data(), sound.info.frames);
    return sound;
}

} // namespace pedl::test
