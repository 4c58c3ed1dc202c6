#include "foundation/text/ValueFromText.h"

#include "foundation/text/NameMatch.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace pedl {

namespace {

/// Steps in which the values are looked through: the second is for lists with narrow places.
constexpr std::array<int, 2> kGridSteps{256, 4096};

/// With this many different numbers a parameter is a dial, with fewer a list.
constexpr std::size_t kFewestNumbersOfADial = 33;

constexpr std::size_t kMostTextsNamed = 16;

/// A text without blanks, in lower case.
std::string compact(std::string_view text) {
    std::string letters = lowerCase(text);
    std::erase_if(letters, [](char letter) { return letter == ' ' || letter == '\t'; });
    return letters;
}

struct ScaledUnit {
    std::string_view name;
    std::string_view base;
    double scale; // to the base unit
};
constexpr std::array<ScaledUnit, 16> kScaledUnits{{
    {"hz", "hz", 1.0},
    {"khz", "hz", 1000.0},
    {"k", "hz", 1000.0}, // what musicians write
    {"s", "s", 1.0},
    {"sec", "s", 1.0},
    {"ms", "s", 0.001},
    {"us", "s", 0.000001},
    {"\xC2\xB5s", "s", 0.000001},
    {"db", "db", 1.0},
    {"%", "%", 1.0},
    {"percent", "%", 1.0},
    {"bpm", "bpm", 1.0},
    {"deg", "deg", 1.0},
    {"degree", "deg", 1.0},
    {"degrees", "deg", 1.0},
    {"\xC2\xB0", "deg", 1.0},
}};
constexpr std::string_view kThousand = "k"; // says how many also where no unit is known

const ScaledUnit* scaledUnit(std::string_view name) {
    const auto* found = std::find_if(kScaledUnits.begin(), kScaledUnits.end(),
                                     [name](const ScaledUnit& unit) { return unit.name == name; });
    return found != kScaledUnits.end() ? found : nullptr;
}

/// A text as a number with what stands around it: "x4.0" has a prefix, "24 dB" a unit.
struct Reading {
    std::string prefix;
    double number = 0.0;
    std::string unit;
};

std::optional<Reading> read(std::string_view text) {
    const std::string letters = compact(text);
    std::size_t start = letters.find_first_of("0123456789");
    if (start == std::string::npos)
        return std::nullopt;
    if (start > 0 && letters[start - 1] == '.')
        --start;
    const bool isSigned = start > 0 && (letters[start - 1] == '-' || letters[start - 1] == '+');
    const bool isNegative = isSigned && letters[start - 1] == '-';

    Reading reading;
    const char* const end = letters.data() + letters.size();
    const auto [rest, error] = std::from_chars(letters.data() + start, end, reading.number);
    if (error != std::errc{})
        return std::nullopt;
    if (isNegative)
        reading.number = -reading.number;
    reading.prefix = letters.substr(0, isSigned ? start - 1 : start);
    reading.unit.assign(rest, end);
    // "1:4" and "L3:B7" are names made of numbers, not numbers.
    if (reading.unit.find_first_of("0123456789") != std::string::npos)
        return std::nullopt;
    return reading;
}

/// The search for one parameter and one wanted text.
class Search {
public:
    Search(std::string_view wanted, std::string_view unit, const TextOfValue& textAt)
        : typed_(trimmed(wanted)), wanted_(compact(wanted)), wantedReading_(read(wanted)),
          unit_(compact(unit)), unitText_(trimmed(unit)), textAt_(textAt) {}

    Result<float> run() {
        for (const int steps : kGridSteps) {
            look(steps);
            if (const std::optional<float> value = amongTexts())
                return *value;
            if (isDial() && wantedReading_)
                return isUnderstood() ? amongNumbers() : Result<float>(notUnderstood());
        }
        if (const std::optional<float> value = amongLikelyTexts())
            return *value;
        addEndsOfNumbers();
        return Problem{"no value reads \"" + typed_ + "\"; " + whatThereIs()};
    }

private:
    struct Sample {
        float value = 0.0F;
        std::string text;
        std::optional<double> number; // in the base unit; nothing for other texts
    };

