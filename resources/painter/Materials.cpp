#include "resources/painter/Materials.h"

#include "resources/painter/Palette.h"
#include "resources/painter/Patch.h"
#include "resources/painter/Shading.h"

#include <array>
#include <cmath>

namespace pedl::skin {

namespace {

/// Calls `colour` (x, y in device pixels) for every pixel of an opaque picture.
template <class Function> Picture opaque(int width, int height, Function&& colour) {
    Picture picture{width, height, {}};
    picture.pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const Colour c = colour(x, y);
            picture.pixels.push_back(
                toWord(c.red, c.green, c.blue, 1.0F, evenNoise(13, x, y) - 0.5F));
        }
    return picture;
}

/// Noise, run along the rows or the columns for `length` samples, of unit variance.
Field strokes(int width, int height, int length, bool down, std::uint64_t seed) {
    const Field noise = bellNoiseField(width, height, seed);
    Field field(width, height);
    const int lines = down ? width : height;
    const int samples = down ? height : width;
    const auto at = [down](auto& of, int line, int i) -> auto& {
        return down ? of.row(i)[line] : of.row(line)[i];
    };
    for (int line = 0; line < lines; ++line) {
        double sum = 0.0;
        for (int i = -length; i < samples; ++i) {
            // Beyond the border the noise goes on as its mirror image.
            const auto value = [&](int place) {
                const int inside = place < 0 ? -1 - place : place;
                return at(noise, line, std::min(inside % (2 * samples), samples - 1));
            };
            sum += value(i);
            if (i >= 0) {
                sum -= value(i - length);
                at(field, line, i) = static_cast<float>(sum);
            }
        }
    }
    normalise(field);
    return field;
}

/// A slow noise over the height, between `points` of it.
class SlowNoise {
public:
    SlowNoise(int points, double sigma, std::uint64_t seed) : line_(points, 1) {
        line_ = bellNoiseField(points, 1, seed);
        blur(line_, sigma);
        normalise(line_);
    }

    /// @param place  0..1
    [[nodiscard]] float operator()(float place) const {
        const float at = place * static_cast<float>(line_.width - 1);
        const int index = std::min(static_cast<int>(at), line_.width - 2);
        const float* values = line_.row(0);
        return values[index] +
               (values[index + 1] - values[index]) * (at - static_cast<float>(index));
    }

private:
    Field line_;
};

} // namespace

Picture powderCoat(int width, int height, int scale, const PowderCoat& coat) {
    const int columns = width * scale;
    const int rows = height * scale;
    Field fine = bellNoiseField(columns, rows, coat.seed);
    blur(fine, scale == 1 ? 0.8 * coat.peel : static_cast<double>(coat.peel) * scale);
    normalise(fine);
    Field coarse = bellNoiseField(columns, rows, coat.seed + 1);
    blur(coarse, 1.6 * scale);
    normalise(coarse);
    for (std::size_t i = 0; i < fine.values.size(); ++i)
        fine.values[i] = 0.95F * fine.values[i] + 0.10F * coarse.values[i];
    Field relief(columns, rows);
    for (int y = 0; y < rows; ++y)
        for (int x = 0; x < columns; ++x) {
            const float* row = fine.row(y);
            const float slopeX = row[std::min(x + 1, columns - 1)] - row[std::max(x - 1, 0)];
            const float slopeY =
                fine.row(std::min(y + 1, rows - 1))[x] - fine.row(std::max(y - 1, 0))[x];
            relief.row(y)[x] = kKeyLight.x * slopeX + kKeyLight.y * slopeY;
        }
    normalise(relief);
    const float strength = coat.grain * (scale == 1 ? 0.7F : 1.0F); // fewer pixels, fewer grains
    return opaque(columns, rows, [&](int x, int y) {
        const float across = (static_cast<float>(x) + 0.5F) / static_cast<float>(columns);
        const float down = (static_cast<float>(y) + 0.5F) / static_cast<float>(rows);
        const float away = 0.45F * across + 0.55F * down;
        const float light =
            coat.nearLight - coat.fall * away +
            0.03F * std::exp(-square((across - 0.22F) / 0.42F) - square((down - 0.16F) / 0.34F));
        const float grain = strength * (relief.row(y)[x] + 0.25F * bellNoise(coat.seed + 2, x, y));
        const float cool = 2.0F * away - 0.8F; // warmer near the light
        const auto part = [=](float base, float tint) {
            return std::clamp(base * light * (1.0F + tint * cool) + std::sqrt(base) * grain, 0.0F,
                              1.0F);
        };
        return Colour{part(coat.colour.red, -0.010F), part(coat.colour.green, 0.0F),
                      part(coat.colour.blue, 0.016F)};
    });
}

