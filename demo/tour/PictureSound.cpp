#include "demo/tour/PictureSound.h"

#include "demo/Spectrogram.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace pedl::demo {

namespace {

constexpr double kQuietestDb = -90.0; // the dark end of the colours
constexpr double kLoudestDb = -10.0;  // the bright end

constexpr Colour kBefore{0.36, 0.38, 0.45};
constexpr Colour kAfter{0.95, 0.49, 0.42};

/// From dark violet over red to pale yellow, evenly brighter throughout.
Colour colourOfLevel(double levelDb) {
    // clang-format off
    constexpr std::array<Colour, 9> kStops{{
        {0.020, 0.016, 0.055}, {0.110, 0.067, 0.267}, {0.310, 0.071, 0.482},
        {0.506, 0.145, 0.506}, {0.710, 0.212, 0.478}, {0.898, 0.314, 0.392},
        {0.984, 0.529, 0.380}, {0.996, 0.761, 0.529}, {0.988, 0.992, 0.749}}};
    // clang-format on
    const double share = std::clamp((levelDb - kQuietestDb) / (kLoudestDb - kQuietestDb), 0.0, 1.0);
    const double place = share * (kStops.size() - 1.0);
    const std::size_t below = std::min(static_cast<std::size_t>(place), kStops.size() - 2);
    const double rest = place - static_cast<double>(below);
    const Colour& from = kStops[below];
    const Colour& to = kStops[below + 1];
    return {std::lerp(from.red, to.red, rest), std::lerp(from.green, to.green, rest),
            std::lerp(from.blue, to.blue, rest)};
}

std::uint32_t pixelOf(const Colour& colour) {
    const auto byte = [](double share) {
        return static_cast<std::uint32_t>(std::lround(share * 255.0));
    };
    return byte(colour.red) << 16 | byte(colour.green) << 8 | byte(colour.blue);
}

const char* nameOf(Side side) {
    return side == Side::Both ? "left and right averaged" : side == Side::Left ? "left" : "right";
}

float sampleOf(const StereoSound& sound, Side side, std::size_t frame) {
    if (side == Side::Both)
        return 0.5F * (sound.left[frame] + sound.right[frame]);
    return side == Side::Left ? sound.left[frame] : sound.right[frame];
}

void drawWave(cairo_t* pen, const Panel& panel, const StereoSound& sound, const Colour& colour,
              double opacity) {
    const Rectangle& area = panel.waves;
    const double framesPerColumn = static_cast<double>(sound.lengthFrames()) / area.width;
    setColour(pen, colour, opacity);
    for (double column = 0.0; column < area.width; column += 1.0) {
        const auto from = static_cast<std::size_t>(column * framesPerColumn);
        const auto to =
            std::max(from + 1, static_cast<std::size_t>((column + 1) * framesPerColumn));
        float lowest = 0.0F;
        float highest = 0.0F;
        for (std::size_t i = from; i < std::min(to, sound.lengthFrames()); ++i) {
            const float sample = sampleOf(sound, panel.side, i);
            lowest = std::min(lowest, sample);
            highest = std::max(highest, sample);
        }
        const double top = area.middleY() - highest * area.height / 2.0;
        const double bottom = area.middleY() - lowest * area.height / 2.0;
        cairo_rectangle(pen, area.x + column, top, 1.0, std::max(1.0, bottom - top));
    }
    cairo_fill(pen);
}

} // namespace

void drawSpectrogram(cairo_t* pen, const Panel& panel, const StereoSound& sound) {
    const auto columns = static_cast<std::size_t>(panel.spectrum.width);
    const auto rows = static_cast<std::size_t>(panel.spectrum.height);
    const Spectrogram spectrogram(sound, {}, columns, rows, panel.side);

    const Surface image(cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(columns),
                                                   static_cast<int>(rows)));
    cairo_surface_flush(image.get());
    auto* pixels = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(image.get()));
    const auto stride =
        static_cast<std::size_t>(cairo_image_surface_get_stride(image.get())) / sizeof *pixels;
    for (std::size_t column = 0; column < columns; ++column)
        for (std::size_t row = 0; row < rows; ++row)
            pixels[(rows - 1 - row) * stride + column] =
                pixelOf(colourOfLevel(std::round(spectrogram.levelDb(column, row))));
    cairo_surface_mark_dirty(image.get());
    cairo_set_source_surface(pen, image.get(), panel.spectrum.x, panel.spectrum.y);
    cairo_paint(pen);

    setFont(pen, kSmallPixels, CAIRO_FONT_WEIGHT_NORMAL);
    const std::string name = nameOf(panel.side);
    const double right = panel.spectrum.right() - 8.0;
    const double width = widthOf(pen, name) + 12.0;
    setColour(pen, kPaper, 0.75);
    fill(pen, {right + 6.0 - width, panel.spectrum.y + 4.0, width, 19.0});
    setColour(pen, kText, 1.0);
    write(pen, name, right, panel.spectrum.y + 18.0, 1.0);
}

void drawLevelScale(cairo_t* pen, const Rectangle& area) {
    for (double y = 0.0; y < area.height; y += 1.0) {
        const double share = 1.0 - y / area.height;
        setColour(pen, colourOfLevel(std::lerp(kQuietestDb, kLoudestDb, share)), 1.0);
        fill(pen, {area.x, area.y + y, area.width, 1.0});
    }
    setFont(pen, kSmallPixels, CAIRO_FONT_WEIGHT_NORMAL);
    setColour(pen, kFaintText, 1.0);
    for (int levelDb = -90; levelDb <= -10; levelDb += 20) {
        const double share = (levelDb - kQuietestDb) / (kLoudestDb - kQuietestDb);
        const double y = area.bottom() - area.height * share;
        write(pen, std::to_string(levelDb), area.right() + 7.0, y + 4.0, 0.0);
    }
    writeUpwards(pen, "level (dBFS)", area.right() + 48.0, area.middleY());
}

void drawWaves(cairo_t* pen, const Panel& panel, const StereoSound& input,
               const StereoSound& output) {
    const Rectangle& area = panel.waves;
    setColour(pen, colourOfLevel(kQuietestDb), 1.0);
    fill(pen, area);
    cairo_save(pen);
    clipTo(pen, area);
    drawWave(pen, panel, input, kBefore, 1.0);
    drawWave(pen, panel, output, kAfter, 0.8);
    cairo_restore(pen);

    setFont(pen, kSmallPixels, CAIRO_FONT_WEIGHT_NORMAL);
    setColour(pen, kFaintText, 1.0);
    writeUpwards(pen, panel.side == Side::Both ? "wave" : nameOf(panel.side), 30.0, area.middleY());
    write(pen, "+1", area.x - 8.0, area.y + 10.0, 1.0);
    write(pen, "0", area.x - 8.0, area.middleY() + 4.0, 1.0);
    write(pen, "−1", area.x - 8.0, area.bottom(), 1.0);
}

void drawWaveLegend(cairo_t* pen, const Rectangle& waves) {
    struct Entry {
        const char* text;
        Colour colour;
    };
    double y = waves.middleY() - 26.0;
    for (const Entry& entry : {Entry{"input", kBefore}, Entry{"output", kAfter}}) {
        setColour(pen, entry.colour, 1.0);
        fill(pen, {waves.right() + 12.0, y, 12.0, 12.0});
        setColour(pen, kText, 1.0);
        write(pen, entry.text, waves.right() + 31.0, y + 11.0, 0.0);
        y += 24.0;
    }
}

} // namespace pedl::demo
