#pragma once

#include "engine/InstructionSet.h"
#include "engine/Smoothing.h"
#include "engine/Stretch.h"
#include "foundation/basics/Relaxed.h"

#include <array>

namespace pedl {

struct StageTable;

/// Cut-off frequencies of 20 Hz to 20 kHz in equal steps of pitch: a look-up in place of a power in
/// every frame.
///
/// Threads: `hz` any, real time; `shared` any but audio, since it may have to build.
class CutoffTable {
public:
    static constexpr int kEntries = 99900;

    /// The one table of the process; the first caller builds it.
    [[nodiscard]] static const CutoffTable& shared();

    /// @param index 0..kEntries - 1
    [[nodiscard]] double hz(int index) const noexcept {
        return hz_[static_cast<std::size_t>(index)];
    }

private:
    CutoffTable();
    std::array<double, kEntries> hz_;
};

/// Cut-off of each frame in Hz, left and right.
struct CutoffStretch {
    StereoStretch hz;
    bool isConstant = false; ///< every frame has the cut-off of the first
};

/// Turns the knob, the LFO and the envelope into the cut-off of each channel: the LFO's wave is
/// added to the knob's position, three one-pole smoothers in a row take the edges off the sum, the
/// envelope's offset comes behind them, and a table gives Hz.
///
/// Threads: `setBase` any; `tick` and `process` audio, real time; the rest while no audio runs.
class CutoffPath {
public:
    explicit CutoffPath(InstructionSet instructions = widestInstructionSet());

    /// @param normalised 0..1 for 20 Hz..20 kHz
    void setBase(double normalised) noexcept { base_.set(normalised); }

    /// Ends all ramps at the knob's position.
    void reinitialise() noexcept;

    void tick(const ControlTick& tick) noexcept {
        smoothedBase_ = ticked(smoothedBase_, base_.get(), tick.slow, tick);
    }

    /// @param lfoAmount    LFO depth in normalised cut-off, without the envelope's share
    /// @param depth        the envelope's share of the LFO depth, 0..1
    /// @param wave         LFO, -1..1
    /// @param offset       the envelope's offset, normalised
    /// @param coefficient  of each of the three smoothers
    void process(double lfoAmount, const MonoStretch& depth, const StereoStretch& wave,
                 const MonoStretch& offset, double coefficient, int frames,
                 CutoffStretch& output) noexcept;

    struct State {
        double smoothers[3][2] = {}; ///< three stages, left and right
    };

    struct Controls {
        double lfoAmount = 0.0, base = 0.0, coefficient = 1.0;
        const CutoffTable* table = nullptr;
    };

private:
    const StageTable& stages_;
    const CutoffTable& table_;
    Relaxed<double> base_{0.0}; // written by any thread, read by audio
    double smoothedBase_ = 0.0;
    State state_;
};

} // namespace pedl
