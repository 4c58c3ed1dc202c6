#include "presets/factory/ProgramTable.h"

#include "foundation/text/NameMatch.h"
#include "parameters/NoteDivision.h"
#include "parameters/ParameterCatalogue.h"
#include "parameters/ValueLaws.h"
#include "presets/ProgramBank.h"
#include "presets/factory/DisplayValue.h"

#include <algorithm>
#include <bitset>
#include <charconv>
#include <optional>

namespace pedl {

namespace {

/// "a | b | c" without the blanks around the parts.
std::vector<std::string> parts(std::string_view text, char between) {
    std::vector<std::string> all;
    for (;;) {
        const std::size_t end = text.find(between);
        all.emplace_back(trimmed(text.substr(0, end)));
        if (end == std::string_view::npos)
            return all;
        text.remove_prefix(end + 1);
    }
}

class Reader {
public:
    Result<ProgramTable> read(std::string_view text) {
        for (; !text.empty(); ++line_) {
            const std::size_t end = text.find('\n');
            const Done taken = takeLine(trimmed(text.substr(0, end)));
            if (!taken.ok())
                return taken.problem().of("line " + std::to_string(line_));
            text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        }
        Done ended = endProgram();
        if (ended.ok() && nextSlot() != kNumPrograms)
            ended = Problem{"the table ends with slot " + std::to_string(nextSlot() - 1)};
        if (!ended.ok())
            return ended.problem().of("line " + std::to_string(line_));
        return std::move(table_);
    }

private:
    [[nodiscard]] int nextSlot() const {
        return table_.programs.empty() ? 0 : table_.programs.back().lastSlot + 1;
    }

    Done takeLine(std::string_view line) {
        if (line.empty() || line.front() == '#')
            return done();
        if (line.front() == '[')
            return takeHeading(line);
        const std::size_t end = std::min(line.find_first_of(" \t"), line.size());
        const std::string_view word = line.substr(0, end);
        const std::string_view rest = trimmed(line.substr(end));
        if (word == "families" || word == "materials") {
            (word == "families" ? table_.families : table_.materials) = parts(rest, '|');
            return done();
        }
        if (table_.programs.empty())
            return Problem{"stands before the first program"};
        if (word == "family")
            return takeOneOf(table_.families, table_.programs.back().family, word, rest);
        if (word == "on")
            return takeOneOf(table_.materials, table_.programs.back().material, word, rest);
        if (word == "for")
            return takeWords(table_.programs.back().purpose, word, rest);
        if (word == "turn")
            return takeWords(table_.programs.back().turnFirst, word, rest);
        if (word == "leaves")
            return takeLeft(rest);
        return takeValues(line);
    }

    /// "[7] Goes Down" or "[120-139] Init".
    Done takeHeading(std::string_view line) {
        if (Done ended = endProgram(); !ended.ok())
            return ended;
        const std::size_t close = line.find(']');
        TableProgram program;
        if (close == std::string_view::npos || !takeSlots(line.substr(1, close - 1), program))
            return Problem{"is not \"[SLOT] Name\""};
        const std::string_view name = trimmed(line.substr(close + 1));
        if (program.firstSlot != nextSlot())
            return Problem{"slot " + std::to_string(nextSlot()) + " is next"};
        if (program.lastSlot < program.firstSlot || program.lastSlot >= kNumPrograms)
            return Problem{"there are no such slots"};
        if (name.empty() || name.size() > kProgramNameLength)
            return Problem{"a name has 1 to 23 characters"};
        for (const TableProgram& other : table_.programs)
            if (nameText(other.record.name) == name)
                return Problem{"\"" + std::string(name) + "\" is the name of slot " +
                               std::to_string(other.firstSlot)};
        program.record.name = toProgramName(name);
        std::ranges::transform(kParameterRows, program.record.normalised.begin(),
                               &ParameterRow::defaultValue);
        table_.programs.push_back(std::move(program));
        isSet_.reset();
        return done();
    }

