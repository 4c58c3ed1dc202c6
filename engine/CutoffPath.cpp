#include "engine/CutoffPath.h"

#include "engine/Stages.h"

#include <cmath>

namespace pedl {

CutoffTable::CutoffTable() {
    for (int i = 0; i < kEntries; ++i)
        hz_[static_cast<std::size_t>(i)] = 20.0 * std::pow(1000.0, i / (kEntries - 1.0));
}

const CutoffTable& CutoffTable::shared() {
    static const CutoffTable table;
    return table;
}

CutoffPath::CutoffPath(InstructionSet instructions)
    : stages_(stagesFor(instructions)), table_(CutoffTable::shared()) {}

void CutoffPath::reinitialise() noexcept {
    smoothedBase_ = base_.get();
    for (auto& stage : state_.smoothers)
        stage[0] = stage[1] = smoothedBase_;
}

void CutoffPath::process(double lfoAmount, const MonoStretch& depth, const StereoStretch& wave,
                         const MonoStretch& offset, double coefficient, int frames,
                         CutoffStretch& output) noexcept {
    stages_.cutoff(state_, {lfoAmount, smoothedBase_, coefficient, &table_}, depth, wave, offset,
                   frames, output);
}

} // namespace pedl
