#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <unordered_map>

#include "vstgui/lib/vstguibase.h"

struct FT_FaceRec_;
struct FT_LibraryRec_;

namespace VSTGUI {

/// One embedded face, measured in the units of its design, of which an em has `unitsPerEm`.
///
/// Widths are exact at every size: a text at scale 2 is twice as wide as at 1, to the last letter.
class FontFace {
public:
    struct Letter {
        uint32_t glyph = 0; // 0: the box for what the face has not
        int32_t advance = -1;
        bool isBlank = false;
    };

    FontFace(FT_LibraryRec_* library, std::span<const std::byte> file);
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    /// Null when the file cannot be used: then there are no letters.
    FT_FaceRec_* handle() const { return face_; }
    double unitsPerEm() const;

    const Letter& letterFor(char32_t character);

    /// What to add to the advance between two neighbours.
    int32_t kerning(const Letter& left, const Letter& right) const;

    /// Walks over a line of UTF-8 and returns its width.
    /// @param visit  called with each letter and its place; false ends the walk
    template <typename Visitor> int32_t walk(const char* text, Visitor&& visit);

    // Places of the lines' middles above the baseline, and their thickness
    int32_t underlineUnits() const;
    int32_t strikethroughUnits() const;
    int32_t lineThicknessUnits() const;

private:
    Letter load(char32_t character) const;

    FT_FaceRec_* face_ = nullptr; // the library's
    std::array<Letter, 128> ascii_;
    std::unordered_map<char32_t, Letter> others_;
};

} // namespace VSTGUI

#include "foundation/text/Utf8.h"

#include <string_view>

namespace VSTGUI {

template <typename Visitor> int32_t FontFace::walk(const char* text, Visitor&& visit) {
    constexpr int32_t kWidestUnits = 1 << 28; // a text of megabytes ends there
    int32_t penUnits = 0;
    Letter previous;
    std::string_view rest = text ? text : "";
    while (!rest.empty() && penUnits < kWidestUnits) {
        const Letter letter = letterFor(pedl::takeAnyCharacter(rest));
        penUnits += kerning(previous, letter);
        if (!visit(letter, penUnits))
            break;
        penUnits += letter.advance;
        previous = letter;
    }
    return penUnits;
}

} // namespace VSTGUI
