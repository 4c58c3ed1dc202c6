#pragma once

#include <string>
#include <variant>
#include <vector>

namespace pedl {

/// The sub-commands of zmt-pedlfilter.
enum class Action { Render, Show, Programs, Parameters, Information, Convert, Diff, Audition };

/// What stands on the command line, as text; nothing of it is looked at yet.
struct CommandLine {
    Action action = Action::Render;
    std::string in, out, folder, format, bits, plugin, program, bank, preset, midiSettings, midi,
        tempo = "120", block = "512", tail = "0", play, screenshot, scale, seconds, search;
    std::vector<std::string> files, settings, links, automations, materials, programs, slots,
        compared;
    bool keepsExisting = false;
    bool isDouble = false;
    bool isFactory = false;
    bool isJson = false;
    bool isQuiet = false;
    bool isStrict = false;
    bool isVerbose = false;
};

/// Reads the command line; says what is wrong with it, or the help that was asked for.
///
/// @return what is to be done, or the exit status where nothing is
std::variant<CommandLine, int> readCommandLine(int count, char** words);

} // namespace pedl
