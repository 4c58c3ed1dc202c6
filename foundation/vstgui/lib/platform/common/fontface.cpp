#include "vstgui/lib/platform/common/fontface.h"

#include <algorithm>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

namespace VSTGUI {

FontFace::FontFace(FT_LibraryRec_* library, std::span<const std::byte> file) {
    const auto* bytes = reinterpret_cast<const FT_Byte*>(file.data());
    if (!library ||
        FT_New_Memory_Face(library, bytes, static_cast<FT_Long>(file.size()), 0, &face_) != 0)
        face_ = nullptr;
}

double FontFace::unitsPerEm() const {
    return face_ ? face_->units_per_EM : 1.0;
}

const FontFace::Letter& FontFace::letterFor(char32_t character) {
    Letter& letter = character < ascii_.size() ? ascii_[character] : others_[character];
    if (letter.advance < 0)
        letter = load(character);
    return letter;
}

FontFace::Letter FontFace::load(char32_t character) const {
    Letter letter;
    letter.advance = 0;
    if (!face_)
        return letter;
    const bool isControl = character < 0x20 || character == 0x7F;
    letter.glyph = FT_Get_Char_Index(face_, isControl ? U' ' : character);
    if (FT_Load_Glyph(face_, letter.glyph, FT_LOAD_NO_SCALE) != 0)
        return letter;
    letter.advance = std::max(0, static_cast<int32_t>(face_->glyph->metrics.horiAdvance));
    letter.isBlank = face_->glyph->outline.n_points == 0;
    return letter;
}

int32_t FontFace::kerning(const Letter& left, const Letter& right) const {
    FT_Vector units{0, 0};
    if (left.glyph == 0 || right.glyph == 0 ||
        FT_Get_Kerning(face_, left.glyph, right.glyph, FT_KERNING_UNSCALED, &units) != 0)
        return 0;
    return static_cast<int32_t>(units.x);
}

int32_t FontFace::underlineUnits() const {
    return face_ ? face_->underline_position : 0;
}

int32_t FontFace::strikethroughUnits() const {
    const auto* table =
        face_ ? static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face_, FT_SFNT_OS2)) : nullptr;
    return table ? table->yStrikeoutPosition - table->yStrikeoutSize / 2 : 0;
}

int32_t FontFace::lineThicknessUnits() const {
    return face_ ? face_->underline_thickness : 0;
}

} // namespace VSTGUI
