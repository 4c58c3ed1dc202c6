#include "tests/host/SoundFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sndfile.h>

namespace pedl {

TestFolder::TestFolder() {
    std::string name = testing::TempDir() + "pedl-host-XXXXXX";
    path_ = mkdtemp(name.data());
}

TestFolder::~TestFolder() {
    std::filesystem::remove_all(path_);
}

std::vector<std::string> TestFolder::entries() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

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

std::string readBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

} // namespace pedl
