#pragma once

#include "foundation/text/Result.h"
#include "parameters/ParameterIndex.h"
#include "presets/MidiMap.h"
#include "presets/ProgramRecord.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pedl {

/// Which of the things that the plug-in stores a document is.
enum class DocumentKind { Program, Bank, MidiSettings, Chunk };

constexpr std::array<DocumentKind, 4> kDocumentKinds{
    DocumentKind::Program, DocumentKind::Bank, DocumentKind::MidiSettings, DocumentKind::Chunk};

/// "program", "bank", "MIDI settings", "host chunk".
[[nodiscard]] std::string_view kindName(DocumentKind kind) noexcept;

/// The key in the text form: "program", "bank", "midi", "chunk".
[[nodiscard]] std::string_view kindKey(DocumentKind kind) noexcept;

/// What the name of a file that is to hold one ends with, in small letters: ".zmb".
[[nodiscard]] std::string kindEnding(DocumentKind kind);

/// The same for what a document holds: "a program", "MIDI settings".
[[nodiscard]] std::string contentsName(DocumentKind kind);

[[nodiscard]] constexpr bool hasBank(DocumentKind kind) noexcept {
    return kind == DocumentKind::Bank || kind == DocumentKind::Chunk;
}
[[nodiscard]] constexpr bool hasLinks(DocumentKind kind) noexcept {
    return kind == DocumentKind::MidiSettings || kind == DocumentKind::Chunk;
}

/// MIDI links as they are stored.
struct DocumentLinks {
    /// (controller + 0.5) / 129, or whatever else was stored; nothing for a parameter without a
    /// link.
    std::array<std::optional<float>, kNumParams> linkValue{};
    std::int32_t channel = MidiMap::kAllChannels;

    /// The controller that a parameter (0 to 55) is linked to, or `MidiMap::kNone`.
    [[nodiscard]] std::int32_t controllerOf(std::int32_t parameter) const noexcept;

    /// Whether there is anything that a fresh instance does not have.
    [[nodiscard]] bool isPristine() const noexcept { return *this == DocumentLinks(); }

    friend bool operator==(const DocumentLinks&, const DocumentLinks&) = default;
};

/// The value that stands for the link to a controller, or for none with `MidiMap::kNone`.
[[nodiscard]] float linkValueOf(std::int32_t controller) noexcept;

/// What a file or a host chunk of the plug-in holds, free of its form.
///
/// Every value of a program lies in 0..1. The text form, the stored forms and the comparison all
/// start from here.
struct Document {
    DocumentKind kind = DocumentKind::Chunk;
    std::vector<ProgramRecord> programs; ///< one in a program, 140 in a bank or chunk, else none
    std::int32_t currentSlot = 0;        ///< of `programs`
    DocumentLinks links;                 ///< in MIDI settings and chunks

    /// What the reader repaired or missed, a line each, printable.
    std::vector<std::string> warnings;
};

/// The program of the current slot, of a document that has programs.
[[nodiscard]] const ProgramRecord& currentProgram(const Document& document);

/// What a fresh instance of the plug-in holds, as a chunk.
[[nodiscard]] Document factoryDocument();

/// Puts what `document` holds in place of the same in `base`, a chunk: all programs, the current
/// slot's program, the MIDI links, or everything.
[[nodiscard]] Document merged(Document base, const Document& document);

/// The document as one of another kind. A bank or a chunk gives its current program or its links;
/// what a bank or a chunk needs and the document lacks is the factory's, a program going into
/// slot 0. Links that find no place are named in the warnings.
///
/// @return a line that says why there is nothing to make it from
Result<Document> converted(const Document& document, DocumentKind kind);

/// Makes the program with this name or slot number the current one of a bank or a chunk.
Done selectProgram(Document& document, std::string_view nameOrSlot);

} // namespace pedl
