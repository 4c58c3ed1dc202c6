#include "host/AudioReader.h"

#include <cerrno>
#include <fcntl.h>
#include <sndfile.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pedl {

Result<AudioReader> AudioReader::open(const std::filesystem::path& path) {
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

    AudioReader reader;
    SF_INFO info{};
    reader.file_.reset(
        sf_open_fd(descriptor, SFM_READ, &info, SF_TRUE)); // closes it, also on error
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
    reader.name_ = name;
    reader.channels_ = info.channels;
    reader.sampleRateHz_ = info.samplerate;
    reader.lengthFrames_ = info.frames;
    return reader;
}

std::int64_t AudioReader::read(float* frames, std::int64_t most) {
    return sf_readf_float(file_.get(), frames, most);
}

std::int64_t AudioReader::read(double* frames, std::int64_t most) {
    return sf_readf_double(file_.get(), frames, most);
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
