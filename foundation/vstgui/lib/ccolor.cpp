#include "vstgui/lib/ccolor.h"

namespace VSTGUI {

// clang-format off
constinit const CColor kTransparentCColor(255, 255, 255,   0);
constinit const CColor kBlackCColor      (  0,   0,   0, 255);
constinit const CColor kWhiteCColor      (255, 255, 255, 255);
constinit const CColor kGreyCColor       (127, 127, 127, 255);
constinit const CColor kRedCColor        (255,   0,   0, 255);
constinit const CColor kGreenCColor      (  0, 255,   0, 255);
constinit const CColor kBlueCColor       (  0,   0, 255, 255);
constinit const CColor kYellowCColor     (255, 255,   0, 255);
constinit const CColor kCyanCColor       (  0, 255, 255, 255);
constinit const CColor kMagentaCColor    (255,   0, 255, 255);
// clang-format on

CColor& CColor::operator()(uint8_t r, uint8_t g, uint8_t b, uint8_t a) {
    red = r;
    green = g;
    blue = b;
    alpha = a;
    return *this;
}

bool CColor::operator==(const CColor& other) const {
    return red == other.red && green == other.green && blue == other.blue && alpha == other.alpha;
}

} // namespace VSTGUI
