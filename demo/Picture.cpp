#include "demo/Picture.h"

#include "demo/Spectrogram.h"

#include <cairo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>

namespace pedl::demo {

namespace {

struct Colour {
    double red, green, blue;
};

struct Rectangle {
    double x, y, width, height; // pixels from the upper left corner

    [[nodiscard]] double right() const { return x + width; }
    [[nodiscard]] double bottom() const { return y + height; }
};

constexpr int kWidth = 1400;
constexpr int kHeight = 800;
constexpr Rectangle kSpectrum{84.0, 112.0, 1140.0, 506.0};
constexpr Rectangle kWaves{84.0, 632.0, 1140.0, 112.0};
constexpr Rectangle kLevelScale{1316.0, 112.0, 16.0, 506.0};

constexpr double kQuietestDb = -90.0; // the dark end of the colours
constexpr double kLoudestDb = -10.0;  // the bright end
constexpr double kLowestGainDb = -36.0;
constexpr double kHighestGainDb = 15.0; // the gain's own bound is +12.2 dB

constexpr Colour kPaper{0.071, 0.075, 0.098};
constexpr Colour kText{0.90, 0.91, 0.94};
constexpr Colour kFaintText{0.60, 0.62, 0.68};
constexpr Colour kGrid{1.0, 1.0, 1.0};
constexpr Colour kBoth{0.35, 0.95, 1.0};
constexpr Colour kLeft{0.35, 0.95, 1.0};
constexpr Colour kRight{0.63, 1.0, 0.42};
constexpr Colour kGain{1.0, 1.0, 1.0};
constexpr Colour kBefore{0.36, 0.38, 0.45};
constexpr Colour kAfter{0.95, 0.49, 0.42};

const FrequencyAxis kFrequencyAxis;

// Surface and texts
// --------------------------------------------------------------------------------

struct Destroy {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Surface = std::unique_ptr<cairo_surface_t, Destroy>;
using Context = std::unique_ptr<cairo_t, Destroy>;

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

/// @param anchor  0: the text begins at x, 0.5: it is centred there, 1: it ends there
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

/// The text, with an ellipsis for what does not fit.
std::string fitted(cairo_t* pen, std::string text, double widthPixels) {
    if (widthOf(pen, text) <= widthPixels)
        return text;
    while (!text.empty() && widthOf(pen, text + "…") > widthPixels)
        text.pop_back();
    return text + "…";
}

void drawLine(cairo_t* pen, double fromX, double fromY, double toX, double toY) {
    cairo_move_to(pen, fromX, fromY);
    cairo_line_to(pen, toX, toY);
    cairo_stroke(pen);
}

void clipTo(cairo_t* pen, const Rectangle& area) {
    cairo_rectangle(pen, area.x, area.y, area.width, area.height);
    cairo_clip(pen);
}

// Spectrogram
// --------------------------------------------------------------------------------------

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

void drawSpectrogram(cairo_t* pen, const StereoSound& sound) {
    const auto columns = static_cast<std::size_t>(kSpectrum.width);
    const auto rows = static_cast<std::size_t>(kSpectrum.height);
    const Spectrogram spectrogram(sound, kFrequencyAxis, columns, rows);

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
    cairo_set_source_surface(pen, image.get(), kSpectrum.x, kSpectrum.y);
    cairo_paint(pen);
}

// Axes
// ---------------------------------------------------------------------------------------------

double yOfFrequency(double hertz) {
    return kSpectrum.bottom() - kSpectrum.height * kFrequencyAxis.positionOf(hertz);
}

double yOfGain(double gainDb) {
    const double share = (gainDb - kLowestGainDb) / (kHighestGainDb - kLowestGainDb);
    return kSpectrum.bottom() - kSpectrum.height * std::clamp(share, 0.0, 1.0);
}

double xOfTime(double seconds, double lengthSeconds) {
    return kSpectrum.x + kSpectrum.width * seconds / lengthSeconds;
}

void drawFrequencyAxis(cairo_t* pen) {
    struct Mark {
        double hertz;
        const char* text; // none: a line without a number
    };
    // clang-format off
    constexpr std::array<Mark, 11> kMarks{{
        {20, "20"}, {50, "50"}, {100, "100"}, {200, "200"}, {500, "500"}, {1000, "1k"},
        {2000, "2k"}, {5000, "5k"}, {10000, "10k"}, {15000, nullptr}, {20000, "20k"}}};
    // clang-format on
    setFont(pen, 12.0, CAIRO_FONT_WEIGHT_NORMAL);
    for (const Mark& mark : kMarks) {
        const double y = yOfFrequency(mark.hertz);
        setColour(pen, kGrid, 0.10);
        cairo_set_line_width(pen, 1.0);
        drawLine(pen, kSpectrum.x, y, kSpectrum.right(), y);
        if (mark.text == nullptr)
            continue;
        setColour(pen, kFaintText, 1.0);
        write(pen, mark.text, kSpectrum.x - 8.0, y + 4.0, 1.0);
    }
    setColour(pen, kFaintText, 1.0);
    writeUpwards(pen, "frequency (Hz)", 30.0, kSpectrum.y + kSpectrum.height / 2.0);
}

void drawGainAxis(cairo_t* pen) {
    setFont(pen, 12.0, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_line_width(pen, 1.0);
    for (int gainDb = -36; gainDb <= 12; gainDb += 12) {
        const double y = yOfGain(gainDb);
        setColour(pen, kGain, 0.7);
        drawLine(pen, kSpectrum.right(), y, kSpectrum.right() + 5.0, y);
        std::array<char, 8> text{};
        std::snprintf(text.data(), text.size(), gainDb == 0 ? "%d" : "%+d", gainDb);
        setColour(pen, kText, 1.0);
        write(pen, text.data(), kSpectrum.right() + 9.0, y + 4.0, 0.0);
    }
    writeUpwards(pen, "output gain (dB)", kSpectrum.right() + 52.0,
                 kSpectrum.y + kSpectrum.height / 2.0);
}

void drawLevelScale(cairo_t* pen) {
    for (double y = 0.0; y < kLevelScale.height; y += 1.0) {
        const double share = 1.0 - y / kLevelScale.height;
        setColour(pen, colourOfLevel(std::lerp(kQuietestDb, kLoudestDb, share)), 1.0);
        cairo_rectangle(pen, kLevelScale.x, kLevelScale.y + y, kLevelScale.width, 1.0);
        cairo_fill(pen);
    }
    setFont(pen, 12.0, CAIRO_FONT_WEIGHT_NORMAL);
    setColour(pen, kFaintText, 1.0);
    for (int levelDb = -90; levelDb <= -10; levelDb += 20) {
        const double share = (levelDb - kQuietestDb) / (kLoudestDb - kQuietestDb);
        const double y = kLevelScale.bottom() - kLevelScale.height * share;
        write(pen, std::to_string(levelDb), kLevelScale.right() + 7.0, y + 4.0, 0.0);
    }
    writeUpwards(pen, "level (dBFS)", kLevelScale.right() + 48.0,
                 kLevelScale.y + kLevelScale.height / 2.0);
}

/// A mark for each second of a short sound, for each ten or hundred of a longer one.
void drawTimeAxis(cairo_t* pen, double lengthSeconds) {
    double step = 1.0;
    while (lengthSeconds / step > 16.0)
        step *= lengthSeconds / step > 40.0 ? 5.0 : 2.0;
    setFont(pen, 12.0, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_line_width(pen, 1.0);
    for (double seconds = 0.0; seconds <= lengthSeconds + 1e-9; seconds += step) {
        const double x = xOfTime(seconds, lengthSeconds);
        setColour(pen, kGrid, 0.10);
        drawLine(pen, x, kSpectrum.y, x, kSpectrum.bottom());
        drawLine(pen, x, kWaves.y, x, kWaves.bottom());
        setColour(pen, kFaintText, 1.0);
        write(pen, std::to_string(std::lround(seconds)), x, kWaves.bottom() + 18.0, 0.5);
    }
    write(pen, "time (s)", kWaves.x + kWaves.width / 2.0, kWaves.bottom() + 36.0, 0.5);
}

// Traces
// -------------------------------------------------------------------------------------------

struct Extent {
    double lowest, highest;
};

using Reader = std::function<double(const ModulationPoint&)>;

/// A trace as a line over a dark rim, which keeps it apart from bright sound below it. Within one
/// column of pixels it goes from the lowest to the highest value, so that no spike is lost.
void drawTrace(cairo_t* pen, const ModulationTrace& trace, double lengthSeconds, const Reader& yOf,
               const Colour& colour, double widthPixels) {
    std::vector<Extent> columns(static_cast<std::size_t>(kSpectrum.width), {1e9, -1e9});
    for (const ModulationPoint& point : trace) {
        const auto column = static_cast<std::size_t>(
            std::clamp(point.seconds / lengthSeconds, 0.0, 0.999999) * kSpectrum.width);
        const double y = yOf(point);
        columns[column] = {std::min(columns[column].lowest, y),
                           std::max(columns[column].highest, y)};
    }
    cairo_new_path(pen);
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const double x = kSpectrum.x + static_cast<double>(column) + 0.5;
        if (columns[column].lowest > columns[column].highest)
            continue; // a sound shorter than the picture is wide leaves gaps; the line spans them
        double last = columns[column].lowest;
        if (cairo_has_current_point(pen)) {
            double unused = 0.0;
            cairo_get_current_point(pen, &unused, &last);
        }
        const Extent extent = columns[column];
        const bool isNearerToTheLowest =
            std::abs(last - extent.lowest) < std::abs(last - extent.highest);
        cairo_line_to(pen, x, isNearerToTheLowest ? extent.lowest : extent.highest);
        cairo_line_to(pen, x, isNearerToTheLowest ? extent.highest : extent.lowest);
    }
    cairo_set_line_join(pen, CAIRO_LINE_JOIN_ROUND);
    setColour(pen, kPaper, 0.75);
    cairo_set_line_width(pen, widthPixels + 2.6);
    cairo_stroke_preserve(pen);
    setColour(pen, colour, 1.0);
    cairo_set_line_width(pen, widthPixels);
    cairo_stroke(pen);
}

double decibels(double gain) {
    return 20.0 * std::log10(std::max(gain, 1e-6));
}

/// Whether both channels go the same way, to the eye.
bool areEqual(const ModulationTrace& trace, const Reader& left, const Reader& right) {
    return std::all_of(trace.begin(), trace.end(), [&](const ModulationPoint& point) {
        return std::abs(left(point) - right(point)) < 0.5;
    });
}

struct LegendEntry {
    std::string text;
    Colour colour;
    double widthPixels;
};

/// Draws both channels of a pair, or one line where they are equal; returns what the legend says.
std::vector<LegendEntry> drawPair(cairo_t* pen, const ModulationTrace& trace, double lengthSeconds,
                                  const std::string& name, const Reader& left, const Reader& right,
                                  const std::array<LegendEntry, 3>& looks) {
    const auto& [both, onLeft, onRight] = looks;
    if (areEqual(trace, left, right)) {
        drawTrace(pen, trace, lengthSeconds, left, both.colour, both.widthPixels);
        return {{name + both.text, both.colour, both.widthPixels}};
    }
    drawTrace(pen, trace, lengthSeconds, left, onLeft.colour, onLeft.widthPixels);
    drawTrace(pen, trace, lengthSeconds, right, onRight.colour, onRight.widthPixels);
    return {{name + onLeft.text, onLeft.colour, onLeft.widthPixels},
            {name + onRight.text, onRight.colour, onRight.widthPixels}};
}

std::vector<LegendEntry> drawTraces(cairo_t* pen, const ModulationTrace& trace,
                                    double lengthSeconds) {
    constexpr double kThick = 2.4;
    constexpr double kThin = 1.3;
    std::vector<LegendEntry> legend = drawPair(
        pen, trace, lengthSeconds, "output gain",
        [](const ModulationPoint& point) { return yOfGain(decibels(point.gainLeft)); },
        [](const ModulationPoint& point) { return yOfGain(decibels(point.gainRight)); },
        {{{"", kGain, kThin}, {" left", kGain, kThin}, {" right", kRight, kThin}}});
    const std::vector<LegendEntry> cutoff = drawPair(
        pen, trace, lengthSeconds, "cut-off",
        [](const ModulationPoint& point) { return yOfFrequency(point.cutoffLeftHz); },
        [](const ModulationPoint& point) { return yOfFrequency(point.cutoffRightHz); },
        {{{"", kBoth, kThick}, {" left", kLeft, kThick}, {" right", kRight, kThick}}});
    legend.insert(legend.begin(), cutoff.begin(), cutoff.end());
    return legend;
}

// Waveforms
// ----------------------------------------------------------------------------------------

void drawWave(cairo_t* pen, const StereoSound& sound, const Colour& colour, double opacity) {
    const double middle = kWaves.y + kWaves.height / 2.0;
    const double framesPerColumn = static_cast<double>(sound.lengthFrames()) / kWaves.width;
    setColour(pen, colour, opacity);
    for (double column = 0.0; column < kWaves.width; column += 1.0) {
        const auto from = static_cast<std::size_t>(column * framesPerColumn);
        const auto to =
            std::max(from + 1, static_cast<std::size_t>((column + 1) * framesPerColumn));
        Extent extent{0.0, 0.0};
        for (std::size_t i = from; i < std::min(to, sound.lengthFrames()); ++i) {
            const double sample = 0.5 * (sound.left[i] + sound.right[i]);
            extent = {std::min(extent.lowest, sample), std::max(extent.highest, sample)};
        }
        const double top = middle - extent.highest * kWaves.height / 2.0;
        const double bottom = middle - extent.lowest * kWaves.height / 2.0;
        cairo_rectangle(pen, kWaves.x + column, top, 1.0, std::max(1.0, bottom - top));
    }
    cairo_fill(pen);
}

void drawWaves(cairo_t* pen, const StereoSound& input, const StereoSound& output) {
    setColour(pen, colourOfLevel(kQuietestDb), 1.0);
    cairo_rectangle(pen, kWaves.x, kWaves.y, kWaves.width, kWaves.height);
    cairo_fill(pen);
    cairo_save(pen);
    clipTo(pen, kWaves);
    drawWave(pen, input, kBefore, 1.0);
    drawWave(pen, output, kAfter, 0.8);
    cairo_restore(pen);

    setFont(pen, 12.0, CAIRO_FONT_WEIGHT_NORMAL);
    setColour(pen, kFaintText, 1.0);
    writeUpwards(pen, "wave", 30.0, kWaves.y + kWaves.height / 2.0);
    write(pen, "+1", kWaves.x - 8.0, kWaves.y + 10.0, 1.0);
    write(pen, "0", kWaves.x - 8.0, kWaves.y + kWaves.height / 2.0 + 4.0, 1.0);
    write(pen, "−1", kWaves.x - 8.0, kWaves.bottom(), 1.0);
    setColour(pen, kBefore, 1.0);
    cairo_rectangle(pen, kWaves.right() + 12.0, kWaves.y + 30.0, 12.0, 12.0);
    cairo_fill(pen);
    setColour(pen, kAfter, 1.0);
    cairo_rectangle(pen, kWaves.right() + 12.0, kWaves.y + 54.0, 12.0, 12.0);
    cairo_fill(pen);
    setColour(pen, kText, 1.0);
    write(pen, "input", kWaves.right() + 31.0, kWaves.y + 41.0, 0.0);
    write(pen, "output", kWaves.right() + 31.0, kWaves.y + 65.0, 0.0);
}

// Words
// --------------------------------------------------------------------------------------------

void drawCaption(cairo_t* pen, const Caption& caption) {
    const double width = kLevelScale.right() + 48.0 - kSpectrum.x;
    setColour(pen, kText, 1.0);
    setFont(pen, 22.0, CAIRO_FONT_WEIGHT_BOLD);
    write(pen, fitted(pen, caption.title, width), kSpectrum.x, 38.0, 0.0);
    setFont(pen, 14.0, CAIRO_FONT_WEIGHT_NORMAL);
    write(pen, fitted(pen, caption.listen, width), kSpectrum.x, 63.0, 0.0);
    setColour(pen, kFaintText, 1.0);
    setFont(pen, 12.0, CAIRO_FONT_WEIGHT_NORMAL);
    write(pen, fitted(pen, caption.settings, width), kSpectrum.x, 84.0, 0.0);
}

void drawLegend(cairo_t* pen, const std::vector<LegendEntry>& entries) {
    constexpr double kSampleWidth = 26.0;
    constexpr double kGap = 8.0;
    constexpr double kBetween = 20.0;
    constexpr double kRowHeight = 28.0;
    setFont(pen, 13.0, CAIRO_FONT_WEIGHT_NORMAL);
    double width = 0.0;
    for (const LegendEntry& entry : entries)
        width += kBetween + kSampleWidth + kGap + widthOf(pen, entry.text);
    double x = kSpectrum.right() - width + kBetween;
    const double y = 16.0;
    for (const LegendEntry& entry : entries) {
        setColour(pen, entry.colour, 1.0);
        cairo_set_line_width(pen, entry.widthPixels);
        drawLine(pen, x, y + kRowHeight / 2.0, x + kSampleWidth, y + kRowHeight / 2.0);
        x += kSampleWidth + kGap;
        setColour(pen, kText, 1.0);
        write(pen, entry.text, x, y + kRowHeight / 2.0 + 4.5, 0.0);
        x += widthOf(pen, entry.text) + kBetween;
    }
}

} // namespace

void drawPicture(const std::string& path, const Caption& caption, const StereoSound& input,
                 const StereoSound& output, const ModulationTrace& trace) {
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, kWidth, kHeight));
    const Context context(cairo_create(surface.get()));
    cairo_t* pen = context.get();
    setColour(pen, kPaper, 1.0);
    cairo_paint(pen);

    const double lengthSeconds = output.lengthSeconds();
    drawCaption(pen, caption);
    drawSpectrogram(pen, output);
    drawWaves(pen, input, output);
    drawTimeAxis(pen, lengthSeconds);
    drawFrequencyAxis(pen);
    drawGainAxis(pen);
    drawLevelScale(pen);
    cairo_save(pen);
    clipTo(pen, kSpectrum);
    const std::vector<LegendEntry> legend = drawTraces(pen, trace, lengthSeconds);
    cairo_restore(pen);
    drawLegend(pen, legend);

    const cairo_status_t status = cairo_surface_write_to_png(surface.get(), path.c_str());
    if (status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error(path + ": " + cairo_status_to_string(status));
}

} // namespace pedl::demo
