// The command: reads what the user wants, calls the host library, writes what came of it.

#include "foundation/platform/StandardStream.h"
#include "foundation/text/PrintableText.h"
#include "host/AuditionCommand.h"
#include "host/CommandRequests.h"
#include "host/FileCommands.h"
#include "host/Interrupt.h"
#include "host/Listings.h"
#include "host/Messages.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <variant>
#include <vector>

namespace {

using namespace pedl;

constexpr int kFailed = 1;

void say(const std::string& text) {
    std::fprintf(messages(), "zmt-pedlfilter: %s\n", printableText(text).c_str());
}

int fail(const std::string& text, int status = kFailed) {
    say(text);
    return status;
}

void warn(const std::string& text) {
    say("warning: " + text);
}

/// Writes to standard output; a full disk or a closed pipe there is a failure too.
int print(const std::string& text) {
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!isWritten || std::fflush(stdout) != 0)
        return fail("standard output cannot be written");
    return 0;
}

std::string levelText(double peak) {
    if (peak == 0.0)
        return "silent";
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "peak %.1f dBFS", 20.0 * std::log10(peak));
    return text.data();
}

int report(const CommandLine& line, const std::filesystem::path& out, const RenderReport& done) {
    for (const std::string& warning : done.warnings)
        warn(warning);
    if (line.isQuiet)
        return 0;
    std::array<char, 256> figures{};
    std::snprintf(figures.data(), figures.size(),
                  ": %.2f s at %d Hz, %s, rendered in %.3f s: %.1f times realtime"
                  " (%.1f in the plug-in)\n",
                  done.audioSeconds(), done.sampleRateHz, levelText(done.peak).c_str(),
                  done.wallSeconds, done.audioSeconds() / done.wallSeconds,
                  done.audioSeconds() / done.pluginSeconds);
    if (out == kStandardStream) { // which is the sound's
        std::fprintf(messages(), "%s%s", kStandardOutput, figures.data());
        return 0;
    }
    return print(printableText(out.string()) + figures.data());
}

/// With the signal's status where one ended the command.
int failOf(const Problem& problem) {
    const int signal = Interrupt::signalNumber();
    return fail(problem.text, signal != 0 ? 128 + signal : kFailed);
}

/// Has `serve` do what the line asks for, with the plug-in that the line names.
template <typename Request, typename Serve>
int runWithPlugin(const CommandLine& line, Result<Request> request, const Serve& serve) {
    if (!request.ok())
        return fail(request.problem().text, kWrongUse);
    const Result<std::filesystem::path> plugin = pluginFor(line);
    if (!plugin.ok())
        return fail(plugin.problem().text);
    request.value().plugin = plugin.value();
    if (line.isFactory)
        ignoreUserSettings();
    const PluginSilence silence(line.isVerbose);
    return serve(request.value());
}

/// One file after the other; one that cannot be rendered does not keep the others from it.
int runRender(const CommandLine& line) {
    Result<std::vector<RenderRequest>> requests = renderRequests(line);
    if (!requests.ok())
        return fail(requests.problem().text, kWrongUse);
    std::erase_if(requests.value(), [](const RenderRequest& request) {
        const bool stays = request.keepsExisting && std::filesystem::exists(request.out);
        if (stays)
            say(request.out.string() + ": exists and stays as it is");
        return stays;
    });
    const Result<std::filesystem::path> plugin = pluginFor(line);
    if (!plugin.ok())
        return fail(plugin.problem().text);
    if (line.isFactory)
        ignoreUserSettings();
    const PluginSilence silence(line.isVerbose);
    const Result<PluginLibrary> library =
        PluginLibrary::open(plugin.value()); // loaded for them all
    if (!library.ok())
        return fail(library.problem().text);
    for (RenderRequest& request : requests.value())
        request.plugin = plugin.value();
    int status = 0;
    renderAll(requests.value(),
              [&](const RenderRequest& request, const Result<RenderReport>& rendered) {
                  const int own = rendered.ok() ? report(line, request.out, rendered.value())
                                                : failOf(rendered.problem());
                  status = own != 0 ? own : status;
              });
    return status;
}

int runShow(const CommandLine& line) {
    return runWithPlugin(line, showRequest(line), [&line](const ShowRequest& request) {
        const Result<ShowReport> shown = show(request);
        if (!shown.ok())
            return failOf(shown.problem());
        if (line.screenshot.empty())
            return 0;
        return print(printableText(line.screenshot) + ": " +
                     std::to_string(shown.value().widthPixels) + " x " +
                     std::to_string(shown.value().heightPixels) + " pixels\n");
    });
}

constexpr std::size_t kMostWarnings = 20;

/// Damage can be long-winded: after the first lines their number will do.
void warn(const std::string& path, const std::vector<std::string>& lines) {
    for (std::size_t i = 0; i < std::min(lines.size(), kMostWarnings); ++i)
        warn(path + ": " + lines[i]);
    if (lines.size() > kMostWarnings)
        warn(path + ": and " + std::to_string(lines.size() - kMostWarnings) + " more");
}

