#include "vstgui/lib/cfont.h"

namespace VSTGUI {

// How a variable that is never destroyed is declared. For g++ it is `constexpr`, with an empty
// `constexpr` destructor; clang refuses that one over a member whose own is not `constexpr`.
#ifdef __clang__
#define VSTGUI_CONSTEXPR_DESTRUCTOR
#define VSTGUI_NEVER_DESTROYED [[clang::no_destroy]] constinit const
#else
#define VSTGUI_CONSTEXPR_DESTRUCTOR constexpr
#define VSTGUI_NEVER_DESTROYED constexpr
#endif

/// Storage of a font that is made by the compiler and never destroyed.
///
/// Nothing runs when the library is loaded, and nothing has to when it goes: the name is a literal.
/// `mutable` because fonts are counted and may be changed.
struct PredefinedFonts {
    union Font {
        constexpr Font(UTF8StringPtr name, CCoord emPixels)
            : font(CFontDesc::Predefined{}, name, emPixels) {}
        VSTGUI_CONSTEXPR_DESTRUCTOR ~Font() {}
        char none; // lets the union be of literal type
        mutable CFontDesc font;
    };
};

namespace {

VSTGUI_NEVER_DESTROYED PredefinedFonts::Font kSystem("Arial", 12);
VSTGUI_NEVER_DESTROYED PredefinedFonts::Font kVeryBig("Arial", 18);
VSTGUI_NEVER_DESTROYED PredefinedFonts::Font kBig("Arial", 14);
VSTGUI_NEVER_DESTROYED PredefinedFonts::Font kNormal("Arial", 12);
VSTGUI_NEVER_DESTROYED PredefinedFonts::Font kSmall("Arial", 11);
VSTGUI_NEVER_DESTROYED PredefinedFonts::Font kSmaller("Arial", 10);
VSTGUI_NEVER_DESTROYED PredefinedFonts::Font kVerySmall("Arial", 9);
VSTGUI_NEVER_DESTROYED PredefinedFonts::Font kSymbol("Symbol", 13);

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
