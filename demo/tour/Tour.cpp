#include "demo/tour/Tour.h"

#include "demo/Levels.h"
#include "demo/OwnSound.h"
#include "demo/Synthesis.h"
#include "demo/page/SoundPage.h"
#include "demo/tour/CommandRun.h"
#include "demo/tour/DemoSetting.h"
#include "demo/tour/Picture.h"
#include "demo/tour/SettingTrace.h"
#include "demo/tour/StretchedCurves.h"
#include "foundation/text/FormattedText.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace pedl::demo {

namespace {

namespace fs = std::filesystem;

/// The curves are made for the material.
constexpr double kMaterialSeconds = static_cast<double>(kLengthFrames) / kSampleRateHz;

/// One setting on its way to the page.
struct Stop {
    DemoSetting setting;
    SettingWords words;
    std::string caption; ///< of its picture, which may go about alone
    fs::path input;
    std::string name; ///< of its files
};

/// What all stops have in common.
struct Route {
    std::vector<Stop> stops;
    std::string title;
    std::vector<std::string> notes;
    fs::path curves;
};

Route routeOverMaterial(const TourRequest& request, const std::vector<DemoSetting>& settings) {
    Route route{{}, "demonstration", {}, request.settings.parent_path() / "curves"};
    for (const DemoSetting& setting : settings) {
        const fs::path input = request.material / (setting.material + ".wav");
        route.stops.push_back({setting, setting.words, setting.words.title, input, setting.name});
    }
    return route;
}

/// Puts NAME=VALUE in the place of what has that name.
void replaceValue(std::vector<std::string>& sets, const std::string& assignment) {
    const std::string name = assignment.substr(0, assignment.find('=') + 1);
    std::erase_if(sets, [&](const std::string& set) { return set.starts_with(name); });
    sets.push_back(assignment);
}

Route routeOver(const TourRequest& request, const OwnSound& own,
                std::vector<DemoSetting> settings) {
    const fs::path input = request.material / ("own-" + own.stem + ".wav");
    writeSound(input, own.sound);
    Route route{{}, own.name, own.notes, request.material / "own-curves"};
    stretchCurves(request.settings.parent_path() / "curves", route.curves,
                  own.sound.lengthSeconds() / kMaterialSeconds);
    for (DemoSetting& setting : settings) {
        if (setting.tempoBpm && !request.tempoBpm) {
            route.notes.push_back(setting.name + " is left out: it goes with the beat of " +
                                  own.name + ", which --tempo would tell");
            continue;
        }
        if (setting.tempoBpm)
            setting.tempoBpm = request.tempoBpm;
        for (const std::string& assignment : setting.ownSets)
            replaceValue(setting.sets, assignment);
        route.stops.push_back({setting, setting.ownWords, own.name + ": " + setting.ownWords.title,
                               input, own.stem + "-" + setting.name});
    }
    return route;
}

Route planned(const TourRequest& request) {
    std::vector<DemoSetting> settings = readSettings(request.settings);
    if (request.ownInput.empty())
        return routeOverMaterial(request, settings);
    return routeOver(request, readOwnSound(request.ownInput), std::move(settings));
}

/// One line that says what the setting is made of.
std::string settingsLine(const DemoSetting& setting) {
    std::string line = "program " + setting.program;
    for (const std::string& assignment : setting.sets)
        line += "  ·  " + assignment;
    for (const std::string& automation : setting.automations)
        line += "  ·  " + automation.substr(0, automation.find('=')) + " automated";
    if (setting.tempoBpm)
        line += formatted("  ·  %g BPM", *setting.tempoBpm);
    return line;
}

void printHead() {
    std::printf("%-20s %-6s %10s %10s %10s %11s\n", "", "", "level in", "level out", "peak out",
                "realtime");
    std::printf("%-20s %-6s %10s %10s %10s %11s\n", "setting", "input", "dBFS RMS", "dBFS RMS",
                "dBFS", "factor");
}

void printRow(const Stop& stop, bool isOwn, const Levels& before, const Levels& after,
              double realtimeFactor) {
    std::printf("%-20s %-6s %10.1f %10.1f %10.1f %10.0fx\n", stop.setting.name.c_str(),
                isOwn ? "own" : stop.setting.material.c_str(), before.rmsDb, after.rmsDb,
                after.peakDb, realtimeFactor);
    std::fflush(stdout);
}

/// Renders, draws and prints one setting.
PageRendering demonstrate(const Stop& stop, const Route& route, const TourRequest& request) {
    PageRendering rendered;
    rendered.sound = stop.name + ".wav";
    rendered.picture = stop.name + ".png";
    const fs::path outputPath = request.output / rendered.sound;
    const Rendering rendering =
        renderByCommand(request.command, stop.input, outputPath, stop.setting, route.curves);
    const StereoSound input = readSound(stop.input, kLongestOwnSeconds);
    rendered.output = readSound(outputPath, kLongestOwnSeconds);
    rendered.trace = traceModulation(stop.setting, route.curves, input, rendered.output, rendering);
    drawPicture(request.output / rendered.picture,
                {stop.caption, settingsLine(stop.setting), stop.words.listen}, input,
                rendered.output, rendered.trace);
    printRow(stop, !request.ownInput.empty(), levelsOf(input), levelsOf(rendered.output),
             rendering.realtimeFactor);
    return rendered;
}

/// A setting on the page. What is beyond full scale is kept in the file but cut off where it is
/// heard.
PageEntry entryOf(const Stop& stop, const StereoSound& output) {
    PageEntry entry{stop.setting.number,       stop.words.title, "", stop.words.listen, "",
                    settingsLine(stop.setting)};
    if (const double peakDb = levelsOf(output).peakDb; peakDb > 0.0)
        entry.settings += formatted("  ·  peaks at %+.1f dBFS, clipped by players", peakDb);
    return entry;
}

/// The inputs, each once.
std::vector<PageMaterial> materialsOf(const Route& route, const TourRequest& request) {
    std::vector<PageMaterial> materials;
    for (const Stop& stop : route.stops) {
        const std::string sound = fs::proximate(stop.input, request.output).generic_string();
        if (std::ranges::find(materials, sound, &PageMaterial::sound) != materials.end())
            continue;
        materials.push_back({request.ownInput.empty() ? stop.setting.material : route.title, sound,
                             readSound(stop.input, kLongestOwnSeconds).lengthSeconds()});
    }
    return materials;
}

void printWords(const Route& route, const TourRequest& request) {
    std::printf("\nWhat to listen for:\n");
    for (const Stop& stop : route.stops)
        std::printf("  %-20s %s\n", stop.setting.name.c_str(), stop.words.listen.c_str());
    std::printf("\nHear and see them: %s\nA sound (.wav) and a picture (.png) of each lie beside "
                "it.\n",
                (fs::absolute(request.output) / "index.html").c_str());
}

} // namespace

void takeTour(const TourRequest& request) {
    fs::create_directories(request.material);
    fs::create_directories(request.output);
    const Route route = planned(request);
    for (const std::string& note : route.notes)
        std::printf("%s\n", note.c_str());
    const std::vector<PageMaterial> materials = materialsOf(route, request);
    SoundPage page({route.title, "settings", "setting", route.notes}, materials);
    printHead();
    for (const Stop& stop : route.stops) {
        PageRendering rendered = demonstrate(stop, route, request);
        const std::string sound = fs::proximate(stop.input, request.output).generic_string();
        rendered.material = static_cast<std::size_t>(
            std::ranges::find(materials, sound, &PageMaterial::sound) - materials.begin());
        const PageEntry entry = entryOf(stop, rendered.output);
        page.add(entry, {std::move(rendered)});
    }
    page.write(request.output / "index.html");
    printWords(route, request);
}

} // namespace pedl::demo
