#pragma once

#include "demo/tour/PictureLayout.h"

#include <cairo.h>

#include <memory>
#include <string>

namespace pedl::demo {

// What a picture of the demonstration is drawn with: cairo's handles, colours, lines, words.

struct Destroy {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Surface = std::unique_ptr<cairo_surface_t, Destroy>;
using Context = std::unique_ptr<cairo_t, Destroy>;

struct Colour {
    double red, green, blue;
};

constexpr Colour kPaper{0.071, 0.075, 0.098};
constexpr Colour kText{0.90, 0.91, 0.94};
constexpr Colour kFaintText{0.60, 0.62, 0.68};
constexpr Colour kGrid{1.0, 1.0, 1.0};

constexpr double kSmallPixels = 12.0; // the letters of axes

void setColour(cairo_t* pen, const Colour& colour, double opacity);
void setFont(cairo_t* pen, double sizePixels, cairo_font_weight_t weight);

double widthOf(cairo_t* pen, const std::string& text);

/// @param text    UTF-8
/// @param anchor  0: the text begins at x, 0.5: it is centred there, 1: it ends there
void write(cairo_t* pen, const std::string& text, double x, double y, double anchor);
void writeUpwards(cairo_t* pen, const std::string& text, double x, double centreY);

/// The text, with an ellipsis for what does not fit.
std::string fitted(cairo_t* pen, std::string text, double widthPixels);

void drawLine(cairo_t* pen, double fromX, double fromY, double toX, double toY);
void fill(cairo_t* pen, const Rectangle& area);
void clipTo(cairo_t* pen, const Rectangle& area);

} // namespace pedl::demo
