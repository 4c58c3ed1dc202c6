#include "demo/Synthesis.h"

#include <algorithm>
#include <vector>

namespace pedl::demo {

StereoSound silence() {
    return {kSampleRateHz, std::vector<float>(kLengthFrames), std::vector<float>(kLengthFrames)};
}

void mixIn(StereoSound& sound, std::size_t frame, double sample, double pan) {
    if (frame >= sound.lengthFrames())
        return;
    const double angle = pan * std::numbers::pi / 2.0;
    sound.left[frame] += static_cast<float>(sample * std::cos(angle));
    sound.right[frame] += static_cast<float>(sample * std::sin(angle));
}

namespace {

float peakOf(const StereoSound& sound) {
    float peak = 0.0F;
    for (const auto* channel : {&sound.left, &sound.right})
        for (const float sample : *channel)
            peak = std::max(peak, std::abs(sample));
    return peak;
}

} // namespace

StereoSound levelled(StereoSound sound, float drive) {
    const float toUnity = 1.0F / peakOf(sound);
    for (auto* channel : {&sound.left, &sound.right})
        for (float& sample : *channel) {
            const float unity = sample * toUnity;
            sample = kPeak * (drive > 0.0F ? std::tanh(drive * unity) / std::tanh(drive) : unity);
        }
    return sound;
}

namespace {

/// A burst of noise, softened by the finger and combed by the place where the string is plucked.
std::vector<double> pluckedBurst(std::size_t periodFrames, double strength, Noise& noise) {
    constexpr double kPickPosition = 0.17; // of the string's length, from the bridge
    std::vector<double> burst(periodFrames);
    OnePole finger(1500.0 + 9000.0 * strength);
    for (double& sample : burst)
        sample = finger.lowPass(noise.next()) * strength;
    const auto pick = std::max<std::size_t>(
        1, static_cast<std::size_t>(kPickPosition * static_cast<double>(periodFrames)));
    std::vector<double> combed(periodFrames);
    for (std::size_t i = 0; i < periodFrames; ++i)
        combed[i] = burst[i] - burst[(i + periodFrames - pick) % periodFrames];
    return combed;
}

} // namespace

void playString(StereoSound& sound, const Pluck& pluck, double pan, Noise& noise) {
    constexpr double kRingSeconds = 3.0;   // decay to -60 dB while the string rings
    constexpr double kMutedSeconds = 0.06; // the same once the hand lies on it
    const double periodFrames = kSampleRateHz / hertzOfNote(pluck.midiNote);
    // The averaging filter delays by half a frame; the all-pass makes up what is left of the
    // period.
    const auto delayFrames = static_cast<std::size_t>(periodFrames - 0.6);
    const double rest = periodFrames - 0.5 - static_cast<double>(delayFrames);
    const double allPass = (1.0 - rest) / (1.0 + rest);
    const auto decayPerPeriod = [&](double seconds) {
        return std::pow(10.0, -3.0 * periodFrames / (seconds * kSampleRateHz));
    };

    std::vector<double> line = pluckedBurst(delayFrames, pluck.strength, noise);
    const std::size_t start = pluck.step * kStepFrames;
    const std::size_t held = pluck.lengthSteps * kStepFrames * 9 / 10;
    const std::size_t muted = static_cast<std::size_t>(kMutedSeconds * kSampleRateHz);
    double previous = 0.0, allPassIn = 0.0, allPassOut = 0.0;
    for (std::size_t i = 0; i < held + muted; ++i) {
        double& slot = line[i % delayFrames];
        const double out = slot;
        const double decay = decayPerPeriod(i < held ? kRingSeconds : kMutedSeconds);
        const double averaged = decay * 0.5 * (out + previous);
        previous = out;
        allPassOut = allPass * (averaged - allPassOut) + allPassIn;
        allPassIn = averaged;
        slot = allPassOut;
        mixIn(sound, start + i, out, pan);
    }
}

double roundedJump(double phase, double increment) {
    if (phase < increment) {
        const double t = phase / increment;
        return t + t - t * t - 1.0;
    }
    if (phase > 1.0 - increment) {
        const double t = (phase - 1.0) / increment;
        return t * t + t + t + 1.0;
    }
    return 0.0;
}

} // namespace pedl::demo
