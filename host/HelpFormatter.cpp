#include "host/HelpFormatter.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace pedl {

namespace {

/// What fits into a line: a terminal wraps at its last column. The man pages ask for wide lines,
/// since they break them themselves.
std::size_t lineColumns() {
    constexpr long kTerminal = 80;
    constexpr long kLeast = 60;
    constexpr long kMost = 1000;
    const char* const asked = std::getenv("COLUMNS");
    const long columns = asked == nullptr ? kTerminal : std::strtol(asked, nullptr, 10);
    return static_cast<std::size_t>(columns < kLeast ? kTerminal : std::min(columns, kMost)) - 1;
}

/// The last space at which `line` can be broken so that at most `columns` stand before it, or the
/// first behind them; none that is within quotes or at `least` or before.
std::size_t breakOf(const std::string& line, std::size_t columns, std::size_t least) {
    std::size_t best = std::string::npos;
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"')
            isQuoted = !isQuoted;
        if (line[i] != ' ' || isQuoted || i <= least)
            continue;
        if (i > columns)
            return best == std::string::npos ? i : best;
        best = i;
    }
    return best;
}

/// `text` in lines of at most `columns`, broken at spaces: `lineEnd` closes a line that goes on,
/// and `indent` opens the next.
std::string wrapped(const std::string& text, std::size_t columns, const std::string& lineEnd = "",
                    const std::string& indent = "") {
    std::string whole;
    std::string line = text;
    std::size_t least = text.find_first_not_of(' '); // nothing stands before it
    while (line.size() > columns) {
        const std::size_t space = breakOf(line, columns - lineEnd.size(), least);
        if (space == std::string::npos)
            break;
        whole.append(line, 0, space).append(lineEnd).append("\n");
        line = std::string(indent).append(line, space + 1);
        least = indent.size();
    }
    return whole + line;
}

constexpr const char* kExample = "  $ ";
constexpr const char* kContinued = "     "; // a line of a table that goes on below the last column

/// A line that is kept: an example goes on behind a backslash, a table's line below its last
/// column.
std::string keptLine(const std::string& line) {
    if (line.starts_with(kExample))
        return wrapped(line, lineColumns(), " \\", "      ");
    const std::size_t gap = line.find("  ", line.find_first_not_of(' '));
    const std::size_t column = gap == std::string::npos ? 2 : line.find_first_not_of(' ', gap);
    return wrapped(line, lineColumns(), "", std::string(column, ' '));
}

/// Lines of one paragraph, or of one line of a table, are joined, whatever their length in the
/// source.
std::string filled(const std::string& text) {
    std::istringstream lines(text);
    std::string joined;
    std::string whole;
    const auto end = [&] {
        if (!joined.empty())
            whole +=
                (joined.front() == ' ' ? keptLine(joined) : wrapped(joined, lineColumns())) + '\n';
        joined.clear();
    };
    for (std::string line; std::getline(lines, line);) {
        const bool isKept = line.starts_with(' ') && !line.starts_with(kContinued);
        if (line.empty() || isKept || (joined.starts_with(' ') && !line.starts_with(' ')))
            end();
        if (line.empty())
            whole += '\n';
        else if (joined.empty())
            joined = line;
        else
            joined += ' ' + line.substr(line.find_first_not_of(' '));
    }
    end();
    return whole;
}

} // namespace

std::string HelpFormatter::make_description(const CLI::App* app) const {
    return filled(CLI::Formatter::make_description(app));
}

std::string HelpFormatter::make_footer(const CLI::App* app) const {
    return filled(app->get_footer());
}

std::string HelpFormatter::make_option_desc(const CLI::Option* option) const {
    return wrapped(CLI::Formatter::make_option_desc(option), lineColumns() - kNameColumns);
}

std::string HelpFormatter::make_subcommand(const CLI::App* command) const {
    std::ostringstream out;
    CLI::detail::format_help(out, command->get_name(),
                             wrapped(command->get_description(), lineColumns() - kNameColumns),
                             kNameColumns);
    return out.str();
}

} // namespace pedl
