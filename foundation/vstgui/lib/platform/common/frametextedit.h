#pragma once

#include <memory>
#include <string>

#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/platform/common/bufferedframe.h"
#include "vstgui/lib/platform/common/clipboard.h"
#include "vstgui/lib/platform/common/textline.h"
#include "vstgui/lib/platform/iplatformtextedit.h"

namespace VSTGUI {

class COffscreenContext;
class CVSTGUITimer;

/// A text field drawn in the frame, over the control that it belongs to.
///
/// Behaves as a window of its own would: it has the presses inside its rectangle and every key
/// first. A key is offered to the control before it is used. Return ends the writing, and so does a
/// press anywhere else. The text has 255 characters at most.
///
/// A derived class dresses it: place, font, colours, what lies behind the text.
class FrameTextEdit : public IPlatformTextEdit, private FrameOverlay {
public:
    FrameTextEdit(BufferedFrame& frame, IPlatformTextEditCallback* callback);

    /// Takes the keyboard, the whole text selected. Once, after construction: it asks the
    /// operations below.
    void open();

    UTF8StringPtr getText() override { return line_.text().c_str(); }
    bool setText(UTF8StringPtr text) override;
    bool updateSize() override;
    CMessageResult notify(CBaseObject* sender, IdStringPtr message) override;

protected:
    ~FrameTextEdit() override;

    // Looks; rectangles are in the frame's space

    virtual CRect fieldArea() const; // the control's, less its inset
    virtual CFontRef fieldFont() const;
    virtual CColor textColor() const;
    virtual CColor selectionColor() const;
    virtual CColor selectedTextColor() const;
    /// Behind the text. Nothing by default: the control under the field has drawn itself.
    virtual void drawBehind(CDrawContext* /*context*/, const CRect& /*area*/) {}

    IPlatformTextEditCallback* callback() const { return textEdit; }

private:
    void drawOver(CDrawContext* context, const CRect& updateRect) override;
    bool overlayMouseDown(const CPoint& where, const CButtonState& buttons) override;
    bool overlayMouseMoved(const CPoint& where, const CButtonState& buttons) override;
    bool overlayMouseUp(const CPoint& where, const CButtonState& buttons) override;
    bool overlayKeyDown(VstKeyCode& keyCode, UTF8StringPtr text) override;

    /// While an event is worked on: the control may close the field in each call to it.
    class InUse {
    public:
        explicit InUse(FrameTextEdit& field) : field_(field) {
            field_.remember();
            ++field_.uses_;
        }
        ~InUse() {
            --field_.uses_;
            field_.forget();
        }
        InUse(const InUse&) = delete;
        InUse& operator=(const InUse&) = delete;

    private:
        FrameTextEdit& field_;
    };
    /// Whether nothing but the events holds the field: the control has given it back, and may be
    /// gone itself.
    bool isClosed() const { return getNbReference() <= uses_; }

    bool useNamedKey(const VstKeyCode& keyCode);
    bool useShortcut(int32_t character);
    void write(const std::string& text);
    void moveCaret(TextLine::Direction direction, TextLine::Unit unit, const VstKeyCode& keyCode);
    void copySelection();
    void paste(Clipboard::Kind kind);
    void showChange();
    void scrollToCaret();
    void invalidateField();
    void showCaret(bool visible);
    CRect caretArea() const;
    CCoord widthUpTo(std::size_t place) const;
    CCoord textLeft() const;
    std::size_t placeAt(CCoord x) const;
    void drawPart(CDrawContext* context, const CRect& part, const CColor& color) const;

    BufferedFrame& frame_; // remembered
    TextLine line_{kMostFieldCharacters};
    COffscreenContext* measure_ = nullptr; // made when first needed
    CVSTGUITimer* blink_;
    CRect shownArea_;                      // where it was drawn last
    CCoord scrolled_ = 0;                  // pixels of the text that are left of the field
    bool caretShown_ = true;               // it blinks
    bool selecting_ = false;               // the mouse is down
    int32_t uses_ = 0;                     // events that are worked on
    std::shared_ptr<FrameTextEdit*> self_; // for a text that arrives when the field may be gone
};

/// Opens a text field for `callback` as the overlay of `frame`. One reference, the caller's.
IPlatformTextEdit* createFrameTextEdit(BufferedFrame& frame, IPlatformTextEditCallback* callback);

} // namespace VSTGUI
