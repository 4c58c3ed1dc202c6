#pragma once

#include "resources/painter/Colour.h"
#include "resources/painter/Painter.h"

#include <cairo.h>

#include <functional>
#include <initializer_list>
#include <memory>

namespace pedl::skin {

struct Point {
    double x, y;
};

struct Rectangle {
    double x, y, width, height;

    [[nodiscard]] double right() const { return x + width; }
    [[nodiscard]] double bottom() const { return y + height; }
    /// Smaller by `by` on every side.
    [[nodiscard]] Rectangle inset(double by) const {
        return {x + by, y + by, width - 2 * by, height - 2 * by};
    }
};

/// Adds itself to the context's current path.
using Path = std::function<void(cairo_t*)>;

Path rectangle(Rectangle box);
Path roundRect(Rectangle box, double radius);
Path circle(double x, double y, double radius);
Path polygon(std::initializer_list<Point> corners);
Path polyline(std::initializer_list<Point> points);

/// The head of an arrow. At scale 1 it is built of whole pixels: smoothed, it would be a blot.
struct ArrowHead {
    Point tip;
    Point direction; // a unit vector along one of the axes
    double length;
    double half; // of its base
};
Path arrowHead(const ArrowHead& head, int scale);

/// All of them.
Path join(std::initializer_list<Path> paths);
Path moved(double dx, double dy, Path path);

struct CairoDeleter {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};

/// What an area or a line is filled with.
using Paint = std::unique_ptr<cairo_pattern_t, CairoDeleter>;

struct Stop {
    double offset; // 0..1
    Colour colour;
    double alpha = 1.0;
};

Paint solid(Colour colour, double alpha = 1.0);
Paint linear(Point from, Point to, std::initializer_list<Stop> stops);
/// Down over a box.
Paint vertical(Rectangle box, std::initializer_list<Stop> stops);
Paint radial(Point centre, double radius, std::initializer_list<Stop> stops);

/// A shadow or a glow: the path's filled shape, blurred and moved.
struct Soft {
    Colour colour;
    double alpha;
    double sigma; // logical pixels
    double dx = 0.0, dy = 0.0;
};

/// A picture to draw on. All lengths are logical pixels, at any scale.
class Canvas {
public:
    Canvas(double width, double height, int scale);

    [[nodiscard]] int scale() const { return scale_; }

    void fill(const Path& path, const Paint& paint);
    void fill(const Path& path, Colour colour) { fill(path, solid(colour)); }
    void stroke(const Path& path, double lineWidth, const Paint& paint);
    /// The same with round ends and corners.
    void strokeRound(const Path& path, double lineWidth, const Paint& paint);

    void soft(const Path& path, const Soft& soft);
    /// The blurred outside of the path, cut off at the path: the shadow that its edge throws
    /// inwards.
    void softInside(const Path& path, const Soft& soft);

    /// The picture's device pixels from (x, y) on, which is rounded to a device pixel.
    void put(const Picture& picture, double x, double y);

    /// What `draw` draws shows within the path alone.
    void clipped(const Path& path, const std::function<void()>& draw);
    /// Coordinates within `draw` begin at (x, y) and count `factor` pixels each.
    void placed(double x, double y, double factor, const std::function<void()>& draw);

    [[nodiscard]] Picture picture() const;
    [[nodiscard]] cairo_t* context() { return context_.get(); }

private:
    /// From a device pixel on.
    void putAt(const Picture& picture, int column, int row);
    void addPath(const Path& path);
    void softened(const Path& path, const Soft& soft, const Path* inside);

    int scale_;
    std::unique_ptr<cairo_surface_t, CairoDeleter> surface_;
    std::unique_ptr<cairo_t, CairoDeleter> context_;
};

} // namespace pedl::skin
