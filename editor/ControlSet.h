#pragma once

#include "controls/Counted.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/controls/ccontrol.h"

#include <cstdint>
#include <vector>

namespace pedl {

/// The controls of an open window, found by their tags.
///
/// Holds a reference to each, so that one that is not in the frame at the moment lives on. Empty
/// while the window is closed; whoever looks then finds null. Thread: the editor's.
class ControlSet {
public:
    /// Takes the creator's reference of a control over.
    void add(std::int32_t tag, VSTGUI::CControl* control);
    void clear() { controls_.clear(); }

    /// The first control with this tag that is a `Control`; null where there is none.
    template <typename Control = VSTGUI::CControl>
    [[nodiscard]] Control* find(std::int32_t tag) const {
        for (const Entry& entry : controls_)
            if (entry.tag == tag)
                if (auto* const control =
                        dynamic_cast<Control*>(static_cast<VSTGUI::CControl*>(entry.control)))
                    return control;
        return nullptr;
    }

    /// Sets the value of each control with this tag.
    void setValue(std::int32_t tag, float value) const;

private:
    struct Entry {
        std::int32_t tag;
        Counted<VSTGUI::CControl> control;
    };
    std::vector<Entry> controls_;
};

/// Puts a control into the frame, to be drawn, unless it is in one, and in sight; nothing for null.
void showIn(VSTGUI::CFrame* frame, VSTGUI::CControl* control);
/// Takes a control out of its frame; it lives on in its set. Nothing for null.
void takeOut(VSTGUI::CFrame* frame, VSTGUI::CControl* control);

} // namespace pedl