/// Part of a cheek's width that it goes on below the plate: the plate's corners are round.
constexpr float kUnderPlate = 0.3F;

Picture walnutCheeks(int width, int height, int cheek, int scale) {
    const int columns = width * scale;
    const int rows = height * scale;
    const SlowNoise warp(40, 2.0, 41);
    const SlowNoise slow(14, 0.8, 42);
    const Field fibre = strokes(columns, rows, 26 * scale, true, 43);
    const auto isPore = [&](int x, int y) {
        for (int above = 0; above < 7 * scale; ++above)
            if (evenNoise(44, x, y - above + 1000) < 0.0025F)
                return true;
        return false;
    };
    return opaque(columns, rows, [&](int column, int row) -> Colour {
        const float x = (static_cast<float>(column) + 0.5F) / static_cast<float>(scale);
        const float y = (static_cast<float>(row) + 0.5F) / static_cast<float>(scale);
        const bool isLeft = 2 * column < columns;
        const float left = isLeft ? 0.0F : static_cast<float>(width - cheek);
        const float u = (x - left) / static_cast<float>(cheek);
        if (u < -kUnderPlate || u > 1.0F + kUnderPlate)
            return palette::kBlack;
        const float place = y / static_cast<float>(height);
        const float along = x + 2.2F * warp(place) + 0.012F * y;
        const float rings = std::pow(
            0.5F + 0.5F * std::sin(along * 1.55F + 1.8F * std::sin(along * 0.37F + 4.0F)), 1.6F);
        const float tone = std::clamp(0.50F + 0.24F * (rings - 0.5F) +
                                          0.10F * fibre.row(row)[column] + 0.07F * slow(place),
                                      0.0F, 1.0F);
        const Colour wood = tone < 0.5F
                                ? mix(palette::kWalnutLow, palette::kWalnut, tone * 2.0F)
                                : mix(palette::kWalnut, palette::kWalnutHigh, tone * 2.0F - 1.0F);
        const float roundness = 0.72F + 0.50F * std::exp(-square((u - 0.34F) / 0.30F)) -
                                0.30F * smoothStep(0.70F, 1.0F, u) -
                                0.20F * smoothStep(0.12F, 0.0F, u);
        const float light =
            roundness * (1.08F - 0.18F * place) * (isPore(column, row) ? 0.72F : 1.0F);
        return {wood.red * light, wood.green * light, wood.blue * light};
    });
}

Picture brushed(int width, int height, int scale, Colour colour, std::uint64_t seed) {
    const int columns = width * scale;
    const int rows = height * scale;
    const Field cuts = strokes(columns, rows, 18 * scale, false, seed);
    return opaque(columns, rows, [&](int x, int y) {
        const float across = (static_cast<float>(x) + 0.5F) / static_cast<float>(columns);
        const float down = (static_cast<float>(y) + 0.5F) / static_cast<float>(rows);
        const float sheen =
            0.94F + 0.14F * std::exp(-square((across - 0.28F - 0.1F * down) / 0.22F));
        const float cut = 0.014F * cuts.row(y)[x];
        return Colour{colour.red * sheen + cut, colour.green * sheen + cut,
                      colour.blue * sheen + cut};
    });
}

Picture speckle(int width, int height, int scale, std::uint64_t seed) {
    Picture picture{width * scale, height * scale, {}};
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x) {
            const float grain = bellNoise(seed, x, y);
            const float alpha = std::fabs(grain) * 0.018F;
            const float level = grain > 0.0F ? alpha : 0.0F;
            picture.pixels.push_back(toWord(level, level, level, alpha, 0.0F));
        }
    return picture;
}

} // namespace pedl::skin
