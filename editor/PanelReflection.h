#pragma once

#include "editor/DisplayChoice.h"
#include "editor/Panel.h"

namespace pedl {

/// What the effect's values look like on the panel. Nothing is drawn here: controls are set, put in
/// and taken out, and the next idle draws. Thread: the editor's.
class PanelReflection {
public:
    PanelReflection(Panel& panel, DisplayChoice& display) : panel_(panel), display_(display) {}

    /// The effect has a new value for a parameter or a tag. Shown is what it holds, which may be
    /// another one than `value`.
    void parameterChanged(std::int32_t index, float value, bool isLate);

    /// Four switches of modulations, or the overlay that tells that all are locked off.
    void swapModulationLock();

private:
    void showOwnValue(std::int32_t index);
    void showLamp(std::int32_t button, std::int32_t lamp, float value);
    void showFreezeMode(float value, bool isLate);
    void showLevel(std::int32_t index);
    void showScale(float value);
    void redraw(std::int32_t tag);

    Panel& panel_;
    DisplayChoice& display_;
};

} // namespace pedl
