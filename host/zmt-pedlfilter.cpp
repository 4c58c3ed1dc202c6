// The command: reads what the user wants, calls the host library, writes what came of it.

#include "foundation/platform/StandardStream.h"
#include "foundation/text/FormattedText.h"
#include "foundation/text/PrintableText.h"
#include "host/AuditionCommand.h"
#include "host/CommandOutput.h"
#include "host/CommandRequests.h"
#include "host/FileCommands.h"
#include "host/Interrupt.h"
#include "host/Listings.h"
#include "host/Messages.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <variant>
#include <vector>

namespace {

using namespace pedl;

std::string levelText(double peak) {
    return peak == 0.0 ? "silent" : formatted("peak %.1f dBFS", 20.0 * std::log10(peak));
}

int report(const CommandLine& line, const std::filesystem::path& out, const RenderReport& done) {
    for (const std::string& warning : done.warnings)
        warn(warning);
    if (line.isQuiet)
        return 0;
    const std::string figures = formatted(
        ": %.2f s at %d Hz, %s, rendered in %.3f s: %.1f times realtime"
        " (%.1f in the plug-in)\n",
        done.audioSeconds(), done.sampleRateHz, levelText(done.peak).c_str(), done.wallSeconds,
        done.audioSeconds() / done.wallSeconds, done.audioSeconds() / done.pluginSeconds);
    if (out == kStandardStream) { // which is the sound's
        std::fprintf(messages(), "%s%s", kStandardOutput, figures.c_str());
        return 0;
    }
    return print(printableText(out.string()) + figures);
}

/// With the signal's status where one ended the command.
int failOf(const Problem& problem) {
    const int signal = Interrupt::signalNumber();
    return fail(problem.text, signal != 0 ? 128 + signal : kFailed);
}

/// Has `serve` do what the line asks for with the plug-in that the line names, while that one is
/// kept from what it is to be kept from.
template <typename Serve> int withPlugin(const CommandLine& line, const Serve& serve) {
    const Result<std::filesystem::path> plugin = pluginFor(line);
    if (!plugin.ok())
        return fail(plugin.problem().text);
    if (line.isFactory)
        ignoreUserSettings();
    const PluginSilence silence(line.isVerbose);
    return serve(plugin.value());
}

/// Leaves out the files that are there already, where they are to stay.
void leaveExisting(std::vector<RenderRequest>& requests) {
    std::erase_if(requests, [](const RenderRequest& request) {
        const bool stays = request.keepsExisting && std::filesystem::exists(request.out);
        if (stays)
            say(request.out.string() + ": exists and stays as it is");
        return stays;
    });
}

/// One file after the other; one that cannot be rendered does not keep the others from it.
int runRender(const CommandLine& line) {
    Result<std::vector<RenderRequest>> requests = renderRequests(line);
    if (!requests.ok())
        return fail(requests.problem().text, kWrongUse);
    leaveExisting(requests.value());
    return withPlugin(line, [&](const std::filesystem::path& plugin) {
        const Result<PluginLibrary> library = PluginLibrary::open(plugin); // loaded for them all
        if (!library.ok())
            return fail(library.problem().text);
        for (RenderRequest& request : requests.value())
            request.plugin = plugin;
        int status = 0;
        renderAll(requests.value(),
                  [&](const RenderRequest& request, const Result<RenderReport>& rendered) {
                      const int own = rendered.ok() ? report(line, request.out, rendered.value())
                                                    : failOf(rendered.problem());
                      status = own != 0 ? own : status;
                  });
        return status;
    });
}

int runShow(const CommandLine& line) {
    Result<ShowRequest> request = showRequest(line);
    if (!request.ok())
        return fail(request.problem().text, kWrongUse);
    return withPlugin(line, [&](const std::filesystem::path& plugin) {
        request.value().plugin = plugin;
        const Result<ShowReport> shown = show(request.value());
        if (!shown.ok())
            return failOf(shown.problem());
        if (line.screenshot.empty())
            return 0;
        return print(printableText(line.screenshot) + ": " +
                     std::to_string(shown.value().widthPixels) + " x " +
                     std::to_string(shown.value().heightPixels) + " pixels\n");
    });
}

/// Loads the plug-in, gives it what the line names, and prints what `listing` makes of it.
template <typename Listing> int runListing(const CommandLine& line, const Listing& listing) {
    return withPlugin(line, [&](const std::filesystem::path& path) {
        Result<std::unique_ptr<Plugin>> plugin = Plugin::load(path);
        if (!plugin.ok())
            return fail(plugin.problem().text);
        const Result<std::vector<std::string>> warnings =
            applyStartingState(*plugin.value(), startingState(line));
        if (!warnings.ok())
            return fail(warnings.problem().text);
        for (const std::string& warning : warnings.value())
            warn(warning);
        const ListingForm form = line.isJson ? ListingForm::Json : ListingForm::Text;
        return print(listing(*plugin.value(), path.string(), form));
    });
}

int runAudition(const CommandLine& line) {
    AuditionRequest request{{line.materials.begin(), line.materials.end()},
                            std::nullopt,
                            line.programs,
                            line.out.empty() ? "audition" : line.out};
    if (!line.bank.empty())
        request.bank = line.bank;
    const Result<std::string> written = renderAudition(request);
    return written.ok() ? print(written.value()) : fail(written.problem().text);
}

int run(const CommandLine& line) {
    switch (line.action) {
    case Action::Render:
        return runRender(line);
    case Action::Show:
        return runShow(line);
    case Action::Convert:
        return runConvert(line);
    case Action::Diff:
        return runDiff(line);
    case Action::Audition:
        return runAudition(line);
    case Action::Programs:
        return runListing(line, [&line](Plugin& plugin, const std::string&, ListingForm form) {
            return programListing(plugin, form, line.search);
        });
    case Action::Parameters:
        return runListing(line, [](Plugin& plugin, const std::string&, ListingForm form) {
            return parameterListing(plugin, form);
        });
    case Action::Information:
        break;
    }
    return runListing(line, infoListing);
}

} // namespace

int main(int count, char** words) {
    try {
        const std::variant<CommandLine, int> read = readCommandLine(count, words);
        if (const int* const status = std::get_if<int>(&read))
            return *status;
        return run(std::get<CommandLine>(read));
    } catch (...) {
        // Libraries of others throw when memory ends; everything else was answered before.
        std::fputs("zmt-pedlfilter: not enough memory\n", stderr);
        return kFailed;
    }
}
