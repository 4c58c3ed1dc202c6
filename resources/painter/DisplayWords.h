#pragma once

#include "resources/painter/Canvas.h"
#include "resources/painter/Type.h"

namespace pedl::skin {

/// The display: five cells for digits, below them the words for what the number is.
inline constexpr Rectangle kDisplay{193, 58, 135, 41}; // on the face
inline constexpr double kCellWidth = 27;
inline constexpr int kCells = 5;

/// A word of the glass, where its letters begin, and the part of its cell that it and its bloom
/// have for themselves. It must lie within one cell: point and slash, whose frames light it, are
/// drawn there alone.
struct DisplayWord {
    const char* text;
    int cell; // from the left
    double left;
    double partBegin, partEnd;
};

// The point of the LFO's rate and the slash of its note value share the cell in the middle. The
// face has "Hz" lit, for the cut-off's digits have nothing that could light it; the blank cell that
// lies below the digits of all other counters dims that part, in every cell. So no other word is
// there.
inline constexpr double kHertzBegin = 17;
inline constexpr DisplayWord kWordNote{"NOTE", 2, 0.4, 0, kHertzBegin};
inline constexpr DisplayWord kWordHertz{"Hz", 2, 18.6, kHertzBegin, kCellWidth};
inline constexpr DisplayWord kWordTempo{"BPM", 3, 1.8, 0, kHertzBegin};
inline constexpr DisplayWord kWordHost{"HOST", 3, 1.4, 0, kHertzBegin};

inline constexpr TypeStyle kWordType{5, Weight::Bold, 0};
inline constexpr double kWordBaseline = 40; // in the cell
inline constexpr double kWordsFrom = 34;    // rows of the cell from here on are the words'
/// What an unlit word has of a lit one's brightness: print on glass, to be read from near. At scale
/// 1 strokes thinner than a pixel are dimmer already.
constexpr double unlitWord(int scale) {
    return scale == 1 ? 0.67 : 0.60;
}

/// Colours of something lit on the glass.
struct GlassLight {
    Colour colour, hot, glow;
};
extern const GlassLight kAmberLight; // what can be set
extern const GlassLight kHostLight;  // what the host says

/// Glass without anything on it.
void fillGlass(Canvas& canvas, Rectangle box);

/// The unlit segments of a cell that begins at (x, y).
void drawUnlitCell(Canvas& canvas, double x, double y);

/// A word that shines, the cell beginning at (x, y).
void drawLitWord(Canvas& canvas, double x, double y, const DisplayWord& word,
                 const GlassLight& light);

/// Makes an unlit one of the lit word in that part of a cell; leaves bare glass as it is.
void dimWord(Canvas& canvas, double x, double y, const DisplayWord& word);

/// A word as it looks when nothing lights it.
void drawUnlitWord(Canvas& canvas, double x, double y, const DisplayWord& word);

} // namespace pedl::skin
