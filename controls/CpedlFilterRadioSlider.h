#pragma once

#include "controls/CpedlRadioSlider.h"

namespace pedl {

/// The slider of the cut-off frequency, 20 Hz to 20 kHz: an arrow key moves it by an octave, with
/// Shift by a semitone.
class CpedlFilterRadioSlider : public CpedlRadioSlider {
public:
    using CpedlRadioSlider::CpedlRadioSlider;
    CLASS_METHODS(CpedlFilterRadioSlider, CpedlRadioSlider)

protected:
    ~CpedlFilterRadioSlider() override = default;
    [[nodiscard]] float valueAfterKey(bool isUpwards, bool isFine) const override;
};

} // namespace pedl
