#pragma once

#include "controls/ZMTMonoAndBistableButton.h"

namespace pedl {

/// The same button with its ends exchanged: mode 0 rests at the minimum and mode 1 at the maximum,
/// and a toggle starts at the minimum.
class ZMTMonoAndBistableButtonModulator : public ZMTMonoAndBistableButton {
public:
    using ZMTMonoAndBistableButton::ZMTMonoAndBistableButton;
    CLASS_METHODS(ZMTMonoAndBistableButtonModulator, ZMTMonoAndBistableButton)

protected:
    ~ZMTMonoAndBistableButtonModulator() override = default;
    [[nodiscard]] float pressedValue() const override;
    [[nodiscard]] float startValue() const override;
    [[nodiscard]] float secondFrameValue() const override;
};

} // namespace pedl
