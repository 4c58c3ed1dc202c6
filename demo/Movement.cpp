#include "demo/Movement.h"

#include "demo/Levels.h"
#include "demo/ProgramPlay.h"
#include "demo/Synthesis.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace pedl::demo {

namespace {

constexpr double kSettleSeconds = 0.5;
constexpr double kSilentGain = 1e-5; // a gate that is shut is no more than -100 dB down

template <typename Pick> Curve curveOf(const ModulationTrace& trace, const Pick& pick) {
    Curve curve;
    for (const ModulationPoint& point : trace)
        if (point.seconds > kSettleSeconds)
            curve.push_back(pick(point));
    return curve;
}

/// The rate of the strongest sine in a curve that moves by more than `least`.
double strongestRateHz(const Curve& curve, double least) {
    if (spreadOf(curve) < least)
        return 0.0;
    constexpr double kPointsPerSecond = static_cast<double>(kSampleRateHz) / kBlockFrames;
    double mean = 0.0;
    for (const double value : curve)
        mean += value / static_cast<double>(curve.size());
    double best = 0.0;
    double bestHz = 0.0;
    for (double hertz = 0.1; hertz < 16.0; hertz *= 1.01) {
        double real = 0.0;
        double imaginary = 0.0;
        for (std::size_t i = 0; i < curve.size(); i += 4) {
            const double angle = kTwoPi * hertz * static_cast<double>(i) / kPointsPerSecond;
            real += (curve[i] - mean) * std::cos(angle);
            imaginary += (curve[i] - mean) * std::sin(angle);
        }
        if (const double power = real * real + imaginary * imaginary; power > best) {
            best = power;
            bestHz = hertz;
        }
    }
    return bestHz;
}

Movement movementOf(const ModulationTrace& trace) {
    const Curve cutoff = cutoffOf(trace);
    const Curve gain = gainOf(trace);
    Movement movement;
    movement.lowHz = std::exp2(quantile(cutoff, 0.05));
    movement.highHz = std::exp2(quantile(cutoff, 0.95));
    movement.depthOctaves = spreadOf(cutoff);
    movement.quietGainDb = quantile(gain, 0.05);
    movement.loudGainDb = quantile(gain, 0.95);
    movement.cutoffRateHz = strongestRateHz(cutoff, 0.05);
    movement.gainRateHz = strongestRateHz(gain, 0.5);
    return movement;
}

} // namespace

double octave(double hertz) {
    return std::log2(std::max(hertz, 1.0));
}

double decibel(double gain) {
    return decibelsOf(gain, kSilentGain);
}

Curve cutoffOf(const ModulationTrace& trace) {
    return curveOf(trace, [](const ModulationPoint& p) { return octave(p.cutoffLeftHz); });
}

Curve gainOf(const ModulationTrace& trace) {
    return curveOf(trace, [](const ModulationPoint& p) { return decibel(p.gainLeft); });
}

Curve rightGainOf(const ModulationTrace& trace) {
    return curveOf(trace, [](const ModulationPoint& p) { return decibel(p.gainRight); });
}

double quantile(Curve curve, double part) {
    std::ranges::sort(curve);
    return curve[static_cast<std::size_t>(part * static_cast<double>(curve.size() - 1))];
}

double spreadOf(const Curve& curve) {
    return quantile(curve, 0.95) - quantile(curve, 0.05);
}

double risingShare(const Curve& curve) {
    double up = 0.0;
    double down = 0.0;
    for (std::size_t i = 8; i < curve.size(); i += 8) {
        up += curve[i] > curve[i - 8] + 1e-4 ? 1.0 : 0.0;
        down += curve[i] < curve[i - 8] - 1e-4 ? 1.0 : 0.0;
    }
    return up / std::max(1.0, up + down);
}

double crossings(const ModulationTrace& trace) {
    const Curve curve = cutoffOf(trace);
    const double middle = 0.5 * (quantile(curve, 0.95) + quantile(curve, 0.05));
    double count = 0.0;
    for (std::size_t i = 1; i < curve.size(); ++i)
        count += (curve[i] > middle) != (curve[i - 1] > middle) ? 1.0 : 0.0;
    return count / trace.back().seconds;
}

StereoSound steadyNoise(double levelDb) {
    StereoSound sound = silence();
    Noise noise(7);
    const double factor = std::pow(10.0, levelDb / 20.0) * std::sqrt(3.0);
    for (std::size_t i = 0; i < sound.lengthFrames(); ++i)
        sound.left[i] = sound.right[i] = static_cast<float>(factor * noise.next());
    return sound;
}

Movement steadyMovement(const ProgramRecord& program, double levelDb, double tempoBpm) {
    return movementOf(playProgram(program, steadyNoise(levelDb), {.tempoBpm = tempoBpm}).trace);
}

} // namespace pedl::demo