    Sample sampleAt(float value) const {
        Sample sample{value, textAt_(value), std::nullopt};
        if (const std::optional<Reading> reading = read(sample.text))
            sample.number = inBaseUnit(*reading);
        return sample;
    }

    double inBaseUnit(const Reading& reading) const {
        const ScaledUnit* const unit = scaledUnit(unitOf(reading));
        return unit != nullptr ? reading.number * unit->scale : reading.number;
    }

    void look(int steps) {
        samples_.clear();
        for (int step = 0; step <= steps; ++step)
            samples_.push_back(sampleAt(static_cast<float>(step) / static_cast<float>(steps)));
    }

    /// Whether a shown text is the wanted one.
    bool isWanted(const Sample& sample) const {
        const std::string shown = compact(sample.text);
        if (shown.empty())
            return false;
        if (shown == wanted_ || shown + unit_ == wanted_)
            return true;
        const std::optional<Reading> reading = read(sample.text);
        if (!reading || !wantedReading_ || reading->number != wantedReading_->number)
            return false;
        const std::string& unit = unitOf(*reading);
        return (wantedReading_->prefix.empty() || wantedReading_->prefix == reading->prefix) &&
               (wantedReading_->unit.empty() || wantedReading_->unit == unit);
    }

    std::optional<float> amongTexts() const {
        const auto hit = std::find_if(samples_.begin(), samples_.end(),
                                      [this](const Sample& sample) { return isWanted(sample); });
        if (hit == samples_.end())
            return std::nullopt;
        return middleOfWhatShows(compact(hit->text), hit->value);
    }

    /// The only text that is written another way, begins with what is wanted or has it for a word:
    /// "-inf" for "-oo", "1/4" for "1:4", "host" for "hostBPM", "on" for "Mod on".
    std::optional<float> amongLikelyTexts() const {
        const Sample* found = nullptr;
        for (const Likeness likeness : {&Search::isSpelling, &Search::isPart}) {
            std::string foundText;
            for (const Sample& sample : samples_) {
                const std::string shown = compact(sample.text);
                if (shown == foundText || !(this->*likeness)(sample.text))
                    continue;
                if (found != nullptr)
                    return std::nullopt;
                found = &sample;
                foundText = shown;
            }
            if (found != nullptr)
                return middleOfWhatShows(foundText, found->value);
        }
        return std::nullopt;
    }

    using Likeness = bool (Search::*)(const std::string& text) const;

    bool isSpelling(const std::string& text) const { return spelling(text) == spelling(wanted_); }

    static std::string spelling(std::string_view text) {
        std::string letters = compact(text);
        std::ranges::replace(letters, '/', ':');
        for (const char* const infinity : {"-inf", "-infinity", "-\xE2\x88\x9E"})
            if (letters == infinity)
                return "-oo";
        return letters;
    }

    /// Words only: a number's beginning is another number.
    bool isPart(const std::string& text) const {
        if (wantedReading_ || wanted_.empty())
            return false;
        const std::string shown = lowerCase(trimmed(text));
        return compact(shown).starts_with(wanted_) ||
               (' ' + shown + ' ').find(' ' + wanted_ + ' ') != std::string::npos;
    }

    /// The middle of the values around `inside` that show `text`.
    float middleOfWhatShows(const std::string& text, float inside) const {
        const auto shows = [&](float value) { return compact(textAt_(value)) == text; };
        const float below = lastThat(shows, inside, 0.0F);
        const float above = lastThat(shows, inside, 1.0F);
        if (below == 0.0F)
            return 0.0F;
        if (above == 1.0F)
            return 1.0F;
        return below + (above - below) * 0.5F;
    }