int runJoin(const CommandLine& line, const SourcesAndTarget& files) {
    ConversionRequest request{files.sources, files.target, std::nullopt, line.slots};
    if (!line.program.empty())
        request.program = line.program;
    const Result<Conversion> conversion = convert(request);
    if (!conversion.ok())
        return fail(conversion.problem().text);
    int status = 0;
    if (files.target == kStandardStream) {
        status = print(textOf(conversion.value()));
    } else {
        const Result<std::string> written = writeConversion(conversion.value(), files.target);
        status = written.ok() ? print(written.value() + '\n') : fail(written.problem().text);
    }
    if (status == 0)
        warn(files.sources.front(), conversion.value().warnings);
    return status;
}

int runSplit(const CommandLine& line) {
    if (line.files.size() != 1 || !line.program.empty() || !line.slots.empty())
        return fail("convert: --to takes one bank apart, and nothing else at the same time",
                    kWrongUse);
    const std::string& bank = line.files.front();
    const Result<std::vector<ProgramFile>> files =
        split(bank, line.format.empty() ? "zmt" : line.format);
    if (!files.ok())
        return fail(files.problem().text);
    const Result<std::string> written = writeProgramFiles(files.value(), line.folder);
    if (!written.ok())
        return fail(written.problem().text);
    warn(bank, files.value().front().content.warnings);
    return print(written.value() + '\n');
}

int runConvert(const CommandLine& line) {
    if (!line.folder.empty())
        return runSplit(line);
    if (!line.format.empty())
        return fail("convert: --format is for --to; the ending of OUT names its form", kWrongUse);
    const Result<SourcesAndTarget> files = sourcesAndTarget(line);
    return files.ok() ? runJoin(line, files.value()) : fail(files.problem().text, kWrongUse);
}

/// Leaves the two programs of one bank.
Done choosePrograms(const std::vector<std::string>& names, Document& from, Document& to) {
    for (const auto& [name, document] : {std::pair{names[0], &from}, std::pair{names[1], &to}}) {
        if (const Done selected = selectProgram(*document, name); !selected.ok())
            return selected.problem();
        const Result<Document> program = converted(*document, DocumentKind::Program);
        if (!program.ok())
            return program.problem();
        *document = program.value();
    }
    return done();
}

/// Statuses as those of diff(1).
int runDiff(const CommandLine& line) {
    constexpr int kSame = 0;
    constexpr int kDifferent = 1;
    constexpr int kTrouble = 2;
    const bool isWithinOne = !line.compared.empty();
    if (line.in == kStandardStream && (isWithinOne || line.out == kStandardStream))
        return fail("diff: standard input can be read once", kTrouble);
    if (isWithinOne != line.out.empty())
        return fail(isWithinOne ? "diff: --program compares programs of A; leave B out"
                                : "diff: B is required, or --program",
                    kTrouble);
    const std::string& second = isWithinOne ? line.in : line.out;
    Result<Document> from = readDocument(line.in);
    Result<Document> to = readDocument(second);
    for (const Result<Document>* read : {&from, &to})
        if (!read->ok())
            return fail(read->problem().text, kTrouble);
    warn(line.in, from.value().warnings);
    if (isWithinOne) {
        if (const Done chosen = choosePrograms(line.compared, from.value(), to.value());
            !chosen.ok())
            return fail(chosen.problem().of(line.in).of("--program").text, kTrouble);
    } else {
        warn(line.out, to.value().warnings);
    }
    const Result<std::vector<std::string>> lines = differences(from.value(), to.value());
    if (!lines.ok())
        return fail(lines.problem().text, kTrouble);
    std::string text;
    for (const std::string& difference : lines.value())
        text += difference + '\n';
    if (print(text) != 0)
        return kTrouble;
    return text.empty() ? kSame : kDifferent;
}

/// Loads the plug-in, gives it what the line names, and prints what `listing` makes of it.
template <typename Listing> int runListing(const CommandLine& line, const Listing& listing) {
    const Result<std::filesystem::path> path = pluginFor(line);
    if (!path.ok())
        return fail(path.problem().text);
    if (line.isFactory)
        ignoreUserSettings();
    const PluginSilence silence(line.isVerbose);
    Result<std::unique_ptr<Plugin>> plugin = Plugin::load(path.value());
    if (!plugin.ok())
        return fail(plugin.problem().text);
    const Result<std::vector<std::string>> warnings =
        applyStartingState(*plugin.value(), startingState(line));
    if (!warnings.ok())
        return fail(warnings.problem().text);
    for (const std::string& warning : warnings.value())
        warn(warning);
    const ListingForm form = line.isJson ? ListingForm::Json : ListingForm::Text;
    return print(listing(*plugin.value(), path.value().string(), form));
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
