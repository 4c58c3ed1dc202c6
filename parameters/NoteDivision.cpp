#include "parameters/NoteDivision.h"

namespace pedl {

DisplayText noteDivisionText(NoteDivision division) {
    // Three parts of a note are a dotted note of twice the length. Three whole notes have no such
    // name: they read "1:0 .", and that is what users know the entry by.
    const bool isDotted = division.numerator == 3;
    DisplayText text;
    text.appendInteger(isDotted ? 1 : division.numerator);
    text.append(':');
    text.appendInteger(isDotted ? division.denominator / 2 : division.denominator);
    text.append(isDotted ? " ." : " ");
    return text;
}

} // namespace pedl
