#include "foundation/text/NameMatch.h"

#include <algorithm>
#include <charconv>
#include <numeric>

namespace pedl {

namespace {

/// Plug-ins' names of at least this many characters may have been cut.
constexpr std::size_t kShortestCutName = 7;
constexpr std::size_t kMostOffered = 3;
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

/// How far a name is from what was typed. A name that may be cut is also compared with as much of
/// the typed one; an abbreviation of it ("FltrCut" of "Filtr Cutoff") is near.
std::size_t distanceBetween(const std::string& name, const std::string& wanted) {
    constexpr std::size_t kShortestAbbreviation = 4;
    std::size_t distance = editDistance(name, wanted);
    if (name.size() >= kShortestCutName && wanted.size() > name.size())
        distance = std::min(distance, 1 + editDistance(name, wanted.substr(0, name.size())));
    if (name.size() >= kShortestAbbreviation && abbreviates(name, wanted))
        distance = std::min<std::size_t>(distance, 1);
    return distance;
}

std::vector<const NamedItem*> nearest(const std::string& wanted, std::span<const NamedItem> items) {
    struct Offer {
        std::size_t distance;
        const NamedItem* item;
    };
    // Further away than half of the text it is another word.
    const std::size_t furthest = std::max<std::size_t>(2, wanted.size() / 2);
    std::vector<Offer> offers;
    for (const NamedItem& item : items) {
        std::size_t distance = furthest + 1;
        for (const std::string& name : item.names)
            if (!name.empty())
                distance = std::min(distance, distanceBetween(comparable(name), wanted));
        if (distance <= furthest)
            offers.push_back({distance, &item});
    }
    std::stable_sort(offers.begin(), offers.end(),
                     [](const Offer& a, const Offer& b) { return a.distance < b.distance; });
    offers.resize(std::min(offers.size(), kMostOffered));
    std::vector<const NamedItem*> nearestItems;
    nearestItems.reserve(offers.size());
    for (const Offer& offer : offers)
        nearestItems.push_back(offer.item);
    return nearestItems;
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

std::size_t editDistance(std::string_view fromText, std::string_view toText) {
    const std::string from = lowerCase(fromText);
    const std::string to = lowerCase(toText);
    // Wagner and Fischer, one row at a time.
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = diagonal + (from[i - 1] == to[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
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
