#pragma once

#include "presets/FileKinds.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace pedl {

/// Whether stored words are taken in the byte order that the data show, or in the other one: the
/// way out for data whose identifier lies otherwise than the rest.
enum class OrderDecision { AsFound, Inverted };

enum class LoadResult {
    Loaded,      ///< at least what was whole
    TooShort,    ///< nothing in it is whole
    Foreign,     ///< of another plug-in
    UnknownKind, ///< ours, yet not of the kind that was asked for
    Missing,
    NotAFile,
    TooLarge,
    Unreadable,
};

/// Why a load changed nothing, as a sentence without its subject; empty for `Loaded`.
[[nodiscard]] std::string_view loadProblemText(LoadResult result) noexcept;

/// The state that can be kept and brought back: the current program, the bank, the MIDI settings.
///
/// The effect is one; whoever reads or writes files and user defaults needs no more of it than
/// this. Thread: any but audio; loading a program or a bank blocks for 100 ms.
class StoredState {
public:
    virtual ~StoredState() = default;

    /// The stream that a file of this kind consists of. A program is the current one.
    [[nodiscard]] virtual std::vector<std::byte> stored(FileKind kind) = 0;

    /// Takes what such a file holds, and plays it. A program goes into the current slot. Nothing
    /// changes where the result is not `Loaded`.
    virtual LoadResult load(FileKind kind, std::span<const std::byte> stored,
                            OrderDecision decision) = 0;
};

} // namespace pedl
