#include "controls/CpedlFilterRadioSlider.h"

#include "parameters/ValueLaws.h"

#include <algorithm>
#include <cmath>

namespace pedl {

float CpedlFilterRadioSlider::valueAfterKey(bool isUpwards, bool isFine) const {
    const double ratio = isFine ? std::exp2(1.0 / 12.0) : 2.0;
    const double hz = laws::kLowestCutoffHz * laws::cutoffRatio(static_cast<double>(value));
    const double moved = std::clamp(isUpwards ? hz * ratio : hz / ratio, laws::kLowestCutoffHz,
                                    laws::kHighestCutoffHz);
    return static_cast<float>(std::log10(moved / laws::kLowestCutoffHz) /
                              std::log10(laws::kHighestCutoffHz / laws::kLowestCutoffHz));
}

} // namespace pedl
