#pragma once

#include "presets/StoredState.h"

#include <optional>
#include <string>
#include <string_view>

namespace pedl {

class SettingsStore;

enum class Memory { A, B };

/// What a user keeps in the settings: the bank, program and MIDI settings that every new instance
/// starts with, and two memories for comparing one sound with another.
///
/// A memory is a program file: it can be copied out of the settings and loaded as one. What cannot
/// be kept is said by the settings themselves. Thread: user interface.
class UserDefaults {
public:
    /// Both outlive this.
    UserDefaults(StoredState& state, SettingsStore& settings) noexcept
        : state_(state), settings_(settings) {}

    // What new instances start with

    /// Whether it is kept now.
    bool save(FileKind kind);

    /// New instances start as they leave the factory again. Whether that is so now.
    bool reset(FileKind kind);

    LoadResult load(FileKind kind);

    // Memories

    /// Keeps the current program. Whether it is kept now.
    bool store(Memory memory);

    /// Puts a kept program into the current slot.
    LoadResult recall(Memory memory);

    /// Where the user has put the operation manual; nothing where that is not said, or in more
    /// than 1024 characters.
    [[nodiscard]] std::optional<std::string> manualPath() const;

private:
    LoadResult load(FileKind kind, std::string_view value);

    StoredState& state_;
    SettingsStore& settings_;
};

} // namespace pedl
