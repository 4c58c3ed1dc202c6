#pragma once

#include "controls/Counted.h"
#include "editor/ControlLayout.h"
#include "editor/EditorSurroundings.h"
#include "presets/CPresetSystemEffect.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/ccolor.h"
#include "vstgui/lib/cfont.h"
#include "vstgui/lib/controls/ccontrol.h"
#include "vstgui/lib/controls/coptionmenu.h"

#include <array>
#include <cstddef>

namespace pedl {

// Colours of values and texts.
constexpr VSTGUI::CColor kInkOnIvory(50, 50, 50, 255);
constexpr VSTGUI::CColor kInkOnPetrol(194, 194, 193, 255);
constexpr VSTGUI::CColor kInkOnCream(36, 36, 32, 255);

/// What every control of an editor is made with.
struct ControlMakings {
    VSTGUI::CControlListener* listener;
    CPresetSystemEffect* effect; // values and their texts
    VSTGUI::CBitmap* face;       // what lies behind all controls
    VSTGUI::CFontRef labelFont;  // of the values on the plate
    VSTGUI::CFontRef barFont;    // of hints and texts of the bar
    const EditorSurroundings* surroundings;
};

/// The bitmaps that a row names, for as long as its control is being made.
class RowBitmaps {
public:
    explicit RowBitmaps(const ControlRow& row);

    [[nodiscard]] bool areLoaded() const { return areLoaded_; }
    [[nodiscard]] VSTGUI::CBitmap* operator[](std::size_t index) const { return bitmaps_[index]; }

private:
    std::array<Counted<VSTGUI::CBitmap>, 4> bitmaps_;
    bool areLoaded_ = true;
};

/// Makes the control of a row, with its first value: one of the panel's kinds.
/// @return null where a bitmap is missing
VSTGUI::CControl* buildPanelControl(const ControlRow& row, const ControlMakings& makings);

/// The same for the preset bar's kinds.
VSTGUI::CControl* buildBarControl(const ControlRow& row, const ControlMakings& makings);

/// The program menu's mark, and where its keys and its opening go on from.
void markProgram(VSTGUI::COptionMenu& menu, std::int32_t slot);

[[nodiscard]] inline VSTGUI::CRect rectOf(const Place& place) {
    return {place.left, place.top, place.right, place.bottom};
}

/// The text of the effect's value; `userData` is a `CPresetSystemEffect` or null.
void writeParameterText(float value, char* text, void* userData, std::int32_t tag);

} // namespace pedl
