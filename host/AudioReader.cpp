#include "host/AudioReader.h"

#include "foundation/platform/StandardStream.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sndfile.h>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace pedl {

namespace {

/// Programs that write into a pipe promise this many bytes or more: they cannot know.
constexpr long long kOpenLength = 0x7FFFF000;

/// What such a promise is at least in frames, whatever their form.
constexpr sf_count_t kOpenLengthFrames = kOpenLength / static_cast<long long>(2 * sizeof(double));

/// No file has as many: the library says so where a file's head says nothing.
constexpr sf_count_t kNoLengthFrames = sf_count_t{1} << 40;

} // namespace

Result<AudioReader> AudioReader::open(const std::filesystem::path& path) {
    if (path == kStandardStream && isatty(STDIN_FILENO) == 1)
        return Problem{std::string(kStandardInput) + ": is a terminal, not audio"};
    if (path == kStandardStream)
        return read(STDIN_FILENO, false, kStandardInput);
    const std::string name = path.string();
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        return Problem{name + ": " + systemText(errno)};
    if (!S_ISREG(status.st_mode))
        return Problem{name + (S_ISDIR(status.st_mode) ? ": is a folder" : ": is not a file") +
                       ", not audio"};
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return Problem{name + ": " + systemText(errno)};
    return read(descriptor, true, name);
}

/// @param isOurs  the library closes it, also where it cannot read it
Result<AudioReader> AudioReader::read(int descriptor, bool isOurs, std::string name) {
    AudioReader reader;
    SF_INFO info{};
    reader.file_.reset(sf_open_fd(descriptor, SFM_READ, &info, isOurs ? SF_TRUE : SF_FALSE));
    if (reader.file_ == nullptr)
        return Problem{name + ": is not audio that can be read: " + sf_strerror(nullptr)};
    if (info.channels != 1 && info.channels != 2)
        return Problem{name + ": has " + std::to_string(info.channels) +
                       " channels; the effect takes mono or stereo"};
    if (info.samplerate < kLowestRateHz || info.samplerate > kHighestRateHz)
        return Problem{name + ": has a sample rate of " + std::to_string(info.samplerate) +
                       " Hz; the effect takes " + std::to_string(kLowestRateHz) + " to " +
                       std::to_string(kHighestRateHz) + " Hz"};
    if (info.frames <= 0)
        return Problem{name + ": holds no audio"};
    reader.name_ = std::move(name);
    reader.channels_ = info.channels;
    reader.sampleRateHz_ = info.samplerate;
    if (info.frames < (info.seekable != 0 ? kNoLengthFrames : kOpenLengthFrames))
        reader.lengthFrames_ = info.frames;
    return reader;
}

SoundTags AudioReader::tags() const {
    SoundTags tags;
    for (int tag = SF_STR_FIRST; tag <= SF_STR_LAST; ++tag)
        if (const char* const text = sf_get_string(file_.get(), tag); text != nullptr)
            tags.emplace_back(tag, text);
    return tags;
}

std::int64_t AudioReader::read(float* frames, std::int64_t most) {
    return sf_readf_float(file_.get(), frames, most);
}

std::int64_t AudioReader::read(double* frames, std::int64_t most) {
    return sf_readf_double(file_.get(), frames, most);
}

std::int64_t AudioReader::missingBytes() const {
    // The library trims the length to what is there and tells so in its log alone:
    // "data : 19200 (should be 9600)".
    std::array<char, 4096> log{};
    sf_command(file_.get(), SFC_GET_LOG_INFO, log.data(), static_cast<int>(log.size()));
    std::istringstream lines(log.data());
    for (std::string line; std::getline(lines, line);) {
        long long promised = 0;
        long long held = 0;
        if (std::sscanf(line.c_str(), " %*4s : %lld (should be %lld", &promised, &held) == 2 &&
            promised > held && promised < kOpenLength)
            return promised - held;
    }
    return 0;
}

Done AudioReader::state() const {
    if (sf_error(file_.get()) == SF_ERR_NO_ERROR)
        return done();
    return Problem{name_ + ": is damaged: " + sf_strerror(file_.get())};
}

void AudioReader::Closer::operator()(sf_private_tag* file) const {
    sf_close(file);
}

} // namespace pedl
