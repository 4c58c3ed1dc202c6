#include "controls/CpedlFilterRadioSlider.h"

#include <algorithm>
#include <cmath>

namespace pedl {

namespace {

constexpr double kLowestHz = 20.0;
constexpr double kHighestHz = 20000.0;
constexpr double kDecades = 3.0; // between the two

} // namespace

float CpedlFilterRadioSlider::valueAfterKey(bool isUpwards, bool isFine) const {
    const double ratio = isFine ? std::exp2(1.0 / 12.0) : 2.0;
    const double hz = kLowestHz * std::pow(1000.0, static_cast<double>(value));
    const double moved = std::clamp(isUpwards ? hz * ratio : hz / ratio, kLowestHz, kHighestHz);
    return static_cast<float>(std::log10(moved / kLowestHz) / kDecades);
}

} // namespace pedl