    /// The value furthest towards `bound` for which `holds` still holds; it does at `inside`.
    template <typename Predicate>
    static float lastThat(const Predicate& holds, float inside, float bound) {
        // Neighbouring places of a list can show the text again, so go out by doubling steps and
        // bisect only inside the first step that leaves it.
        float step = (bound > inside ? 1.0F : -1.0F) / 4096.0F;
        float outside = bound;
        for (;; step *= 2.0F) {
            const float next = inside + step;
            if ((step > 0.0F) ? next >= bound : next <= bound) {
                if (holds(bound))
                    return bound;
                break;
            }
            if (!holds(next)) {
                outside = next;
                break;
            }
            inside = next;
        }
        for (;;) {
            const float middle = inside + (outside - inside) * 0.5F;
            if (middle == inside || middle == outside)
                return inside;
            (holds(middle) ? inside : outside) = middle;
        }
    }

    bool isDial() const {
        std::set<double> numbers;
        for (const Sample& sample : samples_)
            if (sample.number)
                numbers.insert(*sample.number);
        return numbers.size() >= kFewestNumbersOfADial;
    }

    /// What a shown number is followed by, or the unit beside the texts.
    const std::string& unitOf(const Reading& reading) const {
        return reading.unit.empty() ? unit_ : reading.unit;
    }

    /// Whether what stands around the wanted number is what stands around a shown one, a unit of
    /// the same quantity, or nothing.
    bool isUnderstood() const {
        const std::string& prefix = wantedReading_->prefix;
        const std::string& unit = wantedReading_->unit;
        const ScaledUnit* const scaled = scaledUnit(unit);
        bool isPrefixKnown = prefix.empty();
        bool isUnitKnown = unit.empty();
        for (const Sample& sample : samples_) {
            const std::optional<Reading> reading = read(sample.text);
            if (!reading)
                continue;
            const std::string& own = unitOf(*reading);
            const ScaledUnit* const ownScaled = scaledUnit(own);
            isPrefixKnown = isPrefixKnown || prefix == reading->prefix;
            isUnitKnown =
                isUnitKnown || unit == own ||
                (prefix.empty() && unit == reading->prefix) || // "2x" for "x2"
                (own.empty() && unit == kThousand) ||
                (scaled != nullptr && ownScaled != nullptr && scaled->base == ownScaled->base);
        }
        return isPrefixKnown && isUnitKnown;
    }

    Problem notUnderstood() {
        addEndsOfNumbers();
        return Problem{"\"" + typed_ + "\" is not understood; " + whatThereIs()};
    }

    /// The wanted number in the unit in which the samples are compared.
    double wantedNumber() const {
        if (scaledUnit(wantedReading_->unit) != nullptr)
            return inBaseUnit(*wantedReading_);
        // Without a unit (or with the plug-in's own) the smaller of those shown is meant: hertz,
        // milliseconds.
        double scale = 0.0;
        for (const Sample& sample : samples_) {
            const std::optional<Reading> reading = read(sample.text);
            if (!reading)
                continue;
            const ScaledUnit* const unit = scaledUnit(unitOf(*reading));
            const double own = unit != nullptr ? unit->scale : 1.0;
            scale = scale == 0.0 ? own : std::min(scale, own);
        }
        return wantedReading_->number * (scale == 0.0 ? 1.0 : scale);
    }

    Result<float> amongNumbers() {
        addEndsOfNumbers();
        const double wanted = wantedNumber();
        std::optional<float> best;
        double bestError = 0.0;
        for (std::size_t i = 1; i < samples_.size(); ++i) {
            const Sample& sample = samples_[i];
            if (!sample.number || !samples_[i - 1].number)
                continue;
            // A step across the wanted number; there can be several when the dial turns back.
            const bool wasBelow = *samples_[i - 1].number <= wanted;
            const bool isBelow = *sample.number <= wanted;
            if (wasBelow == isBelow && *samples_[i - 1].number != wanted &&
                *sample.number != wanted)
                continue;
            const Sample found = nearestBetween(samples_[i - 1], sample, wanted);
            const double error = std::abs(*found.number - wanted);
            if (!best || error < bestError) {
                best = found.value;
                bestError = error;
            }
        }
        if (best)
            return middleOfWhatShows(compact(textAt_(*best)), *best);
        const auto [lowest, highest] = endsOfNumbers();
        return Problem{"\"" + typed_ + "\" is outside " + rangeText(*lowest, *highest)};
    }

