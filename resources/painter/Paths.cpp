#include "resources/painter/Canvas.h"

#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace pedl::skin {

Path rectangle(Rectangle box) {
    return [=](cairo_t* to) { cairo_rectangle(to, box.x, box.y, box.width, box.height); };
}

Path roundRect(Rectangle box, double radius) {
    return [=](cairo_t* to) {
        constexpr double kQuarter = std::numbers::pi / 2;
        const Rectangle centres = box.inset(radius);
        cairo_new_sub_path(to);
        cairo_arc(to, centres.right(), centres.y, radius, -kQuarter, 0);
        cairo_arc(to, centres.right(), centres.bottom(), radius, 0, kQuarter);
        cairo_arc(to, centres.x, centres.bottom(), radius, kQuarter, 2 * kQuarter);
        cairo_arc(to, centres.x, centres.y, radius, 2 * kQuarter, 3 * kQuarter);
        cairo_close_path(to);
    };
}

Path circle(double x, double y, double radius) {
    return [=](cairo_t* to) {
        cairo_new_sub_path(to);
        cairo_arc(to, x, y, radius, 0, 2 * std::numbers::pi);
        cairo_close_path(to);
    };
}

Path polyline(std::initializer_list<Point> points) {
    return [line = std::vector<Point>(points)](cairo_t* to) {
        cairo_new_sub_path(to);
        for (const Point& point : line)
            cairo_line_to(to, point.x, point.y);
    };
}

Path polygon(std::initializer_list<Point> corners) {
    return [line = polyline(corners)](cairo_t* to) {
        line(to);
        cairo_close_path(to);
    };
}

namespace {

/// Two pixels narrower from column to column, the base's edges on whole pixels.
Path steppedHead(const ArrowHead& head) {
    return [head](cairo_t* to) {
        const bool isLevel = head.direction.x != 0;
        const double sign = head.direction.x + head.direction.y;
        const double tip = isLevel ? head.tip.x : head.tip.y;
        const double middle = isLevel ? head.tip.y : head.tip.x;
        const double narrowest = middle == std::floor(middle) ? 1 : 0.5;
        double column = (sign > 0 ? std::floor(tip) : std::ceil(tip)) - sign * 0.5;
        for (double half = narrowest; half <= head.half + 0.5; half += 1, column -= sign)
            if (isLevel)
                cairo_rectangle(to, column - 0.5, middle - half, 1, 2 * half);
            else
                cairo_rectangle(to, middle - half, column - 0.5, 2 * half, 1);
    };
}

} // namespace

Path arrowHead(const ArrowHead& head, int scale) {
    if (scale == 1)
        return steppedHead(head);
    const auto [tip, direction, length, half] = head;
    const Point base{tip.x - direction.x * length, tip.y - direction.y * length};
    return polygon({tip,
                    {base.x - direction.y * half, base.y - direction.x * half},
                    {base.x + direction.y * half, base.y + direction.x * half}});
}

Path join(std::initializer_list<Path> paths) {
    return [parts = std::vector<Path>(paths)](cairo_t* to) {
        for (const Path& part : parts)
            part(to);
    };
}

Path moved(double dx, double dy, Path path) {
    return [=, path = std::move(path)](cairo_t* to) {
        cairo_save(to);
        cairo_translate(to, dx, dy);
        path(to);
        cairo_restore(to);
    };
}

Paint solid(Colour colour, double alpha) {
    return Paint(cairo_pattern_create_rgba(colour.red, colour.green, colour.blue, alpha));
}

namespace {

Paint withStops(Paint paint, std::initializer_list<Stop> stops) {
    for (const Stop& stop : stops)
        cairo_pattern_add_color_stop_rgba(paint.get(), stop.offset, stop.colour.red,
                                          stop.colour.green, stop.colour.blue, stop.alpha);
    return paint;
}

} // namespace

Paint linear(Point from, Point to, std::initializer_list<Stop> stops) {
    return withStops(Paint(cairo_pattern_create_linear(from.x, from.y, to.x, to.y)), stops);
}

Paint vertical(Rectangle box, std::initializer_list<Stop> stops) {
    return linear({0, box.y}, {0, box.bottom()}, stops);
}

Paint radial(Point centre, double radius, std::initializer_list<Stop> stops) {
    return withStops(
        Paint(cairo_pattern_create_radial(centre.x, centre.y, 0, centre.x, centre.y, radius)),
        stops);
}

} // namespace pedl::skin
