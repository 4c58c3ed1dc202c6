#include "convert/Conversion.h"

#include "convert/DocumentReader.h"
#include "convert/DocumentWriter.h"
#include "convert/TextForm.h"
#include "foundation/platform/StandardStream.h"
#include "foundation/text/NameMatch.h"
#include "foundation/text/PrintableText.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <string_view>

namespace pedl {

namespace {

/// What a name asks for.
struct Form {
    bool isText = false;
    std::optional<DocumentKind> kind; // nothing: that of what was read
};

std::optional<Form> formOf(const std::string& out) {
    if (out == kStandardStream)
        return Form{true, std::nullopt};
    const std::string ending = lowerCase(std::filesystem::path(out).extension().string());
    if (ending == kTextEnding)
        return Form{true, std::nullopt};
    for (const DocumentKind kind : kDocumentKinds)
        if (ending == kindEnding(kind))
            return Form{false, kind};
    return std::nullopt;
}

/// ".zmt is a program, ...".
std::string knownForms() {
    std::string forms;
    for (const DocumentKind kind : kDocumentKinds)
        forms += kindEnding(kind) + (forms.empty() ? " is " : " ") + contentsName(kind) + ", ";
    return forms + std::string(kTextEnding) + " text";
}

std::vector<std::byte> bytesOf(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

/// Reads the program of a file into a slot.
Done readIntoSlot(const std::string& path, std::size_t slot, Document& bank) {
    if (slot >= bank.programs.size())
        return Problem{"there is no slot " + std::to_string(slot) + "; a bank has " +
                       std::to_string(bank.programs.size()) + ", counted from 0"};
    const Result<Document> read = readDocument(path);
    if (!read.ok())
        return read.problem();
    if (read.value().kind != DocumentKind::Program)
        return Problem{path + ": holds " + contentsName(read.value().kind) + ", not a program"};
    for (const std::string& warning : read.value().warnings)
        bank.warnings.push_back(std::string(path).append(": ").append(warning));
    bank.programs[slot] = currentProgram(read.value());
    return done();
}

/// "12=wah.zmt".
Done putIntoSlot(const std::string& text, Document& bank) {
    if (!hasBank(bank.kind))
        return Problem{"there are no slots in " + contentsName(bank.kind)};
    const std::size_t equals = text.find('=');
    const std::optional<int> slot = indexFrom(text.substr(0, equals));
    if (equals == std::string::npos || !slot)
        return Problem{'"' + text + "\" is not SLOT=FILE"};
    return readIntoSlot(text.substr(equals + 1), static_cast<std::size_t>(*slot), bank);
}

/// One file, or a bank of programs.
Result<Document> readAll(const std::vector<std::string>& paths) {
    if (paths.size() == 1)
        return readDocument(paths.front());
    Result<Document> bank = converted(factoryDocument(), DocumentKind::Bank);
    for (std::size_t slot = 0; bank.ok() && slot < paths.size(); ++slot)
        if (const Done put = readIntoSlot(paths[slot], slot, bank.value()); !put.ok())
            return put.problem();
    return bank;
}

/// A name of a program as a part of one of a file: nothing that a path or a shell takes for its
/// own.
std::string nameForFiles(const ProgramName& name) {
    constexpr std::string_view kNotInNames = "/\\:*?\"<>|";
    std::string text = printableText(shownName(name));
    for (char& letter : text)
        if (kNotInNames.find(letter) != std::string_view::npos)
            letter = '-';
    return text;
}

} // namespace

Result<Conversion> convert(const ConversionRequest& request) {
    const std::optional<Form> form = formOf(request.out);
    if (!form)
        return Problem{request.out + ": the ending names no form; " + knownForms()};
    Result<Document> read = readAll(request.in);
    if (!read.ok())
        return read.problem();
    Document& document = read.value();
    DocumentKind kind = form->kind.value_or(document.kind);
    if (request.in.size() > 1 && !hasBank(kind))
        return Problem{request.out + ": holds no bank, which several programs make"};
    for (const std::string& slot : request.slots)
        if (const Done put = putIntoSlot(slot, document); !put.ok())
            return put.problem().of("--slot");
    if (request.program) {
        if (kind == DocumentKind::MidiSettings)
            return Problem{"--program: " + request.out + " holds no program"};
        if (const Done selected = selectProgram(document, *request.program); !selected.ok())
            return selected.problem().of(request.in.front()).of("--program");
        if (form->isText)
            kind = DocumentKind::Program;
    }
    const Result<Document> made = converted(document, kind);
    if (!made.ok())
        return made.problem().of(request.in.front());
    return Conversion{form->isText ? bytesOf(textForm(made.value())) : storedForm(made.value()),
                      kind, form->isText, made.value().warnings};
}

Result<std::vector<ProgramFile>> split(const std::string& in, const std::string& format) {
    const std::string ending = '.' + lowerCase(format);
    const bool isText = ending == kTextEnding;
    if (!isText && ending != kindEnding(DocumentKind::Program))
        return Problem{"--format: \"" + format + "\" is not zmt or json"};
    Result<Document> read = readDocument(in);
    if (!read.ok())
        return read.problem();
    Document& bank = read.value();
    if (!hasBank(bank.kind))
        return Problem{in + ": holds " + contentsName(bank.kind) + ", not a bank"};
    std::vector<ProgramFile> files;
    for (std::size_t slot = 0; slot < bank.programs.size(); ++slot) {
        Document program;
        program.kind = DocumentKind::Program;
        program.programs = {bank.programs[slot]};
        std::string name = std::to_string(slot);
        name.insert(0, 3 - std::min<std::size_t>(3, name.size()), '0'); // sorted as slots are
        name.append(" ").append(nameForFiles(bank.programs[slot].name)).append(ending);
        files.push_back(
            {name,
             {isText ? bytesOf(textForm(program)) : storedForm(program), DocumentKind::Program,
              isText, slot == 0 ? bank.warnings : std::vector<std::string>()}});
    }
    return files;
}

} // namespace pedl