    /// The samples with the lowest and the highest number, null where there are no numbers.
    std::pair<const Sample*, const Sample*> endsOfNumbers() const {
        const Sample* lowest = nullptr;
        const Sample* highest = nullptr;
        for (const Sample& sample : samples_) {
            if (!sample.number)
                continue;
            if (lowest == nullptr || *sample.number < *lowest->number)
                lowest = &sample;
            if (highest == nullptr || *sample.number > *highest->number)
                highest = &sample;
        }
        return {lowest, highest};
    }

    std::string rangeText(const Sample& lowest, const Sample& highest) const {
        return std::string(trimmed(lowest.text)) + " .. " + std::string(trimmed(highest.text)) +
               (unitText_.empty() ? "" : " " + unitText_);
    }

    /// Where numbers border on another text ("off", "-oo"), the number at the border is the range's
    /// end: it stands between two samples.
    void addEndsOfNumbers() {
        std::vector<Sample> whole;
        for (std::size_t i = 0; i < samples_.size(); ++i) {
            if (i > 0 && samples_[i].number.has_value() != samples_[i - 1].number.has_value()) {
                const bool rises = samples_[i].number.has_value();
                const Sample& inside = samples_[rises ? i : i - 1];
                const Sample& outside = samples_[rises ? i - 1 : i];
                whole.push_back(sampleAt(lastNumberTowards(inside.value, outside.value)));
            }
            whole.push_back(samples_[i]);
        }
        samples_ = std::move(whole);
    }

    float lastNumberTowards(float inside, float outside) const {
        for (;;) {
            const float middle = inside + (outside - inside) * 0.5F;
            if (middle == inside || middle == outside)
                return inside;
            (sampleAt(middle).number ? inside : outside) = middle;
        }
    }

    /// The sample nearest to `wanted` between two that lie on either side of it.
    Sample nearestBetween(Sample from, Sample to, double wanted) const {
        const bool rises = *from.number <= *to.number;
        for (;;) {
            const float middle = from.value + (to.value - from.value) * 0.5F;
            if (middle == from.value || middle == to.value)
                break;
            Sample between = sampleAt(middle);
            if (!between.number || *between.number == wanted)
                return between.number ? between : from;
            ((*between.number < wanted) == rises ? from : to) = std::move(between);
        }
        return std::abs(*from.number - wanted) <= std::abs(*to.number - wanted) ? from : to;
    }

    /// The texts that can be had, a dial's numbers shortened to their ends.
    std::string whatThereIs() const {
        std::vector<std::string> texts;
        const auto [lowest, highest] = endsOfNumbers();
        const bool hasRange = isDial();
        if (hasRange)
            texts.push_back(rangeText(*lowest, *highest));
        for (const Sample& sample : samples_) {
            if (hasRange && sample.number)
                continue;
            const std::string text(trimmed(sample.text));
            if (!text.empty() && std::find(texts.begin(), texts.end(), text) == texts.end())
                texts.push_back(text);
        }
        if (texts.empty())
            return "it shows no texts: set it by its index, as INDEX=0.5";
        const bool isLong = texts.size() > kMostTextsNamed;
        if (isLong) {
            std::ranges::stable_sort(texts, std::greater(), [this](const std::string& text) {
                return sharedStart(compact(text), wanted_);
            });
            texts.resize(kMostTextsNamed / 2);
        }
        std::string list;
        for (const std::string& text : texts)
            list += (list.empty() ? "" : ", ") + text;
        return (isLong ? "among others it shows " : "it shows ") + list;
    }

    std::string typed_;  // as the user wrote it
    std::string wanted_; // for comparing
    std::optional<Reading> wantedReading_;
    std::string unit_;     // for comparing
    std::string unitText_; // for showing
    const TextOfValue& textAt_;
    std::vector<Sample> samples_;
};

} // namespace

Result<float> valueFromText(std::string_view wanted, std::string_view unit,
                            const TextOfValue& textAt) {
    if (trimmed(wanted).empty())
        return Problem{"the value is missing"};
    return Search(wanted, unit, textAt).run();
}

} // namespace pedl