    static bool takeSlots(std::string_view text, TableProgram& program) {
        const auto number = [&](int& slot) {
            const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), slot);
            text.remove_prefix(static_cast<std::size_t>(end - text.data()));
            return error == std::errc{};
        };
        if (!number(program.firstSlot))
            return false;
        program.lastSlot = program.firstSlot;
        if (!text.starts_with('-'))
            return text.empty();
        text.remove_prefix(1);
        return number(program.lastSlot) && text.empty();
    }

    static Done takeWords(std::string& words, std::string_view what, std::string_view rest) {
        if (rest.empty() || !words.empty())
            return Problem{"one line \"" + std::string(what) + "\" a program, with words"};
        words = rest;
        return done();
    }

    static Done takeOneOf(const std::vector<std::string>& all, std::string& words,
                          std::string_view what, std::string_view rest) {
        if (std::ranges::find(all, rest) == all.end())
            return Problem{"\"" + std::string(rest) + "\" is not in the table's list"};
        return takeWords(words, what, rest);
    }

    Done takeLeft(std::string_view identifier) {
        if (identifier != "kParam3" || isSet_[kParam3])
            return Problem{"only kParam3 is left, and only where it is not set"};
        table_.programs.back().leavesSpare = true;
        return done();
    }

    /// "kFilterCutoffFreq = 450 Hz, kFilterReso = 60 %"
    Done takeValues(std::string_view line) {
        for (const std::string& assignment : parts(line, ','))
            if (Done taken = takeValue(assignment); !taken.ok())
                return taken;
        return done();
    }

    Done takeValue(std::string_view assignment) {
        const std::size_t equals = assignment.find('=');
        if (equals == std::string_view::npos)
            return Problem{"\"" + std::string(assignment) + "\" is not IDENTIFIER = VALUE"};
        const std::string identifier(trimmed(assignment.substr(0, equals)));
        const std::optional<ParameterIndex> parameter = parameterByIdentifier(identifier);
        if (!parameter)
            return Problem{"there is no parameter " + identifier};
        const Result<float> read =
            valueInDisplayTerms(*parameter, trimmed(assignment.substr(equals + 1)));
        if (!read.ok())
            return read.problem().of(identifier);
        const auto index = static_cast<std::size_t>(*parameter);
        if (isSet_[index])
            return Problem{identifier + " is set twice"};
        if (read.value() == kParameterRows[index].defaultValue)
            return Problem{identifier + " is that of \"Default\" already"};
        isSet_[index] = true;
        table_.programs.back().record.normalised[index] = read.value();
        return done();
    }

    Done endProgram() {
        if (table_.programs.empty())
            return done();
        TableProgram& program = table_.programs.back();
        for (const auto* words :
             {&program.family, &program.material, &program.purpose, &program.turnFirst})
            if (words->empty())
                return Problem{"\"" + std::string(nameText(program.record.name)) +
                               "\" ends without one of its lines family, on, for and turn"};
        return followTempo(program.record.normalised);
    }

    /// The rate that the tempo gives is part of a synchronised program.
    Done followTempo(std::array<float, kNumParams>& normalised) const {
        if (laws::threeWayState(static_cast<double>(normalised[kLFOSyncMode])) == 0)
            return done();
        if (isSet_[kLFOFreq])
            return Problem{"kLFOFreq is what the tempo gives"};
        const NoteDivision note = kNoteDivisions[noteDivisionIndex(normalised[kLFOSynchroRate])];
        constexpr double kWholeNoteSeconds = 240.0; // at one beat a minute
        const double rateHz = note.denominator *
                              laws::tempoBpm(static_cast<double>(normalised[kTempoSetup])) /
                              (note.numerator * kWholeNoteSeconds);
        const double rate = laws::normalisedLfoRate(rateHz);
        if (rate < 0.0 || rate > 1.0)
            return Problem{"the note asks for a rate that the LFO does not have"};
        normalised[kLFOFreq] = static_cast<float>(rate);
        return done();
    }

    int line_ = 1;
    ProgramTable table_;
    std::bitset<kNumParams> isSet_; // in the last program
};

} // namespace

Result<ProgramTable> readProgramTable(std::string_view text) {
    return Reader().read(text);
}

} // namespace pedl
