#include "demo/OwnSound.h"

#include "demo/Levels.h"
#include "foundation/text/FormattedText.h"
#include "foundation/text/PrintableText.h"
#include "foundation/text/Utf8.h"
#include "host/AudioReader.h"

#include <cmath>
#include <stdexcept>

namespace pedl::demo {

namespace {

/// Below this the slow movements of most settings do not come round.
constexpr double kShortSeconds = 2.0;

/// Of a stem: a file system takes 255, and what is made from it has a name behind it.
constexpr std::size_t kMostStemBytes = 120;

/// Puts silence in the place of what is no number.
/// @return of how many samples
std::size_t silenceNoNumbers(StereoSound& sound) {
    std::size_t count = 0;
    for (auto* channel : {&sound.left, &sound.right})
        for (float& sample : *channel)
            if (!std::isfinite(sample)) {
                sample = 0.0F;
                ++count;
            }
    return count;
}

std::vector<std::string> notesOn(const AudioReader& file, const StereoSound& sound,
                                 std::size_t noNumbers) {
    std::vector<std::string> notes;
    const double seconds = file.lengthFrames() // a head may leave it open
                               ? static_cast<double>(*file.lengthFrames()) / file.sampleRateHz()
                               : sound.lengthSeconds();
    if (file.channels() == 1)
        notes.emplace_back("is mono: left and right get the same");
    if (seconds > kLongestOwnSeconds)
        notes.push_back(
            formatted("lasts %.1f s: its first %.0f s are taken", seconds, kLongestOwnSeconds));
    if (seconds < kShortSeconds)
        notes.push_back(formatted("lasts %.2g s: slow movements do not come round", seconds));
    if (const double peakDb = levelsOf(sound).peakDb; peakDb > 0.0)
        notes.push_back(formatted(
            "peaks at %+.1f dBFS: what is beyond full scale is cut off when it is played", peakDb));
    if (noNumbers > 0)
        notes.push_back("has " + std::to_string(noNumbers) +
                        " samples that are no numbers: silence stands for them");
    return notes;
}

} // namespace

OwnSound readOwnSound(const std::filesystem::path& file) {
    const Result<AudioReader> reader = AudioReader::open(file);
    if (!reader.ok())
        throw std::runtime_error(reader.problem().text);
    OwnSound own;
    own.name = printableText(file.filename().string());
    own.stem = firstWholeCharacters(printableText(file.stem().string()), kMostStemBytes);
    own.sound = readSound(file.string(), kLongestOwnSeconds);
    const std::size_t noNumbers = silenceNoNumbers(own.sound);
    for (const std::string& note : notesOn(reader.value(), own.sound, noNumbers))
        own.notes.push_back(own.name + " " + note);
    return own;
}

} // namespace pedl::demo
