#pragma once

#include "vstgui/lib/controls/cparamdisplay.h"

namespace VSTGUI {

/// A display of a text of its own.
class CTextLabel : public CParamDisplay {
public:
    CTextLabel(const CRect& size, UTF8StringPtr txt = nullptr, CBitmap* background = nullptr,
               const int32_t style = 0);
    CTextLabel(const CTextLabel& label);

    virtual void setText(UTF8StringPtr txt); // copied; null is the empty text
    virtual UTF8StringPtr getText() const { return text; }

    void draw(CDrawContext* context) override;
    bool sizeToFit() override;
    CLASS_METHODS(CTextLabel, CParamDisplay)

protected:
    ~CTextLabel() override;
    void freeText();

    UTF8StringBuffer text = nullptr;
};

} // namespace VSTGUI
