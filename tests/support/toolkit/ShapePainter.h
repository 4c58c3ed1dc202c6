#pragma once

#include <cstdint>
#include <vector>

namespace pedl::test {

/// A premultiplied colour, each part from 0 to 1.
struct Ink {
    double red = 0.0, green = 0.0, blue = 0.0, alpha = 1.0;
};

/// Grey from 0, black, to 1, white.
constexpr Ink grey(double level) {
    return {level, level, level, 1.0};
}

/// Draws shapes with soft edges into premultiplied ARGB pixels.
///
/// Coordinates are logical pixels; the scale says how many image pixels each has. Edges are as soft
/// as one image pixel, so the same shapes are sharp at every scale.
class ShapePainter {
public:
    ShapePainter(int width, int height, int scale);

    void disc(double x, double y, double radius, Ink ink);
    void ring(double x, double y, double radius, double lineWidth, Ink ink);
    /// Round at both ends.
    void line(double fromX, double fromY, double toX, double toY, double lineWidth, Ink ink);
    /// Shaded from `top` to `bottom`.
    void box(double left, double top, double right, double bottom, double cornerRadius, Ink upper,
             Ink lower);

    [[nodiscard]] const std::vector<std::uint32_t>& pixels() const { return pixels_; }
    [[nodiscard]] int widthPixels() const { return widthPixels_; }
    [[nodiscard]] int heightPixels() const { return heightPixels_; }

private:
    template <typename Distance, typename Colour>
    void fill(double left, double top, double right, double bottom, Distance distance,
              Colour colour);
    void blend(int x, int y, Ink ink, double coverage);

    int scale_;
    int widthPixels_, heightPixels_;
    std::vector<std::uint32_t> pixels_;
};

} // namespace pedl::test
