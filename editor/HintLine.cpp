#include "editor/HintLine.h"

#include "controls/CZMTHitHintLabel2.h"
#include "parameters/BarTag.h"
#include "presets/HintText.h"

#include <array>
#include <utility>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr TickMs kBlankMs = 1500; // between the last hint and the idle text
constexpr TickMs kMessageMs = 5000;
constexpr CColor kPlain(255, 255, 255, 180);
constexpr CColor kLink(130, 180, 255, 180);

/// Tags of values that have no control, and of nothing.
constexpr bool isTagOfNothing(std::int32_t tag) {
    return tag >= kDryWetAltVol && tag < kAllParams;
}

} // namespace

CControl* controlAt(const CFrame& frame, const CPoint& where) {
    return dynamic_cast<CControl*>(frame.getViewAt(where));
}

void HintLine::say(std::string message) {
    message_ = std::move(message);
    messageTime_ = IPlatformFrame::getTicks();
}

bool HintLine::isMessageFresh(TickMs now) const {
    return !message_.empty() && now - messageTime_ < kMessageMs;
}

bool HintLine::hasHint() const {
    return areHintsEnabled_ && !isTagOfNothing(hoverTag_);
}

std::string HintLine::hintOf(CPresetSystemEffect& effect) const {
    std::array<char, kHintTextLength + 1> text{};
    if (hoverTag_ < kAllParams)
        effect.getHintText(hoverTag_, text.data());
    else
        effect.getPresetBarHintText(hoverTag_, text.data());
    return text.data();
}

void HintLine::idle(CPresetSystemEffect& effect, const CFrame& frame, const ControlSet& controls,
                    const MouseState& mouse) {
    auto* const line = controls.find<CZMTHitHintLabel2>(kHintLabel);
    if (!line)
        return;
    const TickMs now = IPlatformFrame::getTicks();
    const std::string idleText(kWebAddressShort);
    if (!mouse.isAnyButtonDown()) { // a drag keeps its hint wherever it goes
        const CControl* const hovered = controlAt(frame, mouse.where);
        hoverTag_ = hovered ? hovered->getTag() : kNoTag;
    }
    CRect link;
    line->getLinkRect(link);
    if (isMessageFresh(now))
        return line->showPlainHint(message_.c_str(), kPlain);
    if (link.pointInside(mouse.where))
        return line->showLinkHint(idleText.c_str(), kLink);
    if (hasHint()) {
        line->showPlainHint(hintOf(effect).c_str(), kPlain);
        lastHintTime_ = now;
        return;
    }
    const bool isBlank = areHintsEnabled_ && now - lastHintTime_ <= kBlankMs;
    const char* const shown = line->getText();
    if (isBlank && !(shown && shown == idleText))
        return line->showPlainHint("", kPlain);
    line->showPlainHint(idleText.c_str(), kPlain);
    lastHintTime_ = 0;
}

} // namespace pedl
