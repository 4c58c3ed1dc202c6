#include "vstgui/plugin-bindings/aeffguieditor.h"

#include <atomic>

#include "vst24/AudioEffectX.h"
#include "vstgui/lib/platform/iplatformframe.h"

namespace VSTGUI {

namespace {

constinit std::atomic<int32_t> sharedKnobMode{kCircularMode}; // one choice of the user for all

AudioEffectX* extended(AudioEffect* effect) {
    return static_cast<AudioEffectX*>(effect);
}

} // namespace

AEffGUIEditor::AEffGUIEditor(void* newEffect)
    : AEffEditor(static_cast<AudioEffect*>(newEffect)), rect{}, pump_(new EditorPump) {
    const EditorPump::Call call(*pump_); // what derived classes start from here on is its own
    if (effect)
        effect->setEditor(this);
}

AEffGUIEditor::~AEffGUIEditor() {
    pump_->forget();
}

bool AEffGUIEditor::getRect(ERect** outRect) {
    const auto pixels = [scale = scaleFactor()](VstInt16 length) {
        return static_cast<VstInt16>(length == 0 ? 0 : windowPixels(length, scale));
    };
    windowRect_ = {pixels(rect.top), pixels(rect.left), pixels(rect.bottom), pixels(rect.right)};
    *outRect = &windowRect_;
    return true;
}

double AEffGUIEditor::scaleFactor() const {
    return frame ? frame->getScaleFactor() : IPlatformFrame::startingScaleFactor();
}

bool AEffGUIEditor::open(void* window) {
    const EditorPump::Call call(*pump_);
    return AEffEditor::open(window);
}

void AEffGUIEditor::idle() {
    if (inIdleStuff_ || inTurn_)
        return;
    const EditorPump::Call call(*pump_);
    AEffEditor::idle();
    inTurn_ = true;
    turn();
    inTurn_ = false;
}

/// The frame may close in each of the four steps, so each looks at it anew.
void AEffGUIEditor::turn() {
    if (IPlatformFrame* const window = openPlatformFrame()) {
        const CBaseObjectGuard held(window);
        window->pumpEvents();
    }
    pump_->fireDueTimers();
    if (frame && &frame->getPump() != pump_) // opened in another editor's name
        frame->getPump().fireDueTimers();
    if (frame)
        frame->idle();
    if (IPlatformFrame* const window = openPlatformFrame()) {
        const CBaseObjectGuard held(window);
        window->paintInvalid();
    }
}

IPlatformFrame* AEffGUIEditor::openPlatformFrame() const {
    return frame ? frame->getPlatformFrame() : nullptr;
}

void AEffGUIEditor::doIdleStuff() {
    if (inIdleStuff_ || !effect)
        return;
    inIdleStuff_ = true;
    effect->masterIdle();
    inIdleStuff_ = false;
}

bool AEffGUIEditor::onKeyDown(VstKeyCode& keyCode) {
    const EditorPump::Call call(*pump_);
    if (IPlatformFrame* const window = openPlatformFrame()) {
        const CBaseObjectGuard held(window);
        if (window->filterKeyDown(keyCode))
            return true;
    }
    return frame && frame->onKeyDown(keyCode) > 0;
}

bool AEffGUIEditor::onKeyUp(VstKeyCode& keyCode) {
    const EditorPump::Call call(*pump_);
    return frame && frame->onKeyUp(keyCode) > 0;
}

bool AEffGUIEditor::onWheel(float distance) {
    const EditorPump::Call call(*pump_);
    CPoint where;
    return frame && frame->getCurrentMouseLocation(where) &&
           static_cast<CView*>(frame)->onWheel(where, distance, frame->getCurrentMouseButtons());
}

bool AEffGUIEditor::setKnobMode(int32_t val) {
    sharedKnobMode.store(val, std::memory_order_relaxed);
    return true;
}

int32_t AEffGUIEditor::getKnobMode() const {
    return sharedKnobMode.load(std::memory_order_relaxed);
}

uint32_t AEffGUIEditor::getTicks() {
    return IPlatformFrame::getTicks();
}

AudioEffect* AEffGUIEditor::getEffect() {
    return effect;
}

void AEffGUIEditor::beginEdit(int32_t index) {
    if (effect)
        extended(effect)->beginEdit(index);
}

void AEffGUIEditor::endEdit(int32_t index) {
    if (effect)
        extended(effect)->endEdit(index);
}

bool AEffGUIEditor::beforeSizeChange(const CRect& newSize, const CRect& /*oldSize*/) {
    if (!effect)
        return true;
    char question[] = "sizeWindow";
    return extended(effect)->canHostDo(question) > 0 &&
           extended(effect)->sizeWindow(windowPixels(newSize.width(), scaleFactor()),
                                        windowPixels(newSize.height(), scaleFactor()));
}

} // namespace VSTGUI
