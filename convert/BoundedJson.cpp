#include "convert/BoundedJson.h"

#include "foundation/text/PrintableText.h"
#include "foundation/text/Utf8.h"

#include <cstddef>
#include <exception>
#include <set>
#include <vector>

namespace pedl {

namespace {

/// The text form needs five levels; what goes deeper is something else.
constexpr int kMostLevels = 8;

/// A chunk has some 25000 values.
constexpr std::size_t kMostValues = std::size_t{1} << 18;

constexpr std::size_t kMostQuoted = 40;
constexpr std::size_t kMostComplained = 200; // a parser's message can hold what it last read

/// The first `most` bytes, not cut within a character.
std::string shortened(const std::string& text, std::size_t most) {
    const std::string_view first = firstWholeCharacters(text, most);
    return first.size() == text.size() ? text : std::string(first) + "...";
}

/// Follows the parser, knows the place, and ends it where a bound is passed.
class Guard {
public:
    void see(int depth, Json::parse_event_t event, const Json& parsed) {
        using Event = Json::parse_event_t;
        switch (event) {
        case Event::object_start:
        case Event::array_start:
            count();
            if (depth >= kMostLevels)
                throw Refusal{"", "is nested too deeply"};
            levels_.push_back({event == Event::array_start, 0, {}, {}});
            break;
        case Event::object_end:
        case Event::array_end:
            levels_.pop_back();
            break;
        case Event::key:
            take(parsed.get_ref<const std::string&>());
            break;
        case Event::value:
            count();
            break;
        }
    }

private:
    struct Level {
        bool isArray = false;
        std::size_t items = 0;
        std::set<std::string> keys;
        std::string key;
    };

    void count() {
        if (++values_ > kMostValues)
            throw Refusal{"", "holds more values than any text form"};
        if (!levels_.empty())
            ++levels_.back().items;
    }

    void take(const std::string& key) {
        Level& level = levels_.back();
        if (!level.keys.insert(key).second)
            throw Refusal{place(), inQuotes(key) + " is given twice"};
        level.key = key;
    }

    /// "programs[3].parameters", counted from 0; nothing at the top.
    [[nodiscard]] std::string place() const {
        std::string path;
        for (std::size_t i = 0; i + 1 < levels_.size(); ++i) {
            const Level& level = levels_[i];
            if (level.isArray)
                path += '[' + std::to_string(level.items - 1) + ']';
            else
                path +=
                    (path.empty() ? "" : ".") + shortened(printableText(level.key), kMostQuoted);
        }
        return path;
    }

    std::vector<Level> levels_;
    std::size_t values_ = 0;
};

/// "line 3, column 5: ..." of the library's "[json.exception...] parse error at line 3, ...".
std::string complaintOf(const std::exception& error) {
    std::string text = printableText(error.what());
    for (const std::string_view front : {"] ", "parse error at "})
        if (const std::size_t at = text.find(front); at != std::string::npos)
            text.erase(0, at + front.size());
    return shortened(text, kMostComplained);
}

} // namespace

std::string inQuotes(std::string_view text) {
    return '"' + shortened(printableText(text), kMostQuoted) + '"';
}

Result<Json> parseJson(std::string_view text) {
    Guard guard;
    const auto follow = [&guard](int depth, Json::parse_event_t event, const Json& parsed) {
        guard.see(depth, event, parsed);
        return true;
    };
    try {
        return Json::parse(text, follow);
    } catch (const Refusal& refusal) {
        return refusal.problem();
    } catch (const Json::exception& error) {
        return Problem{complaintOf(error)};
    }
}

} // namespace pedl
