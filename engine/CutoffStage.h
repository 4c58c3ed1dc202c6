#pragma once

#include "engine/CutoffPath.h"
#include "engine/Lanes.h"

#include <cstdint>

namespace pedl {

/// Inner loops of the cut-off path.
template <typename Lanes> struct CutoffStage {
    using Pair = typename Lanes::Pair;

    static void run(CutoffPath::State& state, const CutoffPath::Controls& controls,
                    const MonoStretch& depth, const StereoStretch& wave, const MonoStretch& offset,
                    int frames, CutoffStretch& output) {
        const Pair c(controls.coefficient), base(controls.base);
        Pair first = Pair::load_unaligned(state.smoothers[0]);
        Pair second = Pair::load_unaligned(state.smoothers[1]);
        Pair third = Pair::load_unaligned(state.smoothers[2]);
        for (int i = 0; i < frames; ++i) {
            const Pair x =
                Pair(controls.lfoAmount * depth.at[i]) * Pair::load_aligned(wave.at + 2 * i) + base;
            first = guarded(first + (x - first) * c);
            second = guarded(second + (first - second) * c);
            third = guarded(third + (second - third) * c);
            look(controls, third, offset.at[i], output.hz.at + 2 * i);
        }
        first.store_unaligned(state.smoothers[0]);
        second.store_unaligned(state.smoothers[1]);
        third.store_unaligned(state.smoothers[2]);
        output.isConstant = isConstant(output.hz, frames);
    }

private:
    static void look(const CutoffPath::Controls& controls, Pair position, double offset,
                     double* hz) {
        constexpr double kLast = CutoffTable::kEntries - 1;
        const Pair index = (position + Pair(offset)) * Pair(kLast);
        alignas(16) double inside[2];
        xsimd::min(xsimd::max(index, Pair(0.0)), Pair(kLast)).store_aligned(inside);
        hz[0] = controls.table->hz(static_cast<std::int32_t>(inside[0]));
        hz[1] = controls.table->hz(static_cast<std::int32_t>(inside[1]));
    }

    static bool isConstant(const StereoStretch& hz, int frames) {
        bool isSame = true;
        for (int i = 1; i < frames; ++i)
            isSame &= (hz.at[2 * i] == hz.at[0]) & (hz.at[2 * i + 1] == hz.at[1]);
        return isSame;
    }
};

} // namespace pedl
