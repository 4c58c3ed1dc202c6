#include "convert/JsonPlace.h"

#include "convert/TextForm.h"

#include <algorithm>

namespace pedl {

namespace {

std::string listed(std::initializer_list<std::string_view> known) {
    std::string list;
    for (const std::string_view key : known)
        list += (list.empty() ? "" : ", ") + std::string(key);
    return list;
}

} // namespace

void Place::refuse(const std::string& what) const {
    throw Refusal{words, what};
}

void Place::expectMembers(std::initializer_list<std::string_view> known) const {
    expectObject();
    for (const auto& [key, ignored] : json.items())
        if (std::ranges::find(known, key) == known.end())
            refuse("knows no " + inQuotes(key) + ", only " + listed(known));
}

void Place::expectObject() const {
    if (!json.is_object())
        refuse("is not an object in { }");
}

const std::string& Place::string() const {
    if (!json.is_string())
        refuse("is not a text in quotation marks");
    return json.get_ref<const std::string&>();
}

std::int32_t Place::integer(std::int32_t lowest, std::int32_t highest) const {
    const bool isWithin = json.is_number_unsigned()
                              ? json.get<std::uint64_t>() <= static_cast<unsigned>(highest)
                              : json.is_number_integer();
    if (!isWithin || json.get<std::int64_t>() < lowest || json.get<std::int64_t>() > highest)
        refuse("is not a whole number from " + std::to_string(lowest) + " to " +
               std::to_string(highest));
    return json.get<std::int32_t>();
}

float Place::normalised() const {
    if (!json.is_number())
        refuse("the value is not a number");
    const auto value = json.get<float>();
    if (!(value >= 0.0F && value <= 1.0F))
        refuse("the value " + exactNumber(value) + " is outside 0 to 1");
    return value;
}

} // namespace pedl
