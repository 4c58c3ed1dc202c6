#pragma once

#include "engine/Lanes.h"
#include "engine/Stretch.h"
#include "engine/VectorMath.h"

namespace pedl {

/// Inner loops of the signal path between the classes: input, gains, blends.
template <typename Lanes> struct SignalStage {
    using V = typename Lanes::Wide;
    static constexpr int kLanes = static_cast<int>(V::size);

    static void input(StereoStretch& raw, double gain, StereoStretch& gained, int frames) {
        // Larger than any sample that a float can hold after the largest gain, and small enough
        // that no square or product behind it overflows.
        constexpr double kBound = 1e60;
        constexpr double kLargest = 1.7976931348623157e308;
        const V guard(kDenormalGuard), bound(kBound), zero(0.0);
        for (int i = 0; i < 2 * frames; i += kLanes) {
            const V sample = V::load_aligned(raw.at + i);
            // False for infinite samples and for NaN.
            const auto isFinite = xsimd::abs(sample) <= V(kLargest);
            const V clean = xsimd::select(isFinite, sample, zero) + guard - guard;
            clean.store_aligned(raw.at + i);
            xsimd::min(xsimd::max(clean * V(gain), -bound), bound).store_aligned(gained.at + i);
        }
    }

    static void lfoGain(const MonoStretch& depth, const MonoStretch& amount,
                        const StereoStretch& wave, int frames, StereoStretch& gain) {
        for (int i = 0; i < frames; i += kLanes) {
            const auto exponent =
                doubled(V::load_aligned(depth.at + i) * V::load_aligned(amount.at + i));
            const double* const from = wave.at + 2 * i;
            double* const to = gain.at + 2 * i;
            bounded(exponent.first * V::load_aligned(from)).store_aligned(to);
            bounded(exponent.second * V::load_aligned(from + kLanes)).store_aligned(to + kLanes);
        }
    }

    static void wet(StereoStretch& wet, const StereoStretch& dry, double blend,
                    const StereoStretch& gain, const MonoStretch& envelopeGain, double makeup,
                    int frames) {
        const V on(blend), off(1.0 - blend), make(makeup);
        for (int i = 0; i < frames; i += kLanes) {
            const auto envelope = doubled(V::load_aligned(envelopeGain.at + i));
            for (int half = 0; half < 2; ++half) {
                const int at = 2 * i + half * kLanes;
                const V blended =
                    on * V::load_aligned(wet.at + at) + off * V::load_aligned(dry.at + at);
                const V level = half == 0 ? envelope.first : envelope.second;
                (blended * V::load_aligned(gain.at + at) * level * make).store_aligned(wet.at + at);
            }
        }
    }

    static void mix(StereoStretch& a, double aGain, const StereoStretch& b, double bGain,
                    int frames) {
        const V aScale(aGain), bScale(bGain);
        for (int i = 0; i < 2 * frames; i += kLanes)
            (V::load_aligned(a.at + i) * aScale + V::load_aligned(b.at + i) * bScale)
                .store_aligned(a.at + i);
    }

    static double largestSum(const StereoStretch& stretch, int frames) {
        double largest = 0.0;
        for (int i = 0; i < frames; ++i) {
            const double sum =
                __builtin_fabs(stretch.at[2 * i]) + __builtin_fabs(stretch.at[2 * i + 1]);
            largest = sum > largest ? sum : largest;
        }
        return largest;
    }

private:
    /// 2^exponent through a tangent that bounds it at 4.08 and leaves 1 where it is.
    static V bounded(V exponent) {
        constexpr double kPush = 0.25;
        constexpr double kPull = 4.082988; // 1 / tanh(0.25)
        const V gain = V(kPull) * vectormath::tanh(V(kPush) * vectormath::exp2(exponent));
        return xsimd::max(gain, V(0.0));
    }
};

} // namespace pedl
