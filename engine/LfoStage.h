#pragma once

#include "engine/Lanes.h"
#include "engine/Lfo.h"
#include "engine/VectorMath.h"

#include <cstdint>

namespace pedl {

/// Inner loops of the LFO.
template <typename Lanes> struct LfoStage {
    using V = typename Lanes::Wide;
    using Pair = typename Lanes::Pair;
    using State = Lfo::State;
    using Controls = Lfo::Controls;
    using Wave = Lfo::Wave;
    static constexpr int kLanes = static_cast<int>(V::size);

    static void run(State& state, const Controls& controls, const MonoStretch& rateHz, int frames,
                    LfoOutput& output) {
        walk(state, controls, rateHz, frames, output.table);
        if (controls.wave == Wave::Square)
            bendSquare(controls, output.table, frames, output.raw);
        else if (controls.wave == Wave::Spike)
            bendSpike(controls, output.table, frames, output.raw);
        else
            bend(controls, output.table, frames, output.raw);
        smooth(state, controls.smoothing, output.raw, frames, output.smoothed);
    }

private:
    /// 16^exponent for the random rate: the exponent is added to the bits of a double, which are
    /// nearly the logarithm. This cheap power is part of the sound of the randomisation.
    static double sixteenToThe(double exponent) {
        constexpr double kBitsOf16 = 4255105.0; // upper half of 16.0, less the offset below
        constexpr std::int32_t kOffset = 1072632447;
        const auto upper = static_cast<std::int32_t>(kBitsOf16 * exponent) + kOffset;
        return __builtin_bit_cast(double, static_cast<std::uint64_t>(upper) << 32);
    }

    /// A place between two neighbours of a random table.
    struct Place {
        std::int64_t step, next;
        double fraction;

        explicit Place(double position) {
            const auto whole = static_cast<std::int64_t>(position);
            step = whole & kWaveMask;
            next = (step + 1) & kWaveMask;
            fraction = position - static_cast<double>(whole);
        }
        double of(const double* table) const {
            return (1.0 - fraction) * table[step] + fraction * table[next];
        }
    };

    /// The low-pass over the random values, run frame by frame.
    struct RandomFilter {
        Lfo::Biquad b;
        double x1, x2, y1, y2;

        RandomFilter(const State& state, const Lfo::Biquad& coefficients)
            : b(coefficients), x1(state.x1), x2(state.x2), y1(state.y1), y2(state.y2) {}

        double next(double x0) {
            const double y = guarded(b.b0 * x0 + b.b1 * x1 + b.b2 * x2 - b.a1 * y1 - b.a2 * y2);
            x2 = x1;
            x1 = x0;
            y2 = y1;
            y1 = y;
            return y;
        }
        void store(State& state) const {
            state.x1 = x1;
            state.x2 = x2;
            state.y1 = y1;
            state.y2 = y2;
        }
    };

    /// Randomised rate of the fast kind: up to four times it and down to a quarter, as the filtered
    /// random value says.
    static double fastRate(double rate, double amount, double filtered) {
        constexpr double kLowest = 0.25;
        if (amount == 0.0)
            return rate;
        return rate + amount * (rate * sixteenToThe(filtered) * kLowest - rate);
    }

    /// Randomised rate of the slow kind, from a random step of -1..1: it drifts.
    static double slowRate(double rate, double amount, double step) {
        constexpr double kReach = 0.9;
        const double factor = kReach - kReach * step;
        return ((1.0 - amount) * (1.0 - factor) + factor) * rate;
    }

    /// Moves both phases frame by frame and reads the wave's table on the way.
    static void walk(State& state, const Controls& controls, const MonoStretch& rateHz, int frames,
                     StereoStretch& table) {
        const double* const values = state.random.values.data();
        const double* const steps = state.random.steps.data();
        const double* const wave = waveTable(controls);
        const bool isMirrored = controls.wave == Wave::SawDown;
        const bool isRandom = controls.wave == Wave::Random;
        const bool isFast = controls.randomType == Lfo::RandomType::Fast;
        const double amount = controls.randomAmount;
        const double spreadSteps = state.spread * (kWaveSteps / 2.0);
        RandomFilter filter(state, controls.biquad);
        double phase = state.phase;
        double randomPhase = state.randomPhase;
        for (int i = 0; i < frames; ++i) {
            const double rate = rateHz.at[i];
            const Place random(randomPhase);
            const double filtered = filter.next(values[random.step]);
            const double walked = isFast ? fastRate(rate, amount, filtered)
                                         : slowRate(rate, amount, random.of(steps));
            if (isRandom) {
                table.at[2 * i] = random.of(values);
                table.at[2 * i + 1] = rightOf(values, randomPhase + state.spread);
            } else {
                const auto left = static_cast<std::int64_t>(phase) & kWaveMask;
                const auto right = static_cast<std::int64_t>(phase + spreadSteps) & kWaveMask;
                table.at[2 * i] = isMirrored ? 1.0 - wave[left] : wave[left];
                table.at[2 * i + 1] = isMirrored ? 1.0 - wave[right] : wave[right];
            }
            phase = wrapped(phase + walked * controls.phaseScale);
            randomPhase =
                wrapped(randomPhase + (controls.randomFollowsRate ? rate * controls.randomScale
                                                                  : controls.randomScale));
        }
        state.phase = phase;
        state.randomPhase = randomPhase;
        filter.store(state);
    }

    static const double* waveTable(const Controls& controls) {
        switch (controls.wave) {
        case Wave::Triangle:
            return controls.waves->triangle.data();
        case Wave::SawUp:
        case Wave::SawDown:
            return controls.waves->sawUp.data();
        case Wave::Spike:
            return controls.waves->spike.data();
        case Wave::Sine:
        case Wave::Square:
        case Wave::Random:
            break;
        }
        return controls.waves->sine.data();
    }

    /// The right channel's random value; a position before the table's start counts as its start.
    static double rightOf(const double* values, double position) {
        return Place(position > 0.0 ? position : 0.0).of(values);
    }

    static double wrapped(double phase) {
        const double folded = phase >= kWaveSteps ? phase - kWaveSteps : phase;
        return folded > 0.0 ? folded : 0.0;
    }

    /// Narrow peaks for widths above 1, wide ones below: 0..1 becomes -1..1.
    ///
    /// A slow wave stays on one step of its table for many frames: what equals the frames before is
    /// not bent anew.
    static void bend(const Controls& controls, const StereoStretch& table, int frames,
                     StereoStretch& raw) {
        V last = V::load_aligned(table.at);
        V bent = bentWave(controls, last);
        bent.store_aligned(raw.at);
        for (int i = kLanes; i < 2 * frames; i += kLanes) {
            const V u = V::load_aligned(table.at + i);
            if (!xsimd::all(u == last)) {
                bent = bentWave(controls, u);
                last = u;
            }
            bent.store_aligned(raw.at + i);
        }
    }

    static V bentWave(const Controls& controls, V u) {
        const V one(1.0), two(2.0);
        if (controls.width > 1.0)
            return two * vectormath::pow(u, V(controls.width)) - one;
        const V rest = xsimd::max(one - u, V(0.0));
        if (controls.inverseWidth > 1.0)
            return one - two * vectormath::pow(rest, V(controls.inverseWidth));
        return one - two * rest;
    }

    /// The width is the pulse width: where the bent sine crosses the middle.
    static void bendSquare(const Controls& controls, const StereoStretch& table, int frames,
                           StereoStretch& raw) {
        const V one(1.0), half(0.5);
        for (int i = 0; i < 2 * frames; i += kLanes) {
            const V u = V::load_aligned(table.at + i);
            if (controls.width > 1.0) {
                const V bent = vectormath::pow(u, V(controls.width));
                xsimd::select(bent < half, -one, one).store_aligned(raw.at + i);
            } else {
                const V rest = one - u;
                const V bent = controls.inverseWidth > 1.0
                                   ? vectormath::pow(rest, V(controls.inverseWidth))
                                   : rest;
                xsimd::select(bent > half, -one, one).store_aligned(raw.at + i);
            }
        }
    }

    /// Peaks up are bent by the width, peaks down by its inverse.
    ///
    /// The left channel's negative half reads the right channel's position. With spread turned up
    /// the spikes pull apart unevenly; saved songs rely on that sound, so it stays.
    static void bendSpike(const Controls& controls, const StereoStretch& table, int frames,
                          StereoStretch& raw) {
        StereoStretch base, exponent;
        for (int i = 0; i < frames; ++i) {
            const double left = table.at[2 * i];
            const double right = table.at[2 * i + 1];
            const double rightMagnitude = right > 0.0 ? right : -right;
            base.at[2 * i] = left > 0.0 ? left : rightMagnitude;
            exponent.at[2 * i] = left > 0.0 ? controls.width : controls.inverseWidth;
            base.at[2 * i + 1] = rightMagnitude;
            exponent.at[2 * i + 1] = right > 0.0 ? controls.width : controls.inverseWidth;
        }
        for (int i = 0; i < 2 * frames; i += kLanes) {
            const V bent =
                vectormath::pow(V::load_aligned(base.at + i), V::load_aligned(exponent.at + i));
            const V u = V::load_aligned(table.at + i);
            xsimd::select(u > V(0.0), bent, -bent).store_aligned(raw.at + i);
        }
    }

    static void smooth(State& state, double coefficient, const StereoStretch& raw, int frames,
                       StereoStretch& smoothedWave) {
        const Pair c(coefficient);
        Pair value = Pair::load_unaligned(state.smoothed);
        for (int i = 0; i < frames; ++i) {
            const Pair target = Pair::load_aligned(raw.at + 2 * i);
            value = guarded(value + (target - value) * c);
            value.store_aligned(smoothedWave.at + 2 * i);
        }
        value.store_unaligned(state.smoothed);
    }
};

} // namespace pedl
