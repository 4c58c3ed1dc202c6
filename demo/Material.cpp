#include "demo/Material.h"

#include "demo/Synthesis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string_view>
#include <utility>

namespace pedl::demo {

namespace {

// Drums -------------------------------------------------------------------------------------------

double decayed(double seconds, double halfLifeSeconds) {
    return std::exp2(-seconds / halfLifeSeconds);
}

void playKick(StereoSound& sound, std::size_t start, double strength) {
    constexpr std::size_t kFrames = kSampleRateHz / 2;
    double phaseCycles = 0.0;
    for (std::size_t i = 0; i < kFrames; ++i) {
        const double seconds = static_cast<double>(i) / kSampleRateHz;
        phaseCycles += (46.0 + 190.0 * decayed(seconds, 0.018)) / kSampleRateHz;
        const double beater = 0.5 * decayed(seconds, 0.001);
        const double body = std::sin(kTwoPi * phaseCycles) * decayed(seconds, 0.075);
        mixIn(sound, start + i, strength * 1.1 * std::tanh(1.6 * (body + beater)), 0.5);
    }
}

void playSnare(StereoSound& sound, std::size_t start, double strength, Noise& noise) {
    constexpr std::size_t kFrames = kSampleRateHz * 3 / 10;
    OnePole low(900.0);
    OnePole high(7500.0);
    for (std::size_t i = 0; i < kFrames; ++i) {
        const double seconds = static_cast<double>(i) / kSampleRateHz;
        const double shell =
            (std::sin(kTwoPi * 187.0 * seconds) + 0.6 * std::sin(kTwoPi * 331.0 * seconds)) *
            decayed(seconds, 0.03);
        const double wires = high.lowPass(low.highPass(noise.next())) * decayed(seconds, 0.045);
        mixIn(sound, start + i, strength * (0.4 * shell + 0.75 * wires), 0.47);
    }
}

/// Six square waves at ratios of a cymbal's partials, high-passed twice, with a little noise.
void playHat(StereoSound& sound, std::size_t start, double strength, double halfLifeSeconds,
             Noise& noise) {
    constexpr std::array<double, 6> kPartialsHz{2047.0, 3133.0, 3823.0, 4519.0, 5471.0, 6997.0};
    const auto frames = static_cast<std::size_t>(8.0 * halfLifeSeconds * kSampleRateHz);
    OnePole first(7000.0);
    OnePole second(7000.0);
    for (std::size_t i = 0; i < frames; ++i) {
        const double seconds = static_cast<double>(i) / kSampleRateHz;
        double metal = 0.0;
        for (const double hertz : kPartialsHz)
            metal += std::sin(kTwoPi * hertz * seconds) > 0.0 ? 1.0 : -1.0;
        const double bright = second.highPass(first.highPass(metal / 6.0 + 0.4 * noise.next()));
        mixIn(sound, start + i, strength * bright * decayed(seconds, halfLifeSeconds), 0.62);
    }
}

/// How hard a step is played: 'X' hard, 'x' soft, anything else not at all.
double strengthOf(char step) {
    return step == 'X' ? 1.0 : step == 'x' ? 0.55 : 0.0;
}

// Pad ---------------------------------------------------------------------------------------------

constexpr double kReleaseSeconds = 0.6;

/// Held for `frames`, then released.
void playSaw(StereoSound& sound, std::size_t start, std::size_t frames, double hertz, double phase,
             double pan) {
    constexpr double kAttackSeconds = 0.25;
    const double increment = hertz / kSampleRateHz;
    const double heldSeconds = static_cast<double>(frames) / kSampleRateHz;
    const auto rung = static_cast<std::size_t>(kReleaseSeconds * kSampleRateHz);
    for (std::size_t i = 0; i < frames + rung; ++i) {
        const double seconds = static_cast<double>(i) / kSampleRateHz;
        const double rise = std::min(1.0, seconds / kAttackSeconds);
        const double fall = std::clamp(1.0 - (seconds - heldSeconds) / kReleaseSeconds, 0.0, 1.0);
        const double saw = 2.0 * phase - 1.0 - roundedJump(phase, increment);
        mixIn(sound, start + i, saw * rise * fall * fall, pan);
        phase += increment;
        phase -= std::floor(phase);
    }
}

} // namespace

StereoSound pluckedRiff() {
    // clang-format off
    constexpr std::array<Pluck, 30> kTwoBars{{
        // step  length  note  strength
        {    0,     3,    40,   1.00},
        {    3,     1,    40,   0.55},
        {    4,     2,    43,   0.85},
        {    6,     2,    45,   0.80},
        {    8,     1,    64,   0.75}, {    8,     1,    67,   0.75}, {    8,     1,    71,   0.75},
        {   10,     1,    52,   0.90},
        {   11,     2,    47,   0.70},
        {   13,     1,    50,   0.60},
        {   14,     2,    52,   0.95},
        {   16,     3,    40,   1.00},
        {   19,     1,    40,   0.50},
        {   20,     1,    43,   0.85},
        {   21,     1,    45,   0.65},
        {   22,     2,    47,   0.90},
        {   24,     2,    62,   0.80}, {   24,     2,    66,   0.80}, {   24,     2,    69,   0.80},
        {   26,     1,    50,   0.70},
        {   27,     1,    52,   0.95},
        {   28,     1,    55,   0.90},
        {   29,     1,    52,   0.70},
        {   30,     2,    50,   0.85},
        // a high answer over the second bar
        {   16,     4,    76,   0.45},
        {   20,     2,    74,   0.40},
        {   22,     2,    71,   0.45},
        {   28,     2,    79,   0.50},
        {   30,     1,    78,   0.40},
        {   31,     1,    74,   0.40},
    }};
    // clang-format on
    StereoSound sound = silence();
    Noise noise(1);
    for (std::size_t repeat = 0; repeat < 2; ++repeat)
        for (Pluck pluck : kTwoBars) {
            pluck.step += repeat * 2 * kStepsPerBar;
            playString(sound, pluck, pluck.midiNote < 56 ? 0.45 : 0.62, noise);
        }
    return levelled(std::move(sound), 2.5F);
}

StereoSound drumPattern() {
    // clang-format off
    //                                           1   2   3   4    1   2   3   4
    constexpr std::string_view kKick          = "X..x..X...X.....X..x..X.x.X...x.";
    constexpr std::string_view kSnare         = "....X..x.x..X.......X..x....X.xx";
    constexpr std::string_view kClosedHat     = "X.xxX.x.X.xxX.x.X.xxX.x.X.xxX.x.";
    constexpr std::string_view kOpenHat       = "...............X...............X";
    // clang-format on
    constexpr double kClosedHalfLifeSeconds = 0.014;
    constexpr double kOpenHalfLifeSeconds = 0.09;
    StereoSound sound = silence();
    Noise noise(2);
    for (std::size_t step = 0; step < kBars * kStepsPerBar; ++step) {
        const std::size_t start = step * kStepFrames;
        const std::size_t column = step % kKick.size();
        if (const double strength = strengthOf(kKick[column]); strength > 0.0)
            playKick(sound, start, strength);
        if (const double strength = strengthOf(kSnare[column]); strength > 0.0)
            playSnare(sound, start, strength, noise);
        if (const double strength = strengthOf(kClosedHat[column]); strength > 0.0)
            playHat(sound, start, 0.9 * strength, kClosedHalfLifeSeconds, noise);
        if (const double strength = strengthOf(kOpenHat[column]); strength > 0.0)
            playHat(sound, start, 0.8 * strength, kOpenHalfLifeSeconds, noise);
    }
    return levelled(std::move(sound), 0.0F);
}

StereoSound pad() {
    using Chord = std::array<int, 5>;
    constexpr std::array<Chord, kBars> kChords{{
        {40, 55, 59, 62, 66}, // Em9
        {36, 55, 59, 64, 67}, // Cmaj7
        {43, 55, 59, 62, 69}, // Gadd9
        {38, 54, 57, 61, 66}, // Dmaj7
    }};
    constexpr std::array<double, 3> kDetuneSemitones{-0.09, 0.0, 0.08};
    constexpr std::size_t kBarFrames = kStepsPerBar * kStepFrames;
    constexpr auto kReleaseFrames = static_cast<std::size_t>(kReleaseSeconds * kSampleRateHz);
    StereoSound sound = silence();
    Noise noise(3);
    for (std::size_t bar = 0; bar < kBars; ++bar) {
        // Each chord fades under the next one, the last into the silence of the end.
        const std::size_t held = kBarFrames - (bar + 1 == kBars ? kReleaseFrames : 0);
        for (const int note : kChords[bar])
            for (std::size_t voice = 0; voice < kDetuneSemitones.size(); ++voice)
                playSaw(sound, bar * kBarFrames, held, hertzOfNote(note + kDetuneSemitones[voice]),
                        0.5 + 0.5 * noise.next(), 0.15 + 0.35 * static_cast<double>(voice));
    }
    return levelled(std::move(sound), 0.0F);
}

} // namespace pedl::demo
