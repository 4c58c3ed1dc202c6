// How the controls of the preset bar are made, a function for each kind.

#include "controls/CSaveLoadButton.h"
#include "controls/CZMKickButton.h"
#include "controls/CZMOnOffButton.h"
#include "controls/CZMParamDisplay.h"
#include "controls/CZMRockerSwitch.h"
#include "controls/CZMTHitHintLabel2.h"
#include "controls/CZMTTextEdit.h"
#include "controls/ValueToText.h"
#include "editor/ControlBuilder.h"
#include "parameters/CopyText.h"
#include "presets/HintText.h"
#include "presets/MidiNames.h"
#include "resources/SkinTable.h"
#include "vstgui/lib/controls/cmoviebitmap.h"
#include "vstgui/lib/controls/coptionmenu.h"

#include <string>

namespace pedl {

using namespace VSTGUI;

namespace {

CPoint cornerOf(const ControlRow& row) {
    return {row.place.left, row.place.top};
}

std::int32_t frameHeightOf(const ControlRow& row) {
    return skin::findSkinBitmap(row.bitmaps[0])->frameHeight;
}

template <std::string_view (*kTextOf)(float) noexcept>
bool writeListText(float value, char text[kValueTextBytes], void* /*userData*/) {
    copyText(text, kTextOf(value), kValueTextBytes - 1);
    return true;
}

/// Dark text on the bar's cream, without a ground of its own.
void setBarText(CParamDisplay& display, CFontRef font) {
    display.setFont(font);
    display.setFontColor(kInkOnCream);
    display.setTransparency(true);
}

CControl* makeNameEdit(const ControlRow& row, const ControlMakings& with) {
    const ProgramName name = with.effect->bank().name(with.effect->currentSlot());
    auto* const edit = new CZMTTextEdit(rectOf(row.place), with.listener, row.tag,
                                        std::string(nameText(name)).c_str(), with.face, 0, true);
    edit->setBackOffset(cornerOf(row));
    setBarText(*edit, with.labelFont);
    return edit;
}

CControl* makeMenu(const ControlRow& row, const ControlMakings& with) {
    constexpr std::int32_t kEntriesAColumn = 28; // five columns for all programs
    constexpr std::int32_t kInvisible = kPopupStyle | kCheckStyle | kNoTextStyle | kNoDrawStyle;
    auto* const menu =
        new COptionMenu(rectOf(row.place), with.listener, row.tag, with.face, nullptr, kInvisible);
    menu->setBackOffset(cornerOf(row));
    menu->setNbItemsPerColumn(kEntriesAColumn);
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot) {
        const ProgramName name = with.effect->bank().name(slot);
        menu->addEntry(std::string(nameText(name)).c_str());
    }
    markProgram(*menu, with.effect->currentSlot());
    return menu;
}

CControl* makeControllerDisplay(const ControlRow& row, const ControlMakings& with) {
    auto* const display = new CParamDisplay(rectOf(row.place));
    display->setTag(row.tag);
    display->setValueToStringProc(writeListText<controllerText>);
    setBarText(*display, with.barFont);
    return display;
}

CControl* makeChannelDisplay(const ControlRow& row, const ControlMakings& with) {
    auto* const display = new CZMParamDisplay(rectOf(row.place));
    display->setTag(row.tag);
    display->setListener(with.listener);
    display->stepCount = kNumChannelTexts;
    display->setValueToStringProc(writeListText<channelText>);
    setBarText(*display, with.barFont);
    display->setValue(with.effect->getParameter(row.tag));
    return display;
}

CControl* makeHintLine(const ControlRow& row, const ControlMakings& with) {
    const CRect place = rectOf(row.place);
    auto* const line = new CZMTHitHintLabel2(place, with.listener, row.tag, place,
                                             std::string(kWebAddressShort).c_str(), nullptr, 0);
    line->setHoriAlign(kCenterText);
    line->setFont(with.barFont);
    line->setTransparency(true);
    line->setMouseEnabled(true);
    return line;
}

} // namespace

void markProgram(COptionMenu& menu, std::int32_t slot) {
    menu.setValue(static_cast<float>(slot));
    menu.checkEntryAlone(slot);
}

CControl* buildBarControl(const ControlRow& row, const ControlMakings& makings) {
    const RowBitmaps images(row);
    if (!images.areLoaded())
        return nullptr;
    const CRect place = rectOf(row.place);
    CControlListener* const listener = makings.listener;
    switch (row.kind) {
    case ControlKind::NameEdit:
        return makeNameEdit(row, makings);
    case ControlKind::Menu:
        return makeMenu(row, makings);
    case ControlKind::Rocker:
        return new CZMRockerSwitch(place, listener, row.tag, frameHeightOf(row), images[0]);
    case ControlKind::FileButton:
        return new CSaveLoadButton(place, listener, row.tag, frameHeightOf(row), images[0]);
    case ControlKind::KickButton:
        return new CZMKickButton(place, listener, row.tag, frameHeightOf(row), images[0], CPoint(),
                                 row.extras.doubleClickOnly);
    case ControlKind::ToggleButton:
        return new CZMOnOffButton(place, listener, row.tag, images[0]);
    case ControlKind::TextDisplay:
        return makeControllerDisplay(row, makings);
    case ControlKind::StepDisplay:
        return makeChannelDisplay(row, makings);
    case ControlKind::ActivityLamp:
        return new CMovieBitmap(place, listener, row.tag, images[0]);
    case ControlKind::HintLine:
        return makeHintLine(row, makings);
    default:
        return nullptr;
    }
}

} // namespace pedl
