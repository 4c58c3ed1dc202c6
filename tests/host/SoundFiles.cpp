#include "tests/host/SoundFiles.h"

#include <gtest/gtest.h>

#include <sndfile.h>

namespace pedl {

void writeSound(const std::filesystem::path& path, int channels, int sampleRateHz, long frames,
                const std::function<double(long frame, int channel)>& value) {
    SF_INFO info{};
    info.channels = channels;
    info.samplerate = sampleRateHz;
    info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    SNDFILE* const file = sf_open(path.c_str(), SFM_WRITE, &info);
    ASSERT_NE(file, nullptr) << path;
    std::vector<double> samples;
    for (long frame = 0; frame < frames; ++frame)
        for (int channel = 0; channel < channels; ++channel)
            samples.push_back(value(frame, channel));
    sf_writef_double(file, samples.data(), frames);
    sf_close(file);
}

Sound readSound(const std::filesystem::path& path) {
    SF_INFO info{};
    SNDFILE* const file = sf_open(path.c_str(), SFM_READ, &info);
    EXPECT_NE(file, nullptr) << path;
    Sound sound{info.channels, info.samplerate, info.format, {}};
    sound.samples.resize(static_cast<std::size_t>(info.frames * info.channels));
    sf_readf_double(file, sound.samples.data(), info.frames);
    sf_close(file);
    return sound;
}

} // namespace pedl
