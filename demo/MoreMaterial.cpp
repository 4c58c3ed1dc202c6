#include "demo/Material.h"
#include "demo/Synthesis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace pedl::demo {

namespace {

constexpr double kMiddle = 0.5;

/// A formant: one resonance of two poles.
class Formant {
public:
    double play(double x, double centreHz, double widthHz) {
        const double radius = std::exp(-std::numbers::pi * widthHz / kSampleRateHz);
        const double y = (1.0 - radius) * x +
                         2.0 * radius * std::cos(kTwoPi * centreHz / kSampleRateHz) * last_ -
                         radius * radius * before_;
        before_ = last_;
        last_ = y;
        return y;
    }

private:
    double last_ = 0.0;
    double before_ = 0.0;
};

struct Vowel {
    std::array<double, 3> formantsHz;
};
constexpr std::array<Vowel, 4> kVowels{{
    {{730.0, 1090.0, 2440.0}}, // a
    {{530.0, 1840.0, 2480.0}}, // e
    {{570.0, 840.0, 2410.0}},  // o
    {{300.0, 870.0, 2240.0}},  // u
}};

/// Where the glide is at a part of the whole, 0..1: through the places, resting at each.
template <typename Place> auto glided(double part, std::size_t places, const Place& place) {
    const double at = part * static_cast<double>(places);
    const auto from = std::min(static_cast<std::size_t>(at), places - 1);
    const double rest = at - static_cast<double>(from);
    const double bent = std::clamp(2.5 * rest - 1.25, 0.0, 1.0);
    return std::lerp(place(from), place((from + 1) % places), bent * bent * (3.0 - 2.0 * bent));
}

} // namespace

StereoSound bassLine() {
    //                                  1   2   3   4
    constexpr std::string_view kSteps = "X.x.X..xX.x.X.xxX.x.X..xX.X.x.Xx";
    constexpr std::array<int, 4> kRoots{28, 28, 31, 33};
    StereoSound sound = silence();
    Noise noise(4);
    for (std::size_t step = 0; step < kBars * kStepsPerBar; ++step) {
        const char stroke = kSteps[step % kSteps.size()];
        if (stroke == '.')
            continue;
        const int root = kRoots[step / kStepsPerBar];
        const int note = root + (step % 8 == 4 ? 12 : step % 8 == 7 ? 7 : 0);
        playString(sound, {step, stroke == 'X' ? 2U : 1U, note, stroke == 'X' ? 0.8 : 0.35},
                   kMiddle, noise);
    }
    return levelled(std::move(sound), 1.5F);
}

StereoSound voiceGlide() {
    constexpr std::array<double, 8> kNotes{50, 53, 57, 62, 60, 57, 55, 50};
    constexpr std::array<double, 3> kWidthsHz{80.0, 110.0, 160.0};
    StereoSound sound = silence();
    Noise breath(5);
    OnePole glottis(700.0);
    std::array<Formant, 3> formants;
    double phase = 0.0;
    for (std::size_t i = 0; i < kLengthFrames; ++i) {
        const double part = static_cast<double>(i) / kLengthFrames;
        const double seconds = static_cast<double>(i) / kSampleRateHz;
        const double note = glided(part, kNotes.size(), [&](std::size_t n) { return kNotes[n]; }) +
                            0.25 * std::sin(kTwoPi * 5.3 * seconds);
        const double increment = hertzOfNote(note) / kSampleRateHz;
        phase += increment;
        phase -= std::floor(phase);
        const double source = glottis.lowPass(2.0 * phase - 1.0 - roundedJump(phase, increment)) +
                              0.04 * breath.next();
        double voice = 0.0;
        for (std::size_t f = 0; f < formants.size(); ++f) {
            const double centreHz = glided(part, kVowels.size(), [&](std::size_t vowel) {
                return kVowels[vowel].formantsHz[f];
            });
            voice += formants[f].play(source, centreHz, kWidthsHz[f]);
        }
        // Phrases of one bar, each with a swell and a breath behind it.
        const double inPhrase = std::fmod(part * kBars, 1.0);
        const double swell =
            std::clamp(8.0 * inPhrase, 0.0, 1.0) * std::clamp(8.0 * (0.92 - inPhrase), 0.0, 1.0);
        mixIn(sound, i, voice * swell, kMiddle);
    }
    return levelled(std::move(sound), 1.0F);
}

StereoSound funkGuitar() {
    //                                  1   2   3   4
    constexpr std::string_view kSteps = "X.xxmmXmx.mXmmx.X.xmXmxmmX.mx.Xm";
    constexpr std::array<int, 4> kChord{59, 62, 66, 69}; // E9 without its root
    constexpr double kMutedStrength = 0.3;
    StereoSound sound = silence();
    Noise noise(6);
    for (std::size_t step = 0; step < kBars * kStepsPerBar; ++step) {
        const char stroke = kSteps[step % kSteps.size()];
        if (stroke == '.')
            continue;
        if (stroke == 'm') { // the hand on the strings: a click without a note
            OnePole dull(2500.0);
            for (std::size_t i = 0; i < kStepFrames / 4; ++i)
                mixIn(sound, step * kStepFrames + i,
                      kMutedStrength * dull.lowPass(noise.next()) *
                          std::exp(-static_cast<double>(i) / 300.0),
                      kMiddle);
            continue;
        }
        for (const int note : kChord)
            playString(sound, {step, 1, note, stroke == 'X' ? 0.9 : 0.4}, kMiddle, noise);
    }
    return levelled(std::move(sound), 1.0F);
}

StereoSound ringingChords() {
    struct Stroke {
        std::array<int, 6> notes;
        double strength;
    };
    constexpr std::array<Stroke, kBars> kStrokes{{
        {{40, 47, 52, 55, 59, 64}, 1.0}, // Em
        {{43, 47, 50, 55, 59, 67}, 0.1}, // G
        {{45, 52, 57, 60, 64, 69}, 1.0}, // Am
        {{40, 47, 52, 55, 59, 64}, 0.1}, // Em
    }};
    StereoSound sound = silence();
    Noise noise(8);
    for (std::size_t bar = 0; bar < kBars; ++bar)
        for (const int note : kStrokes[bar].notes)
            playString(sound, {bar * kStepsPerBar, kStepsPerBar, note, kStrokes[bar].strength},
                       kMiddle, noise);
    return levelled(std::move(sound), 4.0F);
}

const std::vector<std::string>& materialNames() {
    static const std::vector<std::string> names{"riff", "drums", "pad", "bass", "voice", "funk"};
    return names;
}

StereoSound material(const std::string& name) {
    constexpr std::array kMakers{pluckedRiff, drumPattern, pad, bassLine, voiceGlide, funkGuitar};
    const auto found = std::ranges::find(materialNames(), name);
    return kMakers[static_cast<std::size_t>(found - materialNames().begin())]();
}

} // namespace pedl::demo
