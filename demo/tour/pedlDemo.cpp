// pedl-demo: renders a sound through every setting of a table with the command zmt-pedlfilter,
// measures the results, draws a picture of each, prints a table and writes a page to hear and see.

#include "demo/tour/Tour.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>

int main(int argumentCount, char** arguments) {
    pedl::demo::TourRequest request;
    CLI::App app(
        "Renders, measures and draws the demonstration, and writes a page (index.html) on\n"
        "which it is heard and seen.",
        "pedl-demo");
    app.add_option("--command", request.command, "The command zmt-pedlfilter")->required();
    app.add_option("--settings", request.settings, "The table of settings (JSON)")->required();
    app.add_option("--material", request.material, "Folder of the material")->required();
    app.add_option("--output", request.output, "Folder for sounds, pictures and page")->required();
    auto* input =
        app.add_option("--input", request.ownInput,
                       "A sound of your own in place of the material, mono or stereo: its\n"
                       "first 30 seconds");
    app.add_option("--tempo", request.tempoBpm,
                   "Its tempo in BPM, 1 to 999; without it the settings that go with the\n"
                   "beat are left out")
        ->needs(input)
        ->check(CLI::Range(1.0, 999.0));
    CLI11_PARSE(app, argumentCount, arguments);
    try {
        pedl::demo::takeTour(request);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "pedl-demo: " << error.what() << '\n';
        return 1;
    }
}
