#pragma once

#include "vstgui/lib/ccolor.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/cfont.h"
#include "vstgui/lib/crect.h"
#include "vstgui/lib/vstguibase.h"
#include "vstgui/lib/vstkeycode.h"

namespace VSTGUI {

/// What an open text field asks of, and tells, the control that opened it. Rectangles are in the
/// frame's space.
class IPlatformTextEditCallback {
public:
    virtual ~IPlatformTextEditCallback() = default;
    virtual CColor platformGetBackColor() const = 0;
    virtual CColor platformGetFontColor() const = 0;
    virtual CFontRef platformGetFont() const = 0;
    virtual CHoriTxtAlign platformGetHoriTxtAlign() const = 0;
    virtual UTF8StringPtr platformGetText() const = 0;
    virtual CRect platformGetSize() const = 0;
    virtual CRect platformGetVisibleSize() const = 0;
    virtual CPoint platformGetTextInset() const = 0;
    virtual void platformLooseFocus(bool returnPressed) = 0;
    /// Offered every key first. @return whether it was used
    virtual bool platformOnKeyDown(const VstKeyCode& key) = 0;
    virtual void platformTextDidChange() = 0;
};

/// A text field open in a frame. Never outlives its control.
class IPlatformTextEdit : public CBaseObject {
public:
    virtual UTF8StringPtr getText() = 0;
    virtual bool setText(UTF8StringPtr text) = 0;
    /// Asks the control for its rectangle anew.
    virtual bool updateSize() = 0;

protected:
    IPlatformTextEdit(IPlatformTextEditCallback* callback) : textEdit(callback) {}

    IPlatformTextEditCallback* textEdit;
};

} // namespace VSTGUI
