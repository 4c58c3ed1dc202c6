#pragma once

#include "editor/ControlSet.h"
#include "editor/Panel.h"
#include "presets/CPresetSystemEffect.h"

#include <string>

namespace pedl {

/// What the line below the panel says: the control under the mouse in one sentence, and when there
/// is none, where the maker is found. Thread: the editor's.
class HintLine {
public:
    [[nodiscard]] bool areHintsEnabled() const { return areHintsEnabled_; }
    void enableHints(bool isEnabled) { areHintsEnabled_ = isEnabled; }

    /// Something went wrong, or was done where nothing else shows it: stays for five seconds.
    void say(std::string message);

    /// @param frame  with the hint line among `controls`
    void idle(CPresetSystemEffect& effect, const VSTGUI::CFrame& frame, const ControlSet& controls,
              const MouseState& mouse);

private:
    [[nodiscard]] std::string hintOf(CPresetSystemEffect& effect) const;
    [[nodiscard]] bool hasHint() const;
    [[nodiscard]] bool isMessageFresh(TickMs now) const;

    bool areHintsEnabled_ = true;
    std::int32_t hoverTag_ = kNoTag;
    TickMs lastHintTime_ = 0; // 0: the idle text stands there
    std::string message_;
    TickMs messageTime_ = 0;

    /// The last of the tags that mean no control.
    static constexpr std::int32_t kNoTag = 136;
};

/// The control at a place of the frame, null where there is none.
[[nodiscard]] VSTGUI::CControl* controlAt(const VSTGUI::CFrame& frame, const VSTGUI::CPoint& where);

} // namespace pedl
