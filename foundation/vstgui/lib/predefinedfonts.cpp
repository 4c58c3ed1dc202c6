#include "vstgui/lib/cfont.h"

namespace VSTGUI {

/// Storage of a font that is made by the compiler and never destroyed.
///
/// Nothing runs when the library is loaded, and nothing has to when it goes: the name is a literal.
/// A `constexpr` variable with an empty `constexpr` destructor is the form for which no destruction
/// is registered; `mutable` because fonts are counted and may be changed.
struct PredefinedFonts {
    union Font {
        constexpr Font(UTF8StringPtr name, CCoord emPixels)
            : font(CFontDesc::Predefined{}, name, emPixels) {}
        constexpr ~Font() {}
        char none; // lets the union be of literal type
        mutable CFontDesc font;
    };
};

namespace {

constexpr PredefinedFonts::Font kSystem("Arial", 12);
constexpr PredefinedFonts::Font kVeryBig("Arial", 18);
constexpr PredefinedFonts::Font kBig("Arial", 14);
constexpr PredefinedFonts::Font kNormal("Arial", 12);
constexpr PredefinedFonts::Font kSmall("Arial", 11);
constexpr PredefinedFonts::Font kSmaller("Arial", 10);
constexpr PredefinedFonts::Font kVerySmall("Arial", 9);
constexpr PredefinedFonts::Font kSymbol("Symbol", 13);

} // namespace

constinit const CFontRef kSystemFont = &kSystem.font;
constinit const CFontRef kNormalFontVeryBig = &kVeryBig.font;
constinit const CFontRef kNormalFontBig = &kBig.font;
constinit const CFontRef kNormalFont = &kNormal.font;
constinit const CFontRef kNormalFontSmall = &kSmall.font;
constinit const CFontRef kNormalFontSmaller = &kSmaller.font;
constinit const CFontRef kNormalFontVerySmall = &kVerySmall.font;
constinit const CFontRef kSymbolFont = &kSymbol.font;

} // namespace VSTGUI
