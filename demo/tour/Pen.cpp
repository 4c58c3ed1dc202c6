#include "demo/tour/Pen.h"

#include "foundation/text/Utf8.h"

#include <cmath>

namespace pedl::demo {

void setColour(cairo_t* pen, const Colour& colour, double opacity) {
    cairo_set_source_rgba(pen, colour.red, colour.green, colour.blue, opacity);
}

void setFont(cairo_t* pen, double sizePixels, cairo_font_weight_t weight) {
    cairo_select_font_face(pen, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, weight);
    cairo_set_font_size(pen, sizePixels);
}

double widthOf(cairo_t* pen, const std::string& text) {
    cairo_text_extents_t extents;
    cairo_text_extents(pen, text.c_str(), &extents);
    return extents.x_advance;
}

void write(cairo_t* pen, const std::string& text, double x, double y, double anchor) {
    cairo_move_to(pen, x - anchor * widthOf(pen, text), y);
    cairo_show_text(pen, text.c_str());
}

void writeUpwards(cairo_t* pen, const std::string& text, double x, double centreY) {
    cairo_save(pen);
    cairo_translate(pen, x, centreY);
    cairo_rotate(pen, -std::acos(0.0));
    write(pen, text, 0.0, 0.0, 0.5);
    cairo_restore(pen);
}

std::string fitted(cairo_t* pen, std::string text, double widthPixels) {
    if (widthOf(pen, text) <= widthPixels)
        return text;
    // Half a character would be an error that cairo never leaves again.
    while (!text.empty() && widthOf(pen, text + "…") > widthPixels)
        text = firstWholeCharacters(text, text.size() - 1);
    return text + "…";
}

void drawLine(cairo_t* pen, double fromX, double fromY, double toX, double toY) {
    cairo_move_to(pen, fromX, fromY);
    cairo_line_to(pen, toX, toY);
    cairo_stroke(pen);
}

void fill(cairo_t* pen, const Rectangle& area) {
    cairo_rectangle(pen, area.x, area.y, area.width, area.height);
    cairo_fill(pen);
}

void clipTo(cairo_t* pen, const Rectangle& area) {
    cairo_rectangle(pen, area.x, area.y, area.width, area.height);
    cairo_clip(pen);
}

} // namespace pedl::demo
