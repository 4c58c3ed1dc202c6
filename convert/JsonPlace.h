#pragma once

#include "convert/BoundedJson.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace pedl {

/// A value of a JSON text with the words for its place. What is asked of it and is not so ends the
/// reading with a `Refusal` that names the place.
struct Place {
    const Json& json;
    std::string words; ///< `program 3 "Organ", Filter Cutoff`; empty for the whole

    [[noreturn]] void refuse(const std::string& what) const;

    /// A member that is there.
    [[nodiscard]] Place named(std::string_view key, const std::string& as) const {
        return {*json.find(key), words.empty() ? as : words + ", " + as};
    }
    [[nodiscard]] Place named(std::string_view key) const { return named(key, std::string(key)); }
    [[nodiscard]] bool has(std::string_view key) const { return json.contains(key); }

    /// Refuses all but an object with these members.
    void expectMembers(std::initializer_list<std::string_view> known) const;
    void expectObject() const;

    [[nodiscard]] const std::string& string() const;
    [[nodiscard]] std::int32_t integer(std::int32_t lowest, std::int32_t highest) const;
    [[nodiscard]] float normalised() const; ///< 0..1
};

} // namespace pedl
