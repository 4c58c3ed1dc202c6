#pragma once

#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

/// A colour, not premultiplied. Opaque white without arguments.
struct CColor {
    constexpr CColor(uint8_t r = 255, uint8_t g = 255, uint8_t b = 255, uint8_t a = 255)
        : red(r), green(g), blue(b), alpha(a) {}
    CColor& operator()(uint8_t r, uint8_t g, uint8_t b, uint8_t a);
    bool operator==(const CColor& other) const;
    bool operator!=(const CColor& other) const { return !(*this == other); }

    uint8_t red, green, blue, alpha;
};

extern const CColor kTransparentCColor;
extern const CColor kBlackCColor;
extern const CColor kWhiteCColor;
extern const CColor kGreyCColor;
extern const CColor kRedCColor;
extern const CColor kGreenCColor;
extern const CColor kBlueCColor;
extern const CColor kYellowCColor;
extern const CColor kCyanCColor;
extern const CColor kMagentaCColor;

} // namespace VSTGUI
