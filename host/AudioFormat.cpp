#include "host/AudioFormat.h"

#include "foundation/text/NameMatch.h"

#include <array>
#include <sndfile.h>

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
struct SampleForm {
    std::string_view bits;
    int code;
    int bytes;
};
constexpr std::array<SampleForm, 3> kSampleForms{{
    {"16",  SF_FORMAT_PCM_16, 2},
    {"24",  SF_FORMAT_PCM_24, 3},
    {"32f", SF_FORMAT_FLOAT,  4},
}};
// clang-format on

const Format* formatWith(std::string_view ending) {
    for (const Format& format : kFormats)
        if (format.ending == ending)
            return &format;
    return nullptr;
}

std::string allEndings() {
    std::string endings;
    for (const Format& format : kFormats)
        endings += (endings.empty() ? "" : ", ") + std::string(format.ending);
    return endings;
}

} // namespace

AudioFormat::AudioFormat() : AudioFormat(kFormats.front().ending, kFormats.front().code) {}

Result<AudioFormat> AudioFormat::ofFile(const std::filesystem::path& path) {
    const std::string ending = lowerCase(path.extension().string());
    const Format* const found = ending.empty() ? &kFormats.front() : formatWith(ending);
    if (found == nullptr)
        return Problem{path.string() + ": audio with the ending " + path.extension().string() +
                       " cannot be written; there are " + allEndings()};
    return AudioFormat(found->ending, found->code);
}

Result<AudioFormat> AudioFormat::named(std::string_view name) {
    const std::string ending = (name.starts_with('.') ? "" : ".") + lowerCase(name);
    const Format* const found = formatWith(ending);
    if (found == nullptr)
        return Problem{'"' + std::string(name) + "\" is no format; there are " + allEndings()};
    return AudioFormat(found->ending, found->code);
}

Result<AudioFormat> AudioFormat::withBits(std::string_view bits) const {
    const std::string wanted = lowerCase(bits);
    for (const SampleForm& form : kSampleForms) {
        if (form.bits != wanted)
            continue;
        AudioFormat changed = *this;
        changed.code_ = container() | form.code;
        SF_INFO info{0, 48000, 2, changed.code_, 0, 0};
        if (container() == SF_FORMAT_OGG || sf_format_check(&info) == SF_FALSE)
            return Problem{ending() + " has no samples of " + std::string(form.bits) + " bits"};
        return changed;
    }
    return Problem{'"' + std::string(bits) + "\" is not 16, 24 or 32f"};
}

int AudioFormat::container() const {
    return code_ & SF_FORMAT_TYPEMASK;
}

int AudioFormat::bytesPerSample() const {
    for (const SampleForm& form : kSampleForms)
        if (form.code == (code_ & SF_FORMAT_SUBMASK))
            return form.bytes;
    return 0;
}

bool AudioFormat::cutsAtFullScale() const {
    return (code_ & SF_FORMAT_SUBMASK) != SF_FORMAT_FLOAT;
}

bool AudioFormat::canStream() const {
    return container() == SF_FORMAT_WAV || container() == SF_FORMAT_AIFF ||
           container() == SF_FORMAT_FLAC || container() == SF_FORMAT_OGG;
}

} // namespace pedl
