#pragma once

#include "engine/ChangeMarks.h"
#include "engine/FilterTables.h"
#include "engine/InstructionSet.h"
#include "engine/Smoothing.h"
#include "engine/Stretch.h"
#include "foundation/basics/Relaxed.h"

#include <memory>

namespace pedl {

struct CutoffStretch;
struct StageTable;

/// Stereo resonant filter that morphs from low-pass over band-pass to high-pass by moving its two
/// zeros, at 12 or 24 dB an octave, with a saturation inside the recursion that tames the resonance
/// rather than the input.
///
/// Denominator: R. Bristow-Johnson, "Audio EQ Cookbook", low-pass. The numerator is scaled so that
/// the gain at the cut-off is the effective resonance, whatever the type.
///
/// Threads: setters any, real time; `process` audio, real time; the rest while no audio
/// runs.
class MultimodeFilter {
public:
    explicit MultimodeFilter(double sampleRateHz,
                             InstructionSet instructions = widestInstructionSet());

    /// Prepares the filter for a rate and resets it.
    /// @param sampleRateHz 20000..400000; any other counts as 44100
    void setSampleRate(double sampleRateHz);

    /// @param type 0 low-pass .. 0.5 band-pass .. 1 high-pass
    void setType(double type) noexcept;
    /// @param resonance 0..1: Q 0.3..30 at 12 dB/oct, 0.5..5 at 24 dB/oct
    void setResonance(double resonance) noexcept;
    /// @param is24Db two stages in a row instead of one
    void setSlope(bool is24Db) noexcept;
    /// @param saturation 0.001 (as good as linear) .. 2
    void setSaturation(double saturation) noexcept;

    /// Ends all ramps, empties the histories and puts the zeros to low-pass; another type then
    /// glides in.
    void reset() noexcept;

    /// Filters in place.
    /// @param cutoff Hz; outside 20..20000 taken as the nearer bound
    void process(StereoStretch& io, const CutoffStretch& cutoff, int frames) noexcept;

    /// History of one biquad, direct form I, left and right.
    struct alignas(16) History {
        double x1[2] = {}, x2[2] = {}, y1[2] = {}, y2[2] = {};
    };

    /// Coefficients and slewed zeros of a stretch.
    struct Work {
        StereoStretch cutoffHz, resonance, position;
        StereoStretch sine, cosine, exponent;
        StereoStretch inputScale, numeratorScale, alphaGain;
        StereoStretch a1, a2, b0, b1, b2, drive, inverseDrive;
        StereoStretch zero1, zero2;
    };

    struct State {
        StretchSmoother q, type, slope;
        alignas(16) double zero1[2] = {-1.0, -1.0};
        alignas(16) double zero2[2] = {-1.0, -1.0};
        History stages[2];
        Work work;
    };

    struct Controls {
        double q = 0.3, type = 0.0, slope = 0.0; ///< targets
        double smoothing = 1.0;                  ///< coefficient of the three
        double saturationScale = 0.0;            ///< drive of the clip per Q and Hz
        double inverseGlideFrames = 1.0;
        double inverseTopHz = 0.0; ///< 1 / the cut-off at which no resonance is left
        const TrigonometryTable* trigonometry = nullptr;
        const MorphTable* morph = nullptr;
    };

private:
    enum class Group { Resonance, Saturation };

    void deriveChanged() noexcept;
    void deriveQ() noexcept;
    void deriveSaturationScale() noexcept;

    /// How much of the second stage is wanted, 0 or 1.
    [[nodiscard]] double slopeShare() const noexcept { return is24Db_.get() ? 1.0 : 0.0; }

    const StageTable& stages_;
    const MorphTable& morph_;
    std::shared_ptr<const TrigonometryTable> trigonometry_;
    double sampleRateHz_ = kStartRateHz;
    double smoothing_ = 1.0;
    int glideFrames_ = 1;

    // Written by any thread, read by audio.
    Relaxed<double> type_{0.0}, resonance_{0.0}, saturation_{0.001};
    Relaxed<bool> is24Db_{false};
    ChangeMarks<Group> changes_;

    // Derived from them.
    double q_ = 0.3, saturationScale_ = 0.0;

    State state_;
};

} // namespace pedl
