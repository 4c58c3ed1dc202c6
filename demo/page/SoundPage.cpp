#include "demo/page/SoundPage.h"

#include "demo/Levels.h"
#include "demo/Spectrogram.h"
#include "host/OutputFile.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <utility>

// soundPage.html and soundPage.js as the build found them.
extern "C" {
extern const char pedlSoundPage[];
extern const char pedlSoundPageEnd[];
extern const char pedlSoundScript[];
extern const char pedlSoundScriptEnd[];
}

namespace pedl::demo {

namespace {

using Json = nlohmann::json;

// Places of a spectrogram: more columns the longer a sound is, fewer rows where two stand one above
// the other.
constexpr std::size_t kColumns = 260;
constexpr double kSecondsOfThem = 8.0;
constexpr double kMostTimesColumns = 4.0;
constexpr std::size_t kRows = 76;
constexpr std::size_t kRowsOfTwo = 50;
constexpr double kDarkestDb = -95.0;
constexpr double kBrightestDb = -15.0;

// The gain's scale lies over the lower two thirds of the picture, 0 dB in their middle.
constexpr double kGainLowDb = -48.0;
constexpr double kGainHighDb = 36.0;
constexpr int kTraceHeight = 1000; ///< of the picture, in the numbers of a trace

std::string base64(const std::string& bytes) {
    constexpr std::string_view kDigits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t three = 0;
        for (std::size_t k = 0; k < 3; ++k)
            three =
                three << 8 | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += i + k > bytes.size() ? '=' : kDigits[three >> (18 - 6 * k) & 63U];
    }
    return text;
}

std::size_t columnsFor(double seconds) {
    const double times = std::clamp(seconds / kSecondsOfThem, 1.0, kMostTimesColumns);
    return static_cast<std::size_t>(std::lround(kColumns * times));
}

/// A byte a place, column by column from the lowest note up.
std::string bytesOf(const Spectrogram& spectrogram) {
    std::string bytes;
    for (std::size_t column = 0; column < spectrogram.columns(); ++column)
        for (std::size_t row = 0; row < spectrogram.rows(); ++row) {
            const double part =
                (spectrogram.levelDb(column, row) - kDarkestDb) / (kBrightestDb - kDarkestDb);
            bytes += static_cast<char>(std::lround(255.0 * std::clamp(part, 0.0, 1.0)));
        }
    return base64(bytes);
}

/// Heights in the picture, one for each of `points`.
template <typename Height>
Json curve(const ModulationTrace& trace, std::size_t points, const Height& height) {
    Json heights = Json::array();
    for (std::size_t i = 0; i < points && !trace.empty(); ++i) {
        const double part = height(trace[i * trace.size() / points]);
        heights.push_back(std::lround(kTraceHeight * std::clamp(part, 0.0, 1.0)));
    }
    return heights;
}

double gainHeight(double gain) {
    const double gainDb = decibelsOf(gain);
    return (gainDb - kGainLowDb) / (kGainHighDb - kGainLowDb);
}

/// One spectrogram with what moved it; both channels, which go the same way, or one of them.
Json panelOf(const PageRendering& rendering, Side side) {
    const FrequencyAxis axis;
    const std::size_t columns = columnsFor(rendering.output.lengthSeconds());
    const std::size_t rows = side == Side::Both ? kRows : kRowsOfTwo;
    const std::size_t points = 2 * columns; // fast movement stays visible
    const bool isRight = side == Side::Right;
    Json panel{{"side", side == Side::Both ? "both"
                        : isRight          ? "right"
                                           : "left"},
               {"columns", columns},
               {"rows", rows},
               {"picture", bytesOf(Spectrogram(rendering.output, axis, columns, rows, side))}};
    panel["cutoff"] = curve(rendering.trace, points, [&](const ModulationPoint& p) {
        return axis.positionOf(isRight ? p.cutoffRightHz : p.cutoffLeftHz);
    });
    if (gainMatters(rendering.trace))
        panel["gain"] = curve(rendering.trace, points, [&](const ModulationPoint& p) {
            return gainHeight(isRight ? p.gainRight : p.gainLeft);
        });
    return panel;
}

Json renderingOf(const PageRendering& rendering) {
    Json panels;
    if (channelsDiffer(rendering.trace))
        panels = Json::array({panelOf(rendering, Side::Left), panelOf(rendering, Side::Right)});
    else
        panels = Json::array({panelOf(rendering, Side::Both)});
    return {{"material", rendering.material},
            {"sound", rendering.sound},
            {"larger", rendering.picture},
            {"panels", std::move(panels)}};
}

/// What stands before a word and what behind it.
std::pair<std::string_view, std::string_view> dividedAt(std::string_view text,
                                                        std::string_view word) {
    const std::size_t place = text.find(word);
    return {text.substr(0, place), text.substr(place + word.size())};
}

} // namespace

struct SoundPage::Data {
    Json json;
};

SoundPage::SoundPage(const PageWords& words, const std::vector<PageMaterial>& materials)
    : data_(std::make_unique<Data>()) {
    data_->json = {{"title", words.title},       {"entriesWord", words.entries},
                   {"numberWord", words.number}, {"notes", words.notes},
                   {"gainLowDb", kGainLowDb},    {"gainHighDb", kGainHighDb},
                   {"materials", Json::array()}, {"entries", Json::array()}};
    for (const PageMaterial& material : materials)
        data_->json["materials"].push_back(
            {{"name", material.name}, {"sound", material.sound}, {"seconds", material.seconds}});
}

SoundPage::~SoundPage() = default;

void SoundPage::add(const PageEntry& entry, const std::vector<PageRendering>& renderings) {
    Json all = Json::array();
    for (const PageRendering& rendering : renderings)
        all.push_back(renderingOf(rendering));
    data_->json["entries"].push_back({{"number", entry.number},
                                      {"name", entry.name},
                                      {"family", entry.family},
                                      {"purpose", entry.purpose},
                                      {"turnFirst", entry.turnFirst},
                                      {"settings", entry.settings},
                                      {"renderings", std::move(all)}});
}

void SoundPage::write(const std::filesystem::path& file) const {
    const std::string_view page(pedlSoundPage, pedlSoundPageEnd);
    const std::string_view script(pedlSoundScript, pedlSoundScriptEnd);
    // Names come from files: bytes that are no text are replaced, and none ends the element.
    std::string data = data_->json.dump(-1, ' ', true, Json::error_handler_t::replace);
    for (std::size_t at = 0; (at = data.find('<', at)) != std::string::npos;)
        data.replace(at, 1, "\\u003c");

    const Result<std::unique_ptr<OutputFile>> output = OutputFile::create(file);
    if (!output.ok())
        throw std::runtime_error(output.problem().text);
    const auto [beforeData, afterData] = dividedAt(page, "@DATA@");
    const auto [beforeScript, afterScript] = dividedAt(afterData, "@SCRIPT@");
    for (const std::string_view text :
         {beforeData, std::string_view(data), beforeScript, script, afterScript})
        output.value()->write(text.data(), text.size());
    if (const Done written = output.value()->commit(); !written.ok())
        throw std::runtime_error(written.problem().text);
}

} // namespace pedl::demo
