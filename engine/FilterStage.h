#pragma once

#include "engine/CutoffPath.h"
#include "engine/Lanes.h"
#include "engine/MultimodeFilter.h"
#include "engine/VectorMath.h"
#include "parameters/ValueLaws.h"

#include <cstdint>

namespace pedl {

/// Inner loops of the multimode filter: coefficients as wide as the registers are, then the zeros'
/// glide and the two biquads frame by frame.
template <typename Lanes> struct FilterStage {
    using V = typename Lanes::Wide;
    using Pair = typename Lanes::Pair;
    using State = MultimodeFilter::State;
    using Work = MultimodeFilter::Work;
    using Controls = MultimodeFilter::Controls;
    static constexpr int kLanes = static_cast<int>(V::size);
    static constexpr int kFewest = kLanes > 2 ? kLanes : 2; ///< lanes of one constant frame

    static void run(State& state, const Controls& controls, StereoStretch& io,
                    const CutoffStretch& cutoff, int frames) {
        state.q.advance(controls.q, controls.smoothing, frames);
        state.type.advance(controls.type, controls.smoothing, frames);
        state.slope.advance(controls.slope, controls.smoothing, frames);

        const bool isFixed = cutoff.isConstant && state.q.isConstant() && state.type.isConstant();
        if (isFixed) {
            poles(state, controls, cutoff, kFewest);
            zeroTargets(state, controls, kFewest);
            if (areZerosAtRest(state, controls)) {
                holdZeros(state, kFewest);
                numerators(state.work, kFewest);
                biquads(state, io, 0, frames);
                return;
            }
        }
        const int lanes = 2 * frames;
        poles(state, controls, cutoff, lanes);
        zeroTargets(state, controls, lanes);
        if (isTypeAtEnd(state) && areZerosAtRest(state, controls))
            holdZeros(state, lanes);
        else
            glide(state, controls, frames);
        numerators(state.work, lanes);
        biquads(state, io, 2, frames);
    }

private:
    /// The values of `mono` for the stereo register at `lane`.
    static V spread(const MonoStretch& mono, int lane) {
        const auto both = doubled(V::load_aligned(mono.at + lane / (2 * kLanes) * kLanes));
        return lane % (2 * kLanes) == 0 ? both.first : both.second;
    }

    /// Cut-off, effective resonance, gain staging and denominator.
    static void poles(State& state, const Controls& controls, const CutoffStretch& cutoff,
                      int lanes) {
        Work& work = state.work;
        constexpr double kSpanHz = laws::kHighestCutoffHz - laws::kLowestCutoffHz;
        constexpr double kPositionsPerHz = (TrigonometryTable::kEntries - 1) / kSpanHz;
        const V one(1.0), low(laws::kLowestCutoffHz), high(laws::kHighestCutoffHz);
        for (int i = 0; i < lanes; i += kLanes) {
            const V hz = V::load_aligned(cutoff.hz.at + i);
            const V inside = (xsimd::abs(hz - low) + (low + high) - xsimd::abs(hz - high)) * V(0.5);
            inside.store_aligned(work.cutoffHz.at + i);
            ((inside - low) * V(kPositionsPerHz) + V(0.5)).store_aligned(work.position.at + i);
        }
        for (int i = 0; i < lanes; ++i) {
            const SineCosine& at =
                (*controls.trigonometry)[static_cast<std::int32_t>(work.position.at[i])];
            work.sine.at[i] = at.sine;
            work.cosine.at[i] = at.cosine;
        }
        for (int i = 0; i < lanes; i += kLanes) {
            const V hz = V::load_aligned(work.cutoffHz.at + i);
            const V sine = V::load_aligned(work.sine.at + i);
            const V cosine = V::load_aligned(work.cosine.at + i);
            const V smoothedQ = spread(state.q.stretch(), i);
            // The resonance comes down as the cut-off nears Nyquist.
            const V way = hz * V(controls.inverseTopHz);
            const V way2 = way * way;
            const V q = (one - way2 * way2 * way2) * smoothedQ;
            // Above a Q of 1 the numerator bears the gain, below it the input does.
            xsimd::min(q, one).store_aligned(work.inputScale.at + i);
            xsimd::max(q, one).store_aligned(work.numeratorScale.at + i);
            const V alpha = sine / (V(2.0) * q);
            const V a0 = one + alpha;
            (V(-2.0) * cosine / a0).store_aligned(work.a1.at + i);
            ((one - alpha) / a0).store_aligned(work.a2.at + i);
            ((one - cosine) / a0).store_aligned(work.alphaGain.at + i);
            const V drive = V(controls.saturationScale) * smoothedQ * hz;
            drive.store_aligned(work.drive.at + i);
            (one / drive).store_aligned(work.inverseDrive.at + i);
        }
    }

    /// At a pure low-pass or high-pass both zeros meet, whatever the cut-off.
    static bool isTypeAtEnd(const State& state) {
        const double type = state.type.value();
        return state.type.isConstant() && (type == 0.0 || type == 1.0);
    }

    /// Where the zeros are to go.
    static void zeroTargets(State& state, const Controls& controls, int lanes) {
        if (!isTypeAtEnd(state)) {
            morphTargets(state, controls, lanes);
            return;
        }
        const V end(2.0 * state.type.value() - 1.0);
        for (int i = 0; i < lanes; i += kLanes) {
            end.store_aligned(state.work.zero1.at + i);
            end.store_aligned(state.work.zero2.at + i);
        }
    }

    static void morphTargets(State& state, const Controls& controls, int lanes) {
        Work& work = state.work;
        for (int i = 0; i < lanes; ++i) {
            const auto hz = static_cast<std::size_t>(work.cutoffHz.at[i]);
            const bool isUpper = state.type.stretch().at[i / 2] > 0.5;
            work.exponent.at[i] =
                isUpper ? controls.morph->towardsHighPass[hz] : controls.morph->towardsLowPass[hz];
        }
        const V one(1.0), two(2.0);
        // A type at rest has one logarithm for the whole stretch.
        const double type0 = state.type.value();
        const V restBase(type0 <= 0.5 ? 2.0 * type0 : 2.0 - 2.0 * type0);
        const V restLogarithm = logarithm(restBase);
        for (int i = 0; i < lanes; i += kLanes) {
            const V type = spread(state.type.stretch(), i);
            const auto isLower = type <= V(0.5);
            const V base = state.type.isConstant()
                               ? restBase
                               : xsimd::select(isLower, two * type, two - two * type);
            const V logBase = state.type.isConstant() ? restLogarithm : logarithm(base);
            const V power = vectormath::exp(V::load_aligned(work.exponent.at + i) * logBase);
            const V way = xsimd::select(base > V(0.0), power, V(0.0));
            xsimd::select(isLower, -one, one - two * way).store_aligned(work.zero1.at + i);
            xsimd::select(isLower, two * way - one, one).store_aligned(work.zero2.at + i);
        }
    }

    static V logarithm(V base) {
        constexpr double kSmallestBase = 1e-300;
        return vectormath::log(xsimd::max(base, V(kSmallestBase)));
    }

    static Pair glided(Pair zero, Pair target, Pair step) {
        return guarded(zero + (target - zero) * step);
    }

    /// Whether the zeros stay where they are for targets that stay, too.
    static bool areZerosAtRest(const State& state, const Controls& controls) {
        const Pair step(controls.inverseGlideFrames);
        const Pair zero1 = Pair::load_aligned(state.zero1);
        const Pair zero2 = Pair::load_aligned(state.zero2);
        const auto stays1 = glided(zero1, Pair::load_aligned(state.work.zero1.at), step) == zero1;
        const auto stays2 = glided(zero2, Pair::load_aligned(state.work.zero2.at), step) == zero2;
        return xsimd::all(stays1) && xsimd::all(stays2);
    }

    static void holdZeros(State& state, int lanes) {
        for (int i = 0; i < lanes; i += 2) {
            Pair::load_aligned(state.zero1).store_aligned(state.work.zero1.at + i);
            Pair::load_aligned(state.zero2).store_aligned(state.work.zero2.at + i);
        }
    }

    /// Moves the zeros towards their targets: type changes are heard as a glide, not as a click.
    static void glide(State& state, const Controls& controls, int frames) {
        Work& work = state.work;
        const Pair step(controls.inverseGlideFrames);
        Pair zero1 = Pair::load_aligned(state.zero1);
        Pair zero2 = Pair::load_aligned(state.zero2);
        for (int i = 0; i < 2 * frames; i += 2) {
            zero1 = glided(zero1, Pair::load_aligned(work.zero1.at + i), step);
            zero2 = glided(zero2, Pair::load_aligned(work.zero2.at + i), step);
            zero1.store_aligned(work.zero1.at + i);
            zero2.store_aligned(work.zero2.at + i);
        }
        zero1.store_aligned(state.zero1);
        zero2.store_aligned(state.zero2);
    }

    /// Numerators, scaled so that the response at the cut-off is 1 (times the numerator scale).
    static void numerators(Work& work, int lanes) {
        const V one(1.0);
        for (int i = 0; i < lanes; i += kLanes) {
            const V zero1 = V::load_aligned(work.zero1.at + i);
            const V zero2 = V::load_aligned(work.zero2.at + i);
            const V b0 = V::load_aligned(work.alphaGain.at + i);
            const V b1 = -(zero1 + zero2) * b0;
            const V b2 = zero1 * zero2 * b0;
            const V a1 = V::load_aligned(work.a1.at + i);
            const V a2 = V::load_aligned(work.a2.at + i);
            const V sine = V::load_aligned(work.sine.at + i);
            const V cosine = V::load_aligned(work.cosine.at + i);
            const V cosine2 = one - V(2.0) * (sine * sine);
            const V sine2 = V(2.0) * sine * cosine;
            const V nRe = b0 + b1 * cosine + b2 * cosine2;
            const V nIm = b1 * sine + b2 * sine2;
            const V dRe = one + a1 * cosine + a2 * cosine2;
            const V dIm = a1 * sine + a2 * sine2;
            const V n = nRe * nRe + nIm * nIm;
            const V d = dRe * dRe + dIm * dIm;
            // A numerator that vanishes at the cut-off silences the stage.
            const V scale = xsimd::select(n > V(0.0), xsimd::sqrt(d / n), V(0.0)) *
                            V::load_aligned(work.numeratorScale.at + i);
            (b0 * scale).store_aligned(work.b0.at + i);
            (b1 * scale).store_aligned(work.b1.at + i);
            (b2 * scale).store_aligned(work.b2.at + i);
        }
    }

    /// One biquad with its clip, whose curve u (u^2 + 27) / (9 u^2 + 27), close to a hyperbolic
    /// tangent, reaches exactly 1 at u = 3. The clipped value is what the recursion goes on with.
    struct Biquad {
        Pair x1, x2, y1, y2;

        explicit Biquad(const MultimodeFilter::History& history)
            : x1(Pair::load_aligned(history.x1)), x2(Pair::load_aligned(history.x2)),
              y1(Pair::load_aligned(history.y1)), y2(Pair::load_aligned(history.y2)) {}

        Pair next(Pair x, const Work& work, int at) {
            const Pair three(3.0), nine(9.0), k27(27.0);
            const Pair forward = x * Pair::load_aligned(work.b0.at + at) +
                                 Pair::load_aligned(work.b1.at + at) * x1 +
                                 Pair::load_aligned(work.b2.at + at) * x2;
            const Pair back =
                Pair::load_aligned(work.a1.at + at) * y1 + Pair::load_aligned(work.a2.at + at) * y2;
            const Pair y = guarded(forward - back);
            const Pair u =
                xsimd::min(xsimd::max(Pair::load_aligned(work.drive.at + at) * y, -three), three);
            const Pair square = u * u;
            const Pair clipped = u * Pair::load_aligned(work.inverseDrive.at + at) *
                                 (square + k27) / (nine * square + k27);
            x2 = x1;
            x1 = x;
            y2 = y1;
            y1 = clipped;
            return clipped;
        }

        void store(MultimodeFilter::History& history) const {
            x1.store_aligned(history.x1);
            x2.store_aligned(history.x2);
            y1.store_aligned(history.y1);
            y2.store_aligned(history.y2);
        }
    };

    /// @param step lanes from one frame's coefficients to the next: 0 when they are constant
    static void biquads(State& state, StereoStretch& io, int step, int frames) {
        const Work& work = state.work;
        const MonoStretch& slopes = state.slope.stretch();
        Biquad first(state.stages[0]);
        Biquad second(state.stages[1]);
        for (int i = 0, at = 0; i < frames; ++i, at += step) {
            const Pair inputScale = Pair::load_aligned(work.inputScale.at + at);
            const Pair slope12 =
                first.next(Pair::load_aligned(io.at + 2 * i) * inputScale, work, at);
            const Pair slope24 = second.next(slope12 * inputScale, work, at);
            const Pair slope(slopes.at[i]);
            ((Pair(1.0) - slope) * slope12 + slope * slope24).store_aligned(io.at + 2 * i);
        }
        first.store(state.stages[0]);
        second.store(state.stages[1]);
    }
};

} // namespace pedl
