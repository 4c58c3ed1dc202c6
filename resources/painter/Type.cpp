#include "resources/painter/Type.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <array>
#include <cmath>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

namespace pedl::skin {

namespace {

/// A piece of an outline in units of the face, y upwards: a move, a line, or a curve of second
/// order with its control point first.
struct Piece {
    enum class Kind { Move, Line, Curve } kind;
    Point points[2];
};

struct Glyph {
    double advance = 0.0;
    std::vector<Piece> outline;
};

Point pointOf(const FT_Vector* vector) {
    return {static_cast<double>(vector->x), static_cast<double>(vector->y)};
}

std::vector<Piece>& piecesOf(void* user) {
    return *static_cast<std::vector<Piece>*>(user);
}

int addMove(const FT_Vector* to, void* user) {
    piecesOf(user).push_back({Piece::Kind::Move, {pointOf(to), {}}});
    return 0;
}

int addLine(const FT_Vector* to, void* user) {
    piecesOf(user).push_back({Piece::Kind::Line, {pointOf(to), {}}});
    return 0;
}

int addCurve(const FT_Vector* control, const FT_Vector* to, void* user) {
    piecesOf(user).push_back({Piece::Kind::Curve, {pointOf(control), pointOf(to)}});
    return 0;
}

/// TrueType outlines have none.
int refuseCubic(const FT_Vector*, const FT_Vector*, const FT_Vector*, void*) {
    return 1;
}

/// One weight of the face: outlines as they were designed, asked of FreeType once each.
class Face {
public:
    explicit Face(const char* weight) {
        const std::string path =
            std::string(PEDL_ROBOTO_FOLDER "/RobotoCondensed-") + weight + ".ttf";
        if (FT_Init_FreeType(&library_) != 0 || FT_New_Face(library_, path.c_str(), 0, &face_) != 0)
            throw std::runtime_error(path + ": cannot be read as a face");
        unitsPerEm_ = face_->units_per_EM;
    }

    ~Face() {
        FT_Done_Face(face_);
        FT_Done_FreeType(library_);
    }

    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;

    const Glyph& glyph(char letter) {
        const std::lock_guard guard(mutex_);
        const auto [place, isNew] = glyphs_.try_emplace(letter);
        Glyph& glyph = place->second;
        if (!isNew)
            return glyph;
        const FT_Outline_Funcs callbacks{addMove, addLine, addCurve, refuseCubic, 0, 0};
        if (FT_Load_Char(face_, static_cast<unsigned char>(letter), FT_LOAD_NO_SCALE) != 0 ||
            FT_Outline_Decompose(&face_->glyph->outline, &callbacks, &glyph.outline) != 0)
            throw std::runtime_error(std::string("no outline of the letter ") + letter);
        glyph.advance = static_cast<double>(face_->glyph->advance.x);
        return glyph;
    }

    [[nodiscard]] double unitsPerEm() const { return unitsPerEm_; }

private:
    FT_Library library_ = nullptr;
    FT_Face face_ = nullptr;
    double unitsPerEm_ = 1.0;
    std::mutex mutex_;
    std::map<char, Glyph> glyphs_;
};

Face& faceOf(Weight weight) {
    static std::array<Face, 3> faces{Face("Regular"), Face("Medium"), Face("Bold")};
    return faces[static_cast<std::size_t>(weight)];
}

/// Logical pixels per unit of the face.
double unitSize(const TypeStyle& style) {
    return style.capHeight / kCapShare / faceOf(style.weight).unitsPerEm();
}

void addOutline(cairo_t* to, const Glyph& glyph, Point pen, double unit) {
    const auto placed = [pen, unit](Point point) {
        return Point{pen.x + point.x * unit, pen.y - point.y * unit};
    };
    Point last = pen;
    for (const Piece& piece : glyph.outline) {
        const Point first = placed(piece.points[0]);
        const Point end = piece.kind == Piece::Kind::Curve ? placed(piece.points[1]) : first;
        if (piece.kind == Piece::Kind::Move) {
            cairo_close_path(to);
            cairo_move_to(to, end.x, end.y);
        } else if (piece.kind == Piece::Kind::Line) {
            cairo_line_to(to, end.x, end.y);
        } else { // the same curve as one of third order
            const auto towards = [first](Point from) {
                return Point{from.x + (first.x - from.x) * 2 / 3,
                             from.y + (first.y - from.y) * 2 / 3};
            };
            const Point leaving = towards(last);
            const Point arriving = towards(end);
            cairo_curve_to(to, leaving.x, leaving.y, arriving.x, arriving.y, end.x, end.y);
        }
        last = end;
    }
    cairo_close_path(to);
}

double leftEdge(double width, double anchor, Align align) {
    return align == Align::Left    ? anchor
           : align == Align::Right ? anchor - width
                                   : anchor - width / 2;
}

} // namespace

double textWidth(std::string_view text, const TypeStyle& style) {
    double width = style.tracking * (static_cast<double>(text.size()) - 1.0);
    for (const char letter : text)
        width += faceOf(style.weight).glyph(letter).advance * unitSize(style);
    return width;
}

Path lettering(std::string_view text, Point anchor, const TypeStyle& style, Align align,
               int scale) {
    return [letters = std::string(text), anchor, style, align, scale](cairo_t* to) {
        const double unit = unitSize(style);
        double pen = leftEdge(textWidth(letters, style), anchor.x, align);
        for (const char letter : letters) {
            const Glyph& glyph = faceOf(style.weight).glyph(letter);
            const double quarters = std::round(pen * scale * 4);
            cairo_new_sub_path(to);
            addOutline(to, glyph, {quarters / scale / 4, anchor.y}, unit);
            pen += glyph.advance * unit + style.tracking;
        }
    };
}

Extent write(Canvas& canvas, std::string_view text, Point anchor, const TypeStyle& style,
             const Paint& paint, Align align) {
    canvas.fill(lettering(text, anchor, style, align, canvas.scale()), paint);
    const double width = textWidth(text, style);
    const double left = leftEdge(width, anchor.x, align);
    return {left, left + width};
}

Extent write(Canvas& canvas, std::string_view text, Point anchor, const TypeStyle& style,
             Colour colour, Align align) {
    return write(canvas, text, anchor, style, solid(colour), align);
}

} // namespace pedl::skin
