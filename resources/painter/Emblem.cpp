#include "resources/painter/FaceParts.h"

#include "resources/painter/Palette.h"
#include "resources/painter/Type.h"

#include <cmath>

namespace pedl::skin {

namespace {

constexpr double kLine = 1.5;

/// A ring, in it a filter's response.
Path emblemPath(double x, double y) {
    return join({circle(x, y, 14), [x, y](cairo_t* to) {
                     cairo_move_to(to, x - 9, y + 4);
                     cairo_line_to(to, x - 3.5, y + 4);
                     cairo_curve_to(to, x + 0.8, y + 4, x + 0.8, y - 7, x + 3, y - 7);
                     cairo_curve_to(to, x + 5.2, y - 7, x + 4.6, y + 5.6, x + 9, y + 6);
                 }});
}

} // namespace

/// Brass let into the panel: a dark edge above left, a lit one below right.
void drawEmblem(Canvas& canvas, Point centre, double factor) {
    canvas.placed(centre.x, centre.y, factor, [&] {
        const double edge = 1 / (factor > 1 ? 3.0 : 1.0); // edges do not grow with the emblem
        const double wide = kLine + 0.7 * edge;
        canvas.strokeRound(emblemPath(-0.5 * edge, -0.6 * edge), wide,
                           solid(palette::kBlack, 0.55));
        canvas.strokeRound(emblemPath(0.5 * edge, 0.6 * edge), wide,
                           solid(palette::kPetrolEdge, 0.35));
        canvas.strokeRound(emblemPath(0, 0), kLine,
                           linear({-12, -14}, {12, 14},
                                  {{0, palette::kBrassBright},
                                   {0.45, palette::kBrass},
                                   {0.75, palette::kBrassDark},
                                   {1, palette::kBrassEdge}}));
    });
}

void drawName(Canvas& canvas, Point centre, double size, const Paint& paint) {
    const double tracking = size * (1.0 / 16);
    const double gap = size * 0.37;
    const TypeStyle bold = ofSize(size, Weight::Bold, tracking);
    const TypeStyle light = ofSize(size, Weight::Medium, tracking);
    const double first = textWidth("ZMT", bold) + gap;
    const double left = std::round(centre.x - (first + textWidth("pedlFilter", light)) / 2);
    write(canvas, "ZMT", {left, centre.y}, bold, paint, Align::Left);
    write(canvas, "pedlFilter", {left + first, centre.y}, light, paint, Align::Left);
}

} // namespace pedl::skin
