#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace pedl {

/// What a user keeps from one session to the next: bytes under a name. Tests pass their own.
///
/// Names are ours, and those of files: no '/', not "." and not "..". Thread: any but audio.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// A value's bytes, or nothing where it is missing or cannot be read.
    [[nodiscard]] virtual std::optional<std::vector<std::byte>> read(std::string_view name) = 0;

    /// Whether the value now has these bytes; if not, it has those that it had.
    virtual bool write(std::string_view name, std::span<const std::byte> bytes) = 0;

    /// Whether there is no such value now.
    virtual bool erase(std::string_view name) = 0;
};

} // namespace pedl
