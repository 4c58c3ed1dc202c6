#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace pedl {

/// A folder of its own for one test, removed with everything in it.
class TestFolder {
public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    [[nodiscard]] std::filesystem::path operator/(const std::string& name) const {
        return path_ / name;
    }
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// Names of all entries, hidden ones too, sorted.
    [[nodiscard]] std::vector<std::string> entries() const;

private:
    std::filesystem::path path_;
};

struct Sound {
    int channels = 0;
    int sampleRateHz = 0;
    int format = 0;              // libsndfile's
    std::vector<double> samples; // interleaved
    [[nodiscard]] std::size_t frames() const {
        return samples.size() / static_cast<std::size_t>(channels);
    }
};

/// Writes 32-bit float WAV whose samples are `value(frame, channel)`.
void writeSound(const std::filesystem::path& path, int channels, int sampleRateHz, long frames,
                const std::function<double(long frame, int channel)>& value);

[[nodiscard]] Sound readSound(const std::filesystem::path& path);
[[nodiscard]] std::string readBytes(const std::filesystem::path& path);
void writeBytes(const std::filesystem::path& path, const std::string& bytes);

} // namespace pedl
