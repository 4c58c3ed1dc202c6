#include "vstgui/lib/platform/offscreen/offscreenframe.h"

#include <string>
#include <string_view>

#include "foundation/text/Utf8.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/platform/offscreen/offscreenmenu.h"

namespace VSTGUI {

namespace {

unsigned char modifierByte(int32_t modifiers) {
    return static_cast<unsigned char>(modifiers);
}

/// What the keyboard says for a character: that of a letter is its small one, with shift or
/// without.
int32_t keyCodeOf(char32_t character) {
    constexpr char32_t kBehindAscii = 0x80;
    return static_cast<int32_t>(character < kBehindAscii ? pedl::smallLetter(character)
                                                         : character);
}

} // namespace

OffscreenFrame::OffscreenFrame(IPlatformFrameCallback* callback, const CRect& size)
    : BufferedFrame(callback, size), frame_(dynamic_cast<CFrame*>(callback)) {}

OffscreenFrame::~OffscreenFrame() = default;

IPlatformFrame* OffscreenFrame::create(IPlatformFrameCallback* callback, const CRect& size,
                                       void* /*parent*/) {
    return new OffscreenFrame(callback, size);
}

OffscreenFrame& OffscreenFrame::of(const CFrame& frame) {
    return static_cast<OffscreenFrame&>(*frame.getPlatformFrame());
}

void OffscreenFrame::note(CCoord x, CCoord y, CButtonState buttons) {
    mouse_ = CPoint(x, y);
    buttons_ = buttons & ~(kDoubleClick | kMouseWheelInverted);
}

// Mouse and keyboard

CMouseEventResult OffscreenFrame::mouseDown(CCoord x, CCoord y, CButtonState buttons) {
    note(x, y, buttons);
    return sendMouseDown(CPoint(x, y), buttons);
}

CMouseEventResult OffscreenFrame::mouseMove(CCoord x, CCoord y, CButtonState buttons) {
    note(x, y, buttons);
    return sendMouseMoved(CPoint(x, y), buttons);
}

CMouseEventResult OffscreenFrame::mouseUp(CCoord x, CCoord y, CButtonState buttons) {
    note(x, y, buttons);
    return sendMouseUp(CPoint(x, y), buttons);
}

CMouseEventResult OffscreenFrame::mouseExit(CCoord x, CCoord y, CButtonState buttons) {
    note(x, y, buttons);
    return sendMouseExited(CPoint(x, y), buttons);
}

bool OffscreenFrame::wheel(CCoord x, CCoord y, float distance, CButtonState buttons,
                           CMouseWheelAxis axis) {
    note(x, y, buttons);
    return sendWheel(CPoint(x, y), axis, distance, buttons);
}

bool OffscreenFrame::keyDown(VstVirtualKey key, int32_t modifiers) {
    return sendKeyDown({0, static_cast<unsigned char>(key), modifierByte(modifiers)}, nullptr);
}

bool OffscreenFrame::keyUp(VstVirtualKey key, int32_t modifiers) {
    return sendKeyUp({0, static_cast<unsigned char>(key), modifierByte(modifiers)});
}

bool OffscreenFrame::typeText(UTF8StringPtr text, int32_t modifiers) {
    const CBaseObjectGuard self(this);
    bool used = true;
    for (std::string_view rest = text; !rest.empty();) {
        std::string character(rest);
        const int32_t keyCode = keyCodeOf(pedl::takeAnyCharacter(rest));
        character.resize(character.size() - rest.size());
        used &= sendKeyDown({keyCode, 0, modifierByte(modifiers)}, character.c_str());
    }
    return used;
}

void OffscreenFrame::activate(bool state) {
    sendActivate(state);
}

bool OffscreenFrame::turn() {
    const CBaseObjectGuard self(this);
    if (frame_ && !isClosed()) {
        EditorPump& pump = frame_->getPump();
        const EditorPump::Call call(pump);
        pump.fireDueTimers();
    }
    if (frame_ && !isClosed())
        frame_->idle();
    paintInvalid();
    return !isClosed();
}

// What the frame asks for

void OffscreenFrame::paintInvalid() {
    lastPainted_ = paintBuffer();
}

bool OffscreenFrame::getGlobalPosition(CPoint& pos) const {
    pos = CPoint(0, 0);
    return true;
}

bool OffscreenFrame::getCurrentMousePosition(CPoint& where) const {
    where = mouse_;
    return true;
}

bool OffscreenFrame::getCurrentMouseButtons(CButtonState& buttons) const {
    buttons = buttons_;
    return true;
}

bool OffscreenFrame::setMouseCursor(CCursorType type) {
    cursor_ = type;
    return true;
}

void* OffscreenFrame::getPlatformRepresentation() const {
    return nullptr;
}

IPlatformOptionMenu* OffscreenFrame::createPlatformOptionMenu() {
    return createOffscreenOptionMenu(*this);
}

} // namespace VSTGUI
