#include "foundation/text/NameMatch.h"

#include <algorithm>
#include <charconv>

namespace pedl {

namespace {

/// Plug-ins' names of at least this many characters may have been cut.
constexpr std::size_t kShortestCutName = 7;
constexpr std::size_t kMostOffered = 3;
/// With fewer letters in common two names have nothing to do with each other.
constexpr std::size_t kFewestTellingLetters = 4;
constexpr std::size_t kMostCandidatesNamed = 8;

enum class Rung { Exact, CutName, BeginsWith };

bool matches(Rung rung, const std::string& name, const std::string& wanted) {
    switch (rung) {
    case Rung::Exact:
        return name == wanted;
    case Rung::CutName:
        return name.size() >= kShortestCutName && wanted.starts_with(name);
    case Rung::BeginsWith:
        return name.starts_with(wanted);
    }
    return false;
}

/// A name for comparing: lower case, without blanks.
std::string comparable(std::string_view name) {
    std::string letters = lowerCase(name);
    std::erase(letters, ' ');
    return letters;
}

/// Whether the letters of `shortName` stand in `longName` in the same order.
bool abbreviates(std::string_view shortName, std::string_view longName) {
    std::size_t place = 0;
    for (const char letter : shortName) {
        place = longName.find(letter, place);
        if (place == std::string_view::npos)
            return false;
        ++place;
    }
    return !shortName.empty();
}

std::string described(const NamedItem& item) {
    std::string names;
    for (const std::string& name : item.names) {
        if (name.empty() || names == name)
            continue;
        names += (names.empty() ? "" : ", ") + name;
    }
    return std::to_string(item.index) + " (" + names + ")";
}

std::string listed(std::span<const NamedItem* const> items) {
    std::string list;
    for (const NamedItem* item : items)
        list += (list.empty() ? "" : ", ") + described(*item);
    return list;
}

/// Characters of the longest of the item's names that abbreviates `wanted` and is not itself the
/// name by which the item was found.
std::size_t abbreviationLength(const NamedItem& item, Rung rung, const std::string& wanted) {
    std::size_t longest = 0;
    for (const std::string& name : item.names) {
        const std::string lower = comparable(name);
        if (!matches(rung, lower, wanted) && abbreviates(lower, wanted))
            longest = std::max(longest, lower.size());
    }
    return longest;
}

/// Keeps those that abbreviate `wanted` at most length, when any does at all.
void preferAbbreviations(std::vector<const NamedItem*>& found, Rung rung,
                         const std::string& wanted) {
    std::size_t longest = 0;
    for (const NamedItem* item : found)
        longest = std::max(longest, abbreviationLength(*item, rung, wanted));
    if (longest > 0)
        std::erase_if(found, [&](const NamedItem* item) {
            return abbreviationLength(*item, rung, wanted) < longest;
        });
}

/// Whether the texts differ in one place alone: by a letter too many, too few or another, or by two
/// that are swapped.
bool differInOnePlace(std::string_view a, std::string_view b) {
    const std::size_t start = sharedStart(a, b);
    a.remove_prefix(start);
    b.remove_prefix(start);
    while (!a.empty() && !b.empty() && a.back() == b.back()) {
        a.remove_suffix(1);
        b.remove_suffix(1);
    }
    const bool areSwapped = a.size() == 2 && b.size() == 2 && a[0] == b[1] && a[1] == b[0];
    return areSwapped || (a.size() <= 1 && b.size() <= 1);
}

bool mayBeMistyped(const std::string& name, const std::string& wanted) {
    const bool isAbbreviation = name.size() >= kFewestTellingLetters && abbreviates(name, wanted);
    return isAbbreviation || differInOnePlace(name, wanted);
}

bool beginsAlike(const std::string& name, const std::string& wanted) {
    return sharedStart(name, wanted) >= kFewestTellingLetters;
}

/// Items that may have been meant by a text that nothing matches, the likeliest first.
std::vector<const NamedItem*> nearest(const std::string& wanted, std::span<const NamedItem> items) {
    std::vector<const NamedItem*> offers;
    for (const auto& isNear : {mayBeMistyped, beginsAlike})
        for (const NamedItem& item : items)
            if (std::ranges::find(offers, &item) == offers.end() &&
                std::ranges::any_of(item.names, [&](const std::string& name) {
                    return !name.empty() && isNear(comparable(name), wanted);
                }))
                offers.push_back(&item);
    offers.resize(std::min(offers.size(), kMostOffered));
    return offers;
}

/// The only item that has exactly this name, for plug-ins whose names differ in case alone.
std::optional<int> letterForLetter(std::string_view wanted, std::span<const NamedItem> items) {
    std::optional<int> found;
    for (const NamedItem& item : items) {
        if (std::none_of(item.names.begin(), item.names.end(),
                         [wanted](const std::string& name) { return trimmed(name) == wanted; }))
            continue;
        if (found)
            return std::nullopt;
        found = item.index;
    }
    return found;
}

} // namespace

Result<int> findByName(std::string_view wantedText, std::span<const NamedItem> items,
                       std::string_view kind) {
    const std::string wanted = comparable(trimmed(wantedText));
    const std::string quoted = "\"" + std::string(trimmed(wantedText)) + "\"";
    if (wanted.empty())
        return Problem{"the name of a " + std::string(kind) + " is missing"};
    if (const std::optional<int> index = letterForLetter(trimmed(wantedText), items))
        return *index;

    for (const Rung rung : {Rung::Exact, Rung::CutName, Rung::BeginsWith}) {
        std::vector<const NamedItem*> found;
        for (const NamedItem& item : items)
            if (std::any_of(item.names.begin(), item.names.end(), [&](const std::string& name) {
                    const std::string lower = comparable(name);
                    return !lower.empty() && matches(rung, lower, wanted);
                }))
                found.push_back(&item);
        if (found.size() > 1)
            preferAbbreviations(found, rung, wanted);
        if (found.size() == 1)
            return found.front()->index;
        if (!found.empty()) {
            const bool isLong = found.size() > kMostCandidatesNamed;
            found.resize(std::min(found.size(), kMostCandidatesNamed));
            return Problem{quoted + " can be more than one " + std::string(kind) + ": " +
                           listed(found) + (isLong ? ", ..." : "")};
        }
    }

    const std::vector<const NamedItem*> offered = nearest(wanted, items);
    return Problem{"no " + std::string(kind) + " is called " + quoted +
                   (offered.empty() ? "" : "; nearest: " + listed(offered))};
}

Result<int> findByNameOrNumber(std::string_view wanted, std::span<const NamedItem> items,
                               std::string_view kind, std::string_view holder) {
    const std::optional<int> number = indexFrom(wanted);
    if (!number)
        return findByName(wanted, items, kind);
    if (static_cast<std::size_t>(*number) < items.size())
        return *number;
    return Problem{"there is no " + std::string(kind) + " " + std::to_string(*number) + "; " +
                   std::string(holder) + " has " + std::to_string(items.size()) +
                   ", counted from 0"};
}

std::size_t sharedStart(std::string_view a, std::string_view b) {
    return static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
}

std::optional<int> indexFrom(std::string_view text) {
    text = trimmed(text);
    int index = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
    if (error != std::errc{} || end != text.data() + text.size() || index < 0)
        return std::nullopt;
    return index;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& letter : lower)
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    return lower;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

} // namespace pedl
