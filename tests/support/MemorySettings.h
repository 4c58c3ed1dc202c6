#pragma once

#include "foundation/platform/SettingsStore.h"

#include <map>
#include <string>

namespace pedl::test {

/// Settings that live as long as the test.
class MemorySettings : public SettingsStore {
public:
    [[nodiscard]] std::optional<std::vector<std::byte>> read(std::string_view name) override {
        const auto found = values.find(name);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    bool write(std::string_view name, std::span<const std::byte> bytes) override {
        if (isFull)
            return false;
        values.insert_or_assign(std::string(name),
                                std::vector<std::byte>(bytes.begin(), bytes.end()));
        return true;
    }
    bool erase(std::string_view name) override {
        values.erase(std::string(name));
        return true;
    }

    std::map<std::string, std::vector<std::byte>, std::less<>> values;
    bool isFull = false; ///< writing fails
};

} // namespace pedl::test
