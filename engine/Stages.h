#pragma once

#include "engine/CutoffPath.h"
#include "engine/EnvelopeFollower.h"
#include "engine/InstructionSet.h"
#include "engine/Lfo.h"
#include "engine/MultimodeFilter.h"
#include "engine/OutputLimiter.h"
#include "engine/SoftSaturator.h"
#include "engine/Stretch.h"

namespace pedl {

/// The inner loops of the engine, compiled once for each instruction set. A class loads its
/// settings, calls its stage for a whole stretch, and keeps the state; the stage holds the
/// arithmetic. Recursions go frame by frame in two lanes, all else as wide as the registers are.
///
/// Thread: audio, real time.
struct StageTable {
    void (*envelope)(EnvelopeFollower::State&, const EnvelopeFollower::Controls&,
                     const StereoStretch& gained, int frames, EnvelopeOutput&);
    void (*lfo)(Lfo::State&, const Lfo::Controls&, const MonoStretch& rateHz, int frames,
                LfoOutput&);
    void (*cutoff)(CutoffPath::State&, const CutoffPath::Controls&, const MonoStretch& depth,
                   const StereoStretch& wave, const MonoStretch& offset, int frames,
                   CutoffStretch&);
    void (*filter)(MultimodeFilter::State&, const MultimodeFilter::Controls&, StereoStretch& io,
                   const CutoffStretch& cutoff, int frames);
    void (*limiter)(OutputLimiter::State&, const OutputLimiter::Controls&, StereoStretch& io,
                    int frames);
    void (*saturator)(SoftSaturator::State&, const SoftSaturator::Controls&, StereoStretch& io,
                      int frames);

    /// Replaces what is not finite in `raw` by silence, flushes denormals, and writes `raw` times
    /// `gain` to `gained`.
    void (*input)(StereoStretch& raw, double gain, StereoStretch& gained, int frames);

    /// Output gain by the LFO: 1 without modulation, never above 4.08.
    void (*lfoGain)(const MonoStretch& depth, const MonoStretch& amount, const StereoStretch& wave,
                    int frames, StereoStretch& gain);

    /// wet = (blend * wet + (1 - blend) * dry) * gain * envelopeGain * makeup.
    void (*wet)(StereoStretch& wet, const StereoStretch& dry, double blend,
                const StereoStretch& gain, const MonoStretch& envelopeGain, double makeup,
                int frames);

    /// The largest |L| + |R|.
    double (*largestSum)(const StereoStretch& signal, int frames);

    /// a = a * aGain + b * bGain.
    void (*mix)(StereoStretch& a, double aGain, const StereoStretch& b, double bGain, int frames);
};

/// One for each set of registers, defined in the source that is compiled for it.
extern const StageTable kSse2Stages;
extern const StageTable kAvx2Stages;

[[nodiscard]] const StageTable& stagesFor(InstructionSet instructions) noexcept;

} // namespace pedl
