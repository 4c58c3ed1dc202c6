#pragma once

#include "engine/EnvelopeFollower.h"
#include "engine/Lanes.h"
#include "engine/VectorMath.h"
#include "parameters/ValueLaws.h"

#include <cstdint>

namespace pedl {

/// Inner loops of the envelope follower.
template <typename Lanes> struct EnvelopeStage {
    using V = typename Lanes::Wide;
    using State = EnvelopeFollower::State;
    using Controls = EnvelopeFollower::Controls;
    using Mode = EnvelopeFollower::ThresholdMode;
    static constexpr int kLanes = static_cast<int>(V::size);

    static void run(State& state, const Controls& controls, const StereoStretch& gained, int frames,
                    EnvelopeOutput& output) {
        switch (controls.mode) {
        case Mode::Above:
            follow<Mode::Above>(state, controls, gained, frames);
            shape<Mode::Above>(state, controls, frames, output);
            break;
        case Mode::Below:
            follow<Mode::Below>(state, controls, gained, frames);
            shape<Mode::Below>(state, controls, frames, output);
            break;
        case Mode::Around:
            follow<Mode::Around>(state, controls, gained, frames);
            shape<Mode::Around>(state, controls, frames, output);
            break;
        }
    }

private:
    /// Threshold, peak hold and the two smoothers: each frame waits for the one before.
    template <Mode mode>
    static void follow(State& state, const Controls& controls, const StereoStretch& gained,
                       int frames) {
        constexpr double kPowerScale = 0.707;
        double held = state.held;
        double first = state.first;
        double second = state.second;
        auto heldFrames = state.heldFrames;
        for (int i = 0; i < frames; ++i) {
            const double left = gained.at[2 * i];
            const double right = gained.at[2 * i + 1];
            double power = (right * right + left * left) * kPowerScale * controls.thresholdFactor;
            if constexpr (mode == Mode::Above)
                power = power > 1.0 ? power : 1.0;
            if constexpr (mode == Mode::Below)
                power = power < 1.0 ? power : 1.0;
            const bool isOver = heldFrames > controls.holdFrames;
            const std::int64_t keepsCount = static_cast<std::int64_t>(power > held) - 1;
            held = isOver || power > held ? power : held;
            heldFrames = (heldFrames & keepsCount) + 1;

            first = guarded(first + step(held - first, controls.attack1, controls.release1));
            second = guarded(second + step(first - second, controls.attack2, controls.release2));
            state.power.at[i] = second;
        }
        state.held = held;
        state.first = first;
        state.second = second;
        state.heldFrames = heldFrames;
    }

    /// One smoother's step: `way` times the attack upwards, times the release downwards. Of both
    /// products that is the larger one where the attack is faster, else the smaller one: no branch
    /// that the sound would make unpredictable.
    static double step(double way, double attack, double release) {
        const double up = way * attack;
        const double down = way * release;
        if (attack >= release)
            return up > down ? up : down;
        return up < down ? up : down;
    }

    /// Level, and what follows from it for depth, cut-off, rate and gain.
    template <Mode mode>
    static void shape(const State& state, const Controls& controls, int frames,
                      EnvelopeOutput& output) {
        // Floors of the three modes: they keep the logarithm finite.
        constexpr double kAboveFloor = 0.0001;
        constexpr double kBelowFloor = 0.0002;
        constexpr double kAroundFloor = 0.1;
        constexpr double kBelowTop = 2.0001; // halved, the threshold is a hair above 1
        const MonoStretch& slope = state.depthSlope.stretch();
        const MonoStretch& rest = state.depthRest.stretch();
        const V range(controls.range);
        const V one(1.0);
        const bool hasGain = controls.gainExponent != 1.0;
        const V restExponent(1.0 - controls.gainExponent);
        const V logOfBelowFloor =
            mode == Mode::Below ? vectormath::log(V(controls.belowFloor)) : V(0.0);
        const V rate(controls.normalisedRate);
        for (int i = 0; i < frames; i += kLanes) {
            const V root = xsimd::sqrt(V::load_aligned(state.power.at + i));
            V level, cutoffLevel, logOfGainBase;
            if constexpr (mode == Mode::Above) {
                const V over = (root - one) * range + V(1.0) - V(kAboveFloor);
                const auto parts =
                    vectormath::logarithmParts(xsimd::max(over, V(0.0)) + V(kAboveFloor));
                level = vectormath::decimalLogarithm(parts);
                cutoffLevel = level;
                logOfGainBase = vectormath::naturalLogarithm(parts);
            } else if constexpr (mode == Mode::Below) {
                const V under = (root - one) * range + V(kBelowTop) - V(kBelowFloor);
                const auto parts = vectormath::logarithmParts(
                    (xsimd::max(under, V(0.0)) + V(kBelowFloor)) * V(0.5));
                // The level rises as the input falls, the cut-off falls with the input.
                cutoffLevel = vectormath::decimalLogarithm(parts);
                level = -cutoffLevel;
                logOfGainBase = xsimd::max(vectormath::naturalLogarithm(parts), logOfBelowFloor);
            } else {
                const V around = xsimd::max(root - V(kAroundFloor), V(0.0)) + V(kAroundFloor);
                level = vectormath::log10(around) * range;
                cutoffLevel = level;
                logOfGainBase = hasGain ? vectormath::log(range * around + one) : V(0.0);
            }
            level.store_aligned(output.level.at + i);

            const V depth = V::load_aligned(slope.at + i) * level + V::load_aligned(rest.at + i);
            const V clamped = (xsimd::abs(depth) - xsimd::abs(depth - one) + one) * V(0.5);
            clamped.store_aligned(output.depth.at + i);

            (cutoffLevel * V(controls.cutoffAmount)).store_aligned(output.cutoffOffset.at + i);

            const V hz = laws::lfoRateHz(V(controls.rateAmount) * (level * level) + rate);
            xsimd::max(hz, V(laws::kLowestLfoRateHz)).store_aligned(output.rateHz.at + i);

            // base / base^exponent
            const V gain = hasGain ? vectormath::exp(restExponent * logOfGainBase) : one;
            gain.store_aligned(output.gain.at + i);
        }
    }
};

} // namespace pedl
