#include "engine/CutoffPath.h"

#include "engine/Stages.h"
#include "parameters/ValueLaws.h"

#include <array>

namespace pedl {

/// One power in 27 is asked of the library, those between are products with the first 27: the last
/// bits may differ. The highest is exact, since it chooses the last entry of other tables.
CutoffTable::CutoffTable() {
    constexpr std::size_t kSteps = 27;
    static_assert(kEntries % kSteps == 0);
    const auto power = [](std::size_t entry) {
        return laws::cutoffRatio(static_cast<double>(entry) / (kEntries - 1.0));
    };
    std::array<double, kSteps> steps;
    for (std::size_t i = 0; i < kSteps; ++i)
        steps[i] = power(i);
    for (std::size_t first = 0; first < kEntries; first += kSteps) {
        const double firstHz = laws::kLowestCutoffHz * power(first);
        for (std::size_t i = 0; i < kSteps; ++i)
            hz_[first + i] = firstHz * steps[i];
    }
    hz_[kEntries - 1] = laws::kHighestCutoffHz;
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
