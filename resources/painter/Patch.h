#pragma once

#include "resources/painter/Field.h"
#include "resources/painter/Noise.h"
#include "resources/painter/Painter.h"
#include "resources/painter/Shading.h"

#include <algorithm>
#include <cmath>

namespace pedl::skin {

/// Light of a sample and how much of it the part covers.
struct Sample {
    Light light;
    float cover = 0.0F;
};

/// Where a sample lies: in the fields, and in logical pixels from the part's centre.
struct Spot {
    int column;
    int row;
    float x;
    float y;
};

/// A rounding of four channels to a word; `nudge` (-0.5..0.5) against bands of equal colour.
std::uint32_t toWord(float red, float green, float blue, float alpha, float nudge);

/// A solid part: a height field in logical pixels, several samples a device pixel, lit sample by
/// sample and averaged. Coordinates are logical pixels from the part's centre.
class Patch {
public:
    Patch(double width, double height, int scale, double centreX, double centreY)
        : perPixel_(scale == 1 ? 4 : 3), pixelsWide_(static_cast<int>(std::lround(width * scale))),
          pixelsHigh_(static_cast<int>(std::lround(height * scale))), density_(scale * perPixel_),
          centreX_(static_cast<float>(centreX * density_)),
          centreY_(static_cast<float>(centreY * density_)),
          firstColumn_(static_cast<int>(std::lround(centreX * scale))),
          firstRow_(static_cast<int>(std::lround(centreY * scale))) {}

    /// Samples per logical pixel.
    [[nodiscard]] float density() const { return static_cast<float>(density_); }

    [[nodiscard]] float x(int column) const {
        return (static_cast<float>(column) + 0.5F - centreX_) / density();
    }
    [[nodiscard]] float y(int row) const {
        return (static_cast<float>(row) + 0.5F - centreY_) / density();
    }

    /// How much of a sample lies inside, from its distance to the outline (negative inside).
    [[nodiscard]] float cover(float distance) const {
        return std::clamp(0.5F - distance * density(), 0.0F, 1.0F);
    }

    /// Samples `height` (x, y) and rounds its corners by a blur of `sigma` pixels.
    template <class Height> [[nodiscard]] Field relief(double sigma, Height&& height) const {
        Field field(pixelsWide_ * perPixel_, pixelsHigh_ * perPixel_);
        for (int row = 0; row < field.height; ++row)
            for (int column = 0; column < field.width; ++column)
                field.row(row)[column] = height(x(column), y(row));
        blur(field, sigma * density_);
        return field;
    }

    /// How deep each sample lies below its surroundings, 0..0.75: what its neighbours hide.
    [[nodiscard]] Field occlusion(const Field& relief, float strength, double sigma) const {
        Field field = relief;
        blur(field, sigma * density_);
        for (std::size_t i = 0; i < field.values.size(); ++i)
            field.values[i] =
                std::clamp((field.values[i] - relief.values[i]) * strength, 0.0F, 0.75F);
        return field;
    }

    /// How the surface of the relief stands at a sample.
    [[nodiscard]] Facet facet(const Field& relief, const Spot& spot) const {
        const int column = spot.column;
        const int row = spot.row;
        const int left = std::max(column - 1, 0);
        const int right = std::min(column + 1, relief.width - 1);
        const int above = std::max(row - 1, 0);
        const int below = std::min(row + 1, relief.height - 1);
        return {(relief.row(row)[right] - relief.row(row)[left]) * density() /
                    static_cast<float>(right - left),
                (relief.row(below)[column] - relief.row(above)[column]) * density() /
                    static_cast<float>(below - above)};
    }

    /// Calls `shade` (Spot) for the Sample of every place, averages them into pixels.
    template <class Shade> [[nodiscard]] Picture light(Shade&& shade) const {
        Picture picture{pixelsWide_, pixelsHigh_, {}};
        picture.pixels.reserve(static_cast<std::size_t>(pixelsWide_) *
                               static_cast<std::size_t>(pixelsHigh_));
        for (int row = 0; row < pixelsHigh_; ++row)
            for (int column = 0; column < pixelsWide_; ++column)
                picture.pixels.push_back(pixel(column, row, shade));
        return picture;
    }

    /// The same for a part with an outline: `outline` (x, y) is the distance to it, negative
    /// inside, and `shade` (Spot) the Light of what it covers.
    template <class Outline, class Shade>
    [[nodiscard]] Picture light(Outline&& outline, Shade&& shade) const {
        return light([&](const Spot& spot) -> Sample {
            const float covered = cover(outline(spot.x, spot.y));
            return covered <= 0.0F ? Sample{} : Sample{shade(spot), covered};
        });
    }

private:
    template <class Shade> std::uint32_t pixel(int column, int row, Shade& shade) const {
        Light sum;
        float alpha = 0.0F;
        for (int i = 0; i < perPixel_ * perPixel_; ++i) {
            const int sampleColumn = column * perPixel_ + i % perPixel_;
            const int sampleRow = row * perPixel_ + i / perPixel_;
            const Sample sample =
                shade(Spot{sampleColumn, sampleRow, x(sampleColumn), y(sampleRow)});
            if (sample.cover <= 0.0F)
                continue;
            const Colour colour = screen(sample.light);
            sum += Light{colour.red, colour.green, colour.blue} * sample.cover;
            alpha += sample.cover;
        }
        if (alpha <= 0.0F)
            return 0;
        const float share = 1.0F / static_cast<float>(perPixel_ * perPixel_);
        return toWord(sum.red * share, sum.green * share, sum.blue * share, alpha * share,
                      evenNoise(kDither, column - firstColumn_, row - firstRow_) - 0.5F);
    }

    static constexpr std::uint64_t kDither = 7;
    int perPixel_;
    int pixelsWide_;
    int pixelsHigh_;
    int density_;
    float centreX_; // in samples
    float centreY_;
    // The dither counts from the centre: the same part in frames of two sizes is the same picture.
    int firstColumn_;
    int firstRow_;
};

/// Distance to a rectangle round (0, 0) with rounded corners; negative inside.
inline float roundRectDistance(float x, float y, float halfWidth, float halfHeight, float radius) {
    const float dx = std::fabs(x) - halfWidth + radius;
    const float dy = std::fabs(y) - halfHeight + radius;
    return std::hypot(std::max(dx, 0.0F), std::max(dy, 0.0F)) + std::min(std::max(dx, dy), 0.0F) -
           radius;
}

} // namespace pedl::skin
