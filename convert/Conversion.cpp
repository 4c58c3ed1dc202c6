#include "convert/Conversion.h"

#include "convert/DocumentReader.h"
#include "convert/DocumentWriter.h"
#include "convert/TextForm.h"
#include "foundation/text/NameMatch.h"

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
    if (out == kStandardOutput)
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

/// Puts the program of a file in a slot: "12=wah.zmt".
Done putIntoSlot(const std::string& text, Document& bank) {
    if (!hasBank(bank.kind))
        return Problem{"there are no slots in " + contentsName(bank.kind)};
    const std::size_t equals = text.find('=');
    const std::optional<int> slot = indexFrom(text.substr(0, equals));
    if (equals == std::string::npos || !slot)
        return Problem{'"' + text + "\" is not SLOT=FILE"};
    if (static_cast<std::size_t>(*slot) >= bank.programs.size())
        return Problem{"there is no slot " + std::to_string(*slot) + "; a bank has " +
                       std::to_string(bank.programs.size()) + ", counted from 0"};
    const std::string path = text.substr(equals + 1);
    const Result<Document> read = readDocument(path);
    if (!read.ok())
        return read.problem();
    if (read.value().kind != DocumentKind::Program)
        return Problem{path + ": holds " + contentsName(read.value().kind) + ", not a program"};
    for (const std::string& warning : read.value().warnings)
        bank.warnings.push_back(std::string(path).append(": ").append(warning));
    bank.programs[static_cast<std::size_t>(*slot)] = currentProgram(read.value());
    return done();
}

} // namespace

Result<Conversion> convert(const ConversionRequest& request) {
    const std::optional<Form> form = formOf(request.out);
    if (!form)
        return Problem{request.out + ": the ending names no form; " + knownForms()};
    Result<Document> read = readDocument(request.in);
    if (!read.ok())
        return read.problem();
    Document& document = read.value();
    DocumentKind kind = form->kind.value_or(document.kind);
    for (const std::string& slot : request.slots)
        if (const Done put = putIntoSlot(slot, document); !put.ok())
            return put.problem().of("--slot");
    if (request.program) {
        if (kind == DocumentKind::MidiSettings)
            return Problem{"--program: " + request.out + " holds no program"};
        if (const Done selected = selectProgram(document, *request.program); !selected.ok())
            return selected.problem().of(request.in).of("--program");
        if (form->isText)
            kind = DocumentKind::Program;
    }
    const Result<Document> made = converted(document, kind);
    if (!made.ok())
        return made.problem().of(request.in);
    return Conversion{form->isText ? bytesOf(textForm(made.value())) : storedForm(made.value()),
                      kind, form->isText, made.value().warnings};
}

} // namespace pedl
