#pragma once

#include "presets/StreamFormat.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace pedl {

/// What is kept in a file, a user default or a memory.
enum class FileKind { Program, Bank, MidiSettings };

/// What is said, offered, read and written under one kind. Thread: any.
struct FileType {
    FileKind kind;
    std::string_view name;       ///< in messages
    std::string_view key;        ///< in the text form
    std::string_view extension;  ///< without the point
    std::string_view dialogName; ///< what a file dialog offers
    StreamKind stream;
    StreamKind rawStream;              ///< of the layout from before there were streams
    std::string_view userDefaultValue; ///< in the settings: what a new instance starts with
    std::string_view recentNameValue;  ///< in the settings: the file that was chosen last
};

// clang-format off
constexpr std::array<FileType, 3> kFileTypes{{
    // kind, name, key, extension, dialog
    //   stream, raw stream, value of the user default, of the recent name
    {FileKind::Program, "program", "program", "zmt", "ZMT Preset",
         StreamKind::Program, StreamKind::RawProgram, "DefaultPreset", "CurrPreset"},
    {FileKind::Bank, "bank", "bank", "zmb", "ZMT Bank",
         StreamKind::Bank, StreamKind::RawBank, "DefaultBank", "CurrBank"},
    {FileKind::MidiSettings, "MIDI settings", "midi", "zmm", "ZMT MIDI Settings",
         StreamKind::Midi, StreamKind::RawMidi, "DefaultMidi", "CurrMidi"},
}};
// clang-format on

[[nodiscard]] constexpr const FileType& fileType(FileKind kind) noexcept {
    return kFileTypes[static_cast<std::size_t>(kind)];
}
static_assert(std::ranges::all_of(kFileTypes, [](const FileType& type) {
    return &fileType(type.kind) == &type; // in the order of the kinds
}));

/// The kind whose streams, of either layout, bear this mark; null for a mark of none.
[[nodiscard]] constexpr const FileType* fileTypeOf(StreamKind stream) noexcept {
    const auto* const found = std::ranges::find_if(kFileTypes, [stream](const FileType& type) {
        return type.stream == stream || type.rawStream == stream;
    });
    return found != kFileTypes.end() ? found : nullptr;
}

} // namespace pedl
