#include "host/FileCommands.h"

#include "convert/Conversion.h"
#include "convert/Difference.h"
#include "convert/DocumentReader.h"
#include "foundation/platform/FileReplacement.h"
#include "foundation/platform/StandardStream.h"
#include "foundation/text/PrintableText.h"
#include "host/CommandOutput.h"
#include "host/CommandRequests.h"

#include <filesystem>
#include <utility>

namespace pedl {

namespace {

/// The bytes of a text form.
std::string textOf(const Conversion& conversion) {
    return {reinterpret_cast<const char*>(conversion.bytes.data()), conversion.bytes.size()};
}

/// Replaces the file whole, or leaves it as it is.
///
/// @return the line that tells what was written
Result<std::string> writeConversion(const Conversion& conversion, const std::string& out) {
    const auto problem = replaceFile(out, conversion.bytes, kForEveryone);
    if (problem && !problem->isDone)
        return Problem{out + ": cannot be written: " +
                       (problem->number != 0 ? systemText(problem->number) : problem->text())};
    return printableText(out) + ": " + std::string(kindName(conversion.kind)) +
           (conversion.isText ? " as text, " : ", ") + std::to_string(conversion.bytes.size()) +
           " bytes" + (problem ? ", which may not outlive a loss of power" : "");
}

/// Writes them into a folder, which is made where it is missing.
///
/// @return the line that tells how many were written where
Result<std::string> writeProgramFiles(const std::vector<ProgramFile>& files,
                                      const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!std::filesystem::is_directory(folder))
        return Problem{folder.string() + ": is no folder" + (error ? ": " + error.message() : "")};
    for (const ProgramFile& file : files) {
        Result<std::string> written = writeConversion(file.content, folder / file.name);
        if (!written.ok())
            return written;
    }
    return printableText(folder.string()) + ": " + std::to_string(files.size()) + " programs";
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
        warn(files.sources.size() == 1 ? files.sources.front() : files.target,
             conversion.value().warnings);
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

} // namespace

int runConvert(const CommandLine& line) {
    if (!line.folder.empty())
        return runSplit(line);
    if (!line.format.empty())
        return fail("convert: --format is for --to; the ending of OUT names its form", kWrongUse);
    const Result<SourcesAndTarget> files = sourcesAndTarget(line);
    return files.ok() ? runJoin(line, files.value()) : fail(files.problem().text, kWrongUse);
}

int runDiff(const CommandLine& line) {
    constexpr int kSame = 0;
    constexpr int kDifferent = 1;
    constexpr int kTrouble = 2;
    const bool isWithinOne = !line.compared.empty();
    if (line.in == kStandardStream && line.out == kStandardStream)
        return fail("diff: standard input can be read once", kTrouble);
    if (isWithinOne != line.out.empty())
        return fail(isWithinOne ? "diff: --program compares programs of A; leave B out"
                                : "diff: B is required, or --program",
                    kTrouble);
    Result<Document> from = readDocument(line.in);
    Result<Document> to = isWithinOne ? from : readDocument(line.out);
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

} // namespace pedl
