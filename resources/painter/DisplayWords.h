#pragma once

#include "resources/painter/Canvas.h"
#include "resources/painter/Type.h"

namespace pedl::skin {

/// The display: five cells for digits, below them the words for what the number is.
inline constexpr Rectangle kDisplay{193, 58, 135, 41}; // on the face
inline constexpr double kCellWidth = 27;
inline constexpr int kCells = 5;

/// A word of the glass, where its letters begin. It must lie within one cell: point and slash,
/// whose frames light it, are drawn there alone.
struct DisplayWord {
    const char* text;
    int cell; // from the left
    double left;
};

// The point of the LFO's rate and the slash of its note value share the cell in the middle.
inline constexpr DisplayWord kWordHertz{"Hz", 2, 0.5};
inline constexpr DisplayWord kWordNote{"NOTE", 2, 11.0};
inline constexpr DisplayWord kWordTempo{"BPM", 3, 10.0};
inline constexpr DisplayWord kWordHost{"HOST", 3, 8.5};
inline constexpr double kHertzEnd = 9.0; // in the cell; the other words begin further right

inline constexpr TypeStyle kWordType{5, Weight::Bold, 0};
inline constexpr double kWordBaseline = 40; // in the cell
inline constexpr double kWordsFrom = 34;    // rows of the cell from here on are the words'

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

/// A word as it looks when nothing lights it, the cell beginning at (x, y).
void drawUnlitWord(Canvas& canvas, double x, double y, const DisplayWord& word);

/// The same, lit.
void drawLitWord(Canvas& canvas, double x, double y, const DisplayWord& word,
                 const GlassLight& light);

} // namespace pedl::skin
