#include "foundation/text/NameMatch.h"

#include <algorithm>
#include <charconv>
#include <numeric>

namespace pedl {

namespace {

/// Plug-ins' names of at least this many characters may have been cut.
constexpr std::size_t kShortestCutName = 7;
constexpr std::size_t kMostOffered = 3;
/// With fewer letters in common two names have nothing to do with each other.
constexpr std::size_t kFewestTellingLetters = 4;
constexpr std::size_t kMostCandidatesNamed = 8;

/// Fewer letters stand in too many names.
constexpr std::size_t kShortestPart = 3;
/// Plug-ins' short names have at most 7 letters, or 8.
constexpr std::size_t kLongestShortName = 8;

enum class Rung { Exact, CutName, BeginsWith, Part };

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

/// Whether `wanted` stands in a name, or a short name ends with its abbreviation: "FltrCut" is a
/// cutoff, "FltrSlp" a slope.
bool isPart(const std::string& name, const std::string& wanted) {
    if (wanted.size() < kShortestPart)
        return false;
    if (name.find(wanted) != std::string::npos)
        return true;
    if (name.size() < kShortestCutName || name.size() > kLongestShortName)
        return false;
    const std::string_view end = std::string_view(name).substr(name.size() - kShortestPart);
    return end.front() == wanted.front() && abbreviates(end, wanted);
}

bool matches(Rung rung, const std::string& name, const std::string& wanted) {
    switch (rung) {
    case Rung::Exact:
        return name == wanted;
    case Rung::CutName:
        return name.size() >= kShortestCutName && wanted.starts_with(name);
    case Rung::BeginsWith:
        return name.starts_with(wanted);
    case Rung::Part:
        return isPart(name, wanted);
    }
    return false;
}

/// A name for comparing: lower case, without blanks.
std::string comparable(std::string_view name) {
    std::string letters = lowerCase(name);
    std::erase(letters, ' ');
    return letters;
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

/// How many letters have to be added, left out, changed or swapped with the next.
std::size_t changesBetween(std::string_view a, std::string_view b) {
    std::vector<std::size_t> beforeLast(b.size() + 1);
    std::vector<std::size_t> last(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(last.begin(), last.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] != b[j - 1])});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
        std::swap(beforeLast, last);
        std::swap(last, row);
    }
    return last.back();
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

    for (const Rung rung : {Rung::Exact, Rung::CutName, Rung::BeginsWith, Rung::Part}) {
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

Result<FoundName> findNumbered(std::string_view wanted, std::span<const std::string> names,
                               std::string_view kind, std::string_view holder) {
    if (const std::optional<int> number = indexFrom(wanted)) {
        if (static_cast<std::size_t>(*number) < names.size())
            return FoundName{*number, {}};
        return Problem{"there is no " + std::string(kind) + " " + std::to_string(*number) + "; " +
                       std::string(holder) + " has " + std::to_string(names.size()) +
                       ", counted from 0"};
    }
    std::vector<NamedItem> items; // the first of each name
    for (std::size_t i = 0; i < names.size(); ++i)
        if (std::ranges::find(names.first(i), names[i]) == names.first(i).end())
            items.push_back({static_cast<int>(i), {names[i]}});
    const Result<int> found = findByName(wanted, items, kind);
    if (!found.ok())
        return found.problem();
    FoundName answer{found.value(), {}};
    const std::string& name = names[static_cast<std::size_t>(answer.index)];
    if (const auto alike = std::ranges::count(names, name); alike > 1)
        answer.note = std::to_string(alike) + " " + std::string(kind) + "s are called \"" +
                      std::string(trimmed(name)) + "\"; the first is taken, " +
                      std::to_string(answer.index);
    return answer;
}

std::string nearestWord(std::string_view wanted, std::span<const std::string> words) {
    std::string best;
    std::size_t fewest = std::max<std::size_t>(1, wanted.size() / 3) + 1;
    for (const std::string& word : words)
        if (const std::size_t changes = changesBetween(wanted, word); changes < fewest) {
            fewest = changes;
            best = word;
        }
    if (!best.empty())
        return best;
    for (const std::string& word : words)
        if (word.starts_with(wanted))
            return word;
    return {};
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
