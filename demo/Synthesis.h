#pragma once

#include "demo/StereoSound.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>

namespace pedl::demo {

// What the demo material is played with: its measures, noise, a string, a saw wave.

constexpr int kSampleRateHz = 48000;
constexpr std::size_t kStepFrames = 6000;
constexpr std::size_t kStepsPerBar = 16;
constexpr std::size_t kBars = 4;
constexpr std::size_t kLengthFrames = kBars * kStepsPerBar * kStepFrames;
constexpr float kPeak = 0.7079F; // -3 dBFS
constexpr double kTwoPi = 2.0 * std::numbers::pi;

/// Equal temperament, A4 at 440 Hz.
[[nodiscard]] inline double hertzOfNote(double midiNote) {
    return 440.0 * std::exp2((midiNote - 69.0) / 12.0);
}

/// White noise, -1..1, from our own generator: the material is the same wherever it is made.
class Noise {
public:
    explicit Noise(std::uint32_t seed) : state_(seed) {}

    double next() {
        state_ = state_ * 1664525U + 1013904223U;
        return static_cast<double>(state_) / 2147483648.0 - 1.0;
    }

private:
    std::uint32_t state_;
};

/// Low-pass of 6 dB/oct; what it takes away is the high-pass.
class OnePole {
public:
    explicit OnePole(double cutoffHz)
        : coefficient_(1.0 - std::exp(-kTwoPi * cutoffHz / kSampleRateHz)) {}

    double lowPass(double x) { return value_ += (x - value_) * coefficient_; }
    double highPass(double x) { return x - lowPass(x); }

private:
    double coefficient_;
    double value_ = 0.0;
};

/// Four bars of it.
StereoSound silence();

/// Adds one sample at equal power between the channels; beyond the end it is lost.
/// @param pan  0 left, 1 right
void mixIn(StereoSound& sound, std::size_t frame, double sample, double pan);

/// Brings the sound to the peak level; a drive above 0 rounds the peaks on the way, as an
/// amplifier does, so that the quiet notes come up.
StereoSound levelled(StereoSound sound, float drive);

/// One stroke on a string.
struct Pluck {
    std::size_t step;
    std::size_t lengthSteps;
    int midiNote;
    double strength; ///< 0..1: how hard, and with it how bright
};

/// Karplus and Strong's string with a fractional delay (D. Jaffe, J. Smith, "Extensions of the
/// Karplus-Strong Plucked-String Algorithm", 1983).
void playString(StereoSound& sound, const Pluck& pluck, double pan, Noise& noise);

/// The jump of a saw wave, rounded over one frame on either side so that little of it aliases
/// (V. Valimaki, A. Huovilainen, "Antialiasing Oscillators in Subtractive Synthesis", 2007).
/// @param phase  0..1, the jump at 0
double roundedJump(double phase, double increment);

} // namespace pedl::demo
