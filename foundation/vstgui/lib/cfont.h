#pragma once

#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

/// Bits of a font's style.
enum CTxtFace {
    kNormalFace = 0,
    kBoldFace = 1 << 1,
    kItalicFace = 1 << 2,
    kUnderlineFace = 1 << 3,
    kStrikethroughFace = 1 << 4
};

/// Names a font: face, height of its em in pixels, style bits of `CTxtFace`. Views of several
/// editors may hold one; then nobody changes it.
class CFontDesc : public CBaseObject {
public:
    CFontDesc(UTF8StringPtr name = nullptr, const CCoord& size = 0, const int32_t style = 0);
    CFontDesc(const CFontDesc& font);
    ~CFontDesc() override;

    UTF8StringPtr getName() const { return name_; }
    const CCoord& getSize() const { return size_; }
    const int32_t& getStyle() const { return style_; }
    virtual void setName(UTF8StringPtr newName);
    virtual void setSize(CCoord newSize);
    virtual void setStyle(int32_t newStyle);
    CLASS_METHODS(CFontDesc, CBaseObject)

private:
    friend struct PredefinedFonts;
    struct Predefined {}; // the name is a literal, nothing is allocated

    constexpr CFontDesc(Predefined, UTF8StringPtr literal, CCoord emPixels)
        : name_(literal), size_(emPixels) {}

    UTF8StringPtr name_ = nullptr;
    bool ownsName_ = false;
    CCoord size_ = 0;
    int32_t style_ = 0;
};

using CFontRef = CFontDesc*;

/// Shared objects: who changes one changes it for every user, in every thread. Copy it instead.
extern const CFontRef kSystemFont;
extern const CFontRef kNormalFontVeryBig;
extern const CFontRef kNormalFontBig;
extern const CFontRef kNormalFont;
extern const CFontRef kNormalFontSmall;
extern const CFontRef kNormalFontSmaller;
extern const CFontRef kNormalFontVerySmall;
extern const CFontRef kSymbolFont;

} // namespace VSTGUI
