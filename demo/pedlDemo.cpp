// pedl-demo: renders a sound through every setting of a table with the command zmt-pedlfilter,
// measures the results, draws a picture of each and prints a table.

#include "demo/CommandRun.h"
#include "demo/DemoSetting.h"
#include "demo/Levels.h"
#include "demo/ModulationTrace.h"
#include "demo/Picture.h"
#include "demo/StereoSound.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>

namespace pedl::demo {

namespace {

namespace fs = std::filesystem;

/// A sound of the user's own is cut here: longer pictures show less.
constexpr double kLongestSeconds = 30.0;

struct Options {
    fs::path command;
    fs::path settings;
    fs::path material;
    fs::path output;
    fs::path ownInput; ///< in place of the material, empty for none
};

/// One line that says what the setting is made of, for the picture.
std::string settingsLine(const DemoSetting& setting) {
    std::string line = "program " + setting.program;
    for (const std::string& assignment : setting.sets)
        line += "  ·  " + assignment;
    for (const std::string& automation : setting.automations)
        line += "  ·  " + automation.substr(0, automation.find('=')) + " automated";
    return line;
}

/// The sound that the setting is rendered from. A sound of the user's own is cut to length and kept
/// beside the material.
fs::path inputOf(const DemoSetting& setting, const Options& options) {
    if (options.ownInput.empty())
        return options.material / (setting.material + ".wav");
    fs::path cut = options.material / ("own-" + options.ownInput.stem().string() + ".wav");
    writeSound(cut, readSound(options.ownInput, kLongestSeconds));
    return cut;
}

void printHead() {
    std::printf("%-20s %-6s %10s %10s %10s %11s\n", "", "", "level in", "level out", "peak out",
                "realtime");
    std::printf("%-20s %-6s %10s %10s %10s %11s\n", "setting", "input", "dBFS RMS", "dBFS RMS",
                "dBFS", "factor");
}

void printRow(const DemoSetting& setting, const std::string& inputName, const Levels& before,
              const Levels& after, double realtimeFactor) {
    std::printf("%-20s %-6s %10.1f %10.1f %10.1f %10.0fx\n", setting.name.c_str(),
                inputName.c_str(), before.rmsDb, after.rmsDb, after.peakDb, realtimeFactor);
    std::fflush(stdout);
}

void demonstrate(const DemoSetting& setting, const Options& options) {
    const fs::path inputPath = inputOf(setting, options);
    const fs::path outputPath = options.output / (setting.name + ".wav");
    const fs::path curves = options.settings.parent_path() / "curves";
    const Rendering rendering =
        renderByCommand(options.command, inputPath, outputPath, setting, curves);

    const StereoSound input = readSound(inputPath, kLongestSeconds);
    const StereoSound output = readSound(outputPath, kLongestSeconds);
    const ModulationTrace trace = traceModulation(setting, curves, input, output, rendering);
    drawPicture(options.output / (setting.name + ".png"),
                {setting.title, settingsLine(setting), setting.listen}, input, output, trace);
    printRow(setting, options.ownInput.empty() ? setting.material : "own", levelsOf(input),
             levelsOf(output), rendering.realtimeFactor);
}

void demonstrateAll(const Options& options) {
    const std::vector<DemoSetting> settings = readSettings(options.settings);
    fs::create_directories(options.material);
    fs::create_directories(options.output);
    printHead();
    for (const DemoSetting& setting : settings)
        demonstrate(setting, options);
    std::printf("\nWhat to listen for:\n");
    for (const DemoSetting& setting : settings)
        std::printf("  %-20s %s\n", setting.name.c_str(), setting.listen.c_str());
    std::printf("\nA sound (.wav) and a picture (.png) of each: %s\n",
                fs::absolute(options.output).c_str());
}

} // namespace

} // namespace pedl::demo

int main(int argumentCount, char** arguments) {
    pedl::demo::Options options;
    CLI::App app("Renders, measures and draws the demonstration.");
    app.add_option("--command", options.command, "the command zmt-pedlfilter")->required();
    app.add_option("--settings", options.settings, "the table of settings (JSON)")->required();
    app.add_option("--material", options.material, "folder of the material")->required();
    app.add_option("--output", options.output, "folder for sounds and pictures")->required();
    app.add_option("--input", options.ownInput, "a sound of your own in place of the material");
    CLI11_PARSE(app, argumentCount, arguments);
    try {
        pedl::demo::demonstrateAll(options);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "pedl-demo: " << error.what() << '\n';
        return 1;
    }
}
