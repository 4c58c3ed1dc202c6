#include "vstgui/fonts/embeddedfonts.h"

#include "vstgui/lib/cfont.h"

// Laid down by embeddedfonts.S; hidden, so that their addresses need no look-up.
#pragma GCC visibility push(hidden)
extern "C" {
extern const std::byte pedlSansRegular[], pedlSansRegularEnd[];
extern const std::byte pedlSansBold[], pedlSansBoldEnd[];
extern const std::byte pedlSansItalic[], pedlSansItalicEnd[];
extern const std::byte pedlSansBoldItalic[], pedlSansBoldItalicEnd[];
}
#pragma GCC visibility pop

namespace VSTGUI {

std::span<const std::byte> embeddedFont(int32_t style) {
    switch (style & (kBoldFace | kItalicFace)) {
    case kBoldFace:
        return {pedlSansBold, pedlSansBoldEnd};
    case kItalicFace:
        return {pedlSansItalic, pedlSansItalicEnd};
    case kBoldFace | kItalicFace:
        return {pedlSansBoldItalic, pedlSansBoldItalicEnd};
    default:
        return {pedlSansRegular, pedlSansRegularEnd};
    }
}

} // namespace VSTGUI
