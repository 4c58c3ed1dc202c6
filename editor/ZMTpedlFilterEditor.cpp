#include "editor/ZMTpedlFilterEditor.h"

#include "editor/MyFrame.h"
#include "resources/SkinResources.h"
#include "vstgui/lib/platform/iplatformframe.h"

#include <utility>

namespace pedl {

using namespace VSTGUI;

namespace {

Counted<CBitmap> loadFace() {
    skin::useEmbeddedSkin();
    return adopted(new CBitmap(CResourceDescription(kFaceBitmap)));
}

} // namespace

ZMTpedlFilterEditor::ZMTpedlFilterEditor(ZMTpedlFilterEffect* owner,
                                         EditorSurroundings surroundings)
    : CPresetSystemEditor(owner, std::move(surroundings)),
      background_(loadFace()), panel_{owner, nullptr, {}} {
    rect.right = static_cast<VstInt16>(background_->getWidth());
    rect.bottom = static_cast<VstInt16>(background_->getHeight());
}

ZMTpedlFilterEditor::~ZMTpedlFilterEditor() {
    ZMTpedlFilterEditor::close();
    ZMTpedlFilterEditor::detach();
}

/// A window that the host has forgotten goes with the effect, and with it an open menu or dialog;
/// but not while the host may be using it on another thread.
void ZMTpedlFilterEditor::detach() {
    if (view().isEditorsThread())
        close();
    CPresetSystemEditor::detach();
    panel_.effect = nullptr;
}

bool ZMTpedlFilterEditor::open(void* parentWindow) {
    if (!background_->isLoaded() || !parentWindow || !panel_.effect)
        return false;
    if (frame)
        close();
    AEffGUIEditor::open(parentWindow);
    const EditorPump::Call call(*getPump()); // timers that controls start are this editor's
    const CRect face(0, 0, background_->getWidth(), background_->getHeight());
    frame = new MyFrame(face, parentWindow, this);
    if (!frame->getPlatformFrame()) {
        close();
        return false;
    }
    return build();
}

bool ZMTpedlFilterEditor::build() {
    panel_.frame = frame;
    frame->setBackground(background_);
    setKnobMode(kLinearMode);
    const ControlMakings makings{this,        panel_.effect, background_,
                                 labelFont(), barFont(),     &surroundings()};
    if (!openPanel(makings))
        return false;
    view().opened(); // the refresh may change the quantity that is shown, and hears of it
    display_.refresh();
    display_.opened();
    meters_.opened();
    openPresetBar(makings);
    return true;
}

bool ZMTpedlFilterEditor::openPanel(const ControlMakings& makings) {
    for (const ControlRow& row : kPanelRows) {
        CControl* const control = buildPanelControl(row, makings);
        if (!control)
            return false;
        panel_.controls.add(row.tag, control);
        if (row.extras.turn == Turn::Always)
            showIn(frame, control);
        else if (row.tag == kModulationLockLabel) // the last of those that take turns with it
            reflection_.swapModulationLock();
    }
    return true;
}

void ZMTpedlFilterEditor::close() {
    CPresetSystemEditor::close();
    panel_.frame = nullptr;
    panel_.controls.clear();
}

bool ZMTpedlFilterEditor::isAboutShown() const {
    const CControl* const about = panel_.controls.find(kAbout);
    return about && about->getValue() != 0.0F;
}

void ZMTpedlFilterEditor::idle() {
    CPresetSystemEditor::idle();
    if (!frame || !panel_.effect || isAboutShown())
        return;
    panel_.closeListBeside(mouse());
    display_.idleHover(mouse());
    display_.idleBlinking();
    display_.idleRefresh();
    meters_.idle();
}

void ZMTpedlFilterEditor::setParameter(std::int32_t index, float value) {
    panelChanged(index, value, false);
}

void ZMTpedlFilterEditor::panelChanged(std::int32_t index, float value, bool isLate) {
    if (frame)
        reflection_.parameterChanged(index, value, isLate);
}

void ZMTpedlFilterEditor::valueChanged(CControl* control) {
    if (!control)
        return;
    const CBaseObjectGuard held(control);
    CPresetSystemEditor::valueChanged(control);
    if (panel_.effect)
        gestures_.valueChanged(*control);
}

} // namespace pedl
