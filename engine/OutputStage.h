#pragma once

#include "engine/Lanes.h"
#include "engine/OutputLimiter.h"
#include "engine/SoftSaturator.h"
#include "engine/VectorMath.h"

namespace pedl {

/// Inner loops of the limiter and the saturator.
template <typename Lanes> struct OutputStage {
    using V = typename Lanes::Wide;
    static constexpr int kLanes = static_cast<int>(V::size);

    static void limit(OutputLimiter::State& state, const OutputLimiter::Controls& controls,
                      StereoStretch& io, int frames) {
        state.drive.advance(controls.drive, controls.smoothing, frames);
        follow(state, controls, io, frames);
        constexpr double kKnee = 2.0;   // envelope from which on the output stands at the ceiling
        constexpr double kSlope = 0.25; // of the gain below it: both curves meet smoothly there
        const V one(1.0);
        double gains[kLanes];
        for (int i = 0; i < frames; i += kLanes) {
            const V envelope = V::load_aligned(state.envelopes.at + i);
            const V gain =
                xsimd::select(envelope >= V(kKnee), one / envelope, one - envelope * V(kSlope));
            const auto both = doubled(gain);
            double* const at = io.at + 2 * i;
            (V::load_aligned(at) * both.first).store_aligned(at);
            (V::load_aligned(at + kLanes) * both.second).store_aligned(at + kLanes);
            gain.store_unaligned(gains);
        }
        state.gain = gains[(frames - 1) % kLanes];
    }

    static void saturate(SoftSaturator::State& state, const SoftSaturator::Controls& controls,
                         StereoStretch& io, int frames) {
        state.drive.advance(controls.drive, controls.smoothing, frames);
        const MonoStretch& drives = state.drive.stretch();
        double peak = 0.0;
        for (int i = 0; i < frames; ++i) {
            const double left = io.at[2 * i] * drives.at[i];
            const double right = io.at[2 * i + 1] * drives.at[i];
            const double sum = __builtin_fabs(left) + __builtin_fabs(right);
            peak = sum > peak ? sum : peak;
        }
        state.peak = peak;
        if (!controls.isHeard)
            return;
        for (int i = 0; i < frames; i += kLanes) {
            const auto drive = doubled(V::load_aligned(drives.at + i));
            double* const at = io.at + 2 * i;
            bend(at, drive.first);
            bend(at + kLanes, drive.second);
        }
    }

private:
    static void bend(double* at, V drive) {
        (vectormath::tanh(V::load_aligned(at) * drive) / drive).store_aligned(at);
    }

    /// The envelope frame by frame: up towards a louder peak, down at a pace that grows with the
    /// fourth power of the distance.
    static void follow(OutputLimiter::State& state, const OutputLimiter::Controls& controls,
                       const StereoStretch& io, int frames) {
        constexpr double kFastestFall = -0.0333; // of the distance, in one frame
        constexpr double kFallScale = 0.145;
        constexpr double kFloor = 0.001;
        constexpr double kRestLevel = 0.999; // of a steady peak; with the floor 1 at the ceiling
        const double fallSpeed = controls.release * kFallScale;
        const MonoStretch& drives = state.drive.stretch();
        double envelope = state.envelope;
        for (int i = 0; i < frames; ++i) {
            const double left = __builtin_fabs(io.at[2 * i]);
            const double right = __builtin_fabs(io.at[2 * i + 1]);
            const double peak = (left > right ? left : right) * drives.at[i];
            const double distance = peak - envelope;
            const double rise = (distance > 0.0 ? distance : 0.0) * controls.attack;
            const double rest = peak * kRestLevel + kFloor - envelope;
            const double square = rest * rest;
            const double slow = square * square * fallSpeed;
            const double fast = kFastestFall * distance; // below 0 while the peak is above
            const double fall = slow < fast ? slow : fast;
            // One of both is 0: the order of the sum, short for the recursion, costs no rounding.
            envelope += rise - (fall > 0.0 ? fall : 0.0);
            envelope = envelope > kFloor ? envelope : kFloor;
            state.envelopes.at[i] = envelope;
        }
        state.envelope = envelope;
    }
};

} // namespace pedl
