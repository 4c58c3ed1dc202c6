#pragma once

#include "foundation/platform/SettingsStore.h"

namespace pedl {

/// Settings of nobody: no value is there and none is kept. For programs whose sound must not
/// depend on what their user has stored.
class NoSettings final : public SettingsStore {
public:
    [[nodiscard]] std::optional<std::vector<std::byte>> read(std::string_view) override {
        return std::nullopt;
    }
    bool write(std::string_view, std::span<const std::byte>) override { return false; }
    bool erase(std::string_view) override { return true; }
};

} // namespace pedl
