#include "demo/tour/CommandRun.h"

#include "demo/ModulationTrace.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <sstream>
#include <stdexcept>

namespace pedl::demo {

namespace {

std::uint32_t calendarSeconds() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::seconds>(now).count());
}

/// The word as the shell gives it back unchanged.
std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char c : word)
        text += c == '\'' ? "'\\''" : std::string(1, c);
    return text + "'";
}

/// Runs a program; returns what it wrote to both of its streams.
std::string run(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words)
        line += quoted(word) + " ";
    FILE* pipe = popen((line + "2>&1").c_str(), "r");
    if (pipe == nullptr)
        throw std::runtime_error(words.front() + " cannot be started");
    std::string text;
    std::array<char, 4096> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
        text.append(buffer.data(), count);
    if (pclose(pipe) != 0)
        throw std::runtime_error(line + "failed:\n" + text);
    return text;
}

} // namespace

std::vector<std::string> renderArguments(const DemoSetting& setting,
                                         const std::filesystem::path& curves) {
    std::vector<std::string> arguments{"--factory", "--program", setting.program};
    for (const std::string& assignment : setting.sets)
        arguments.insert(arguments.end(), {"--set", assignment});
    for (const std::string& automation : setting.automations) {
        const std::size_t valueAt = automation.find('=') + 1;
        arguments.insert(arguments.end(),
                         {"--automate", automation.substr(0, valueAt) +
                                            (curves / automation.substr(valueAt)).string()});
    }
    if (setting.tempoBpm) {
        std::ostringstream tempo;
        tempo << *setting.tempoBpm;
        arguments.insert(arguments.end(), {"--tempo", tempo.str()});
    }
    return arguments;
}

Rendering renderByCommand(const std::filesystem::path& command, const std::filesystem::path& input,
                          const std::filesystem::path& output, const DemoSetting& setting,
                          const std::filesystem::path& curves) {
    std::vector<std::string> words{command.string(), "render",  input.string(),
                                   output.string(),  "--block", std::to_string(kBlockFrames)};
    for (std::string& argument : renderArguments(setting, curves))
        words.push_back(std::move(argument));
    Rendering rendering{0.0, calendarSeconds(), 0};
    const std::string report = run(words);
    rendering.calendarTo = calendarSeconds();

    // The report's last words are ": FACTOR times realtime".
    const std::size_t end = report.rfind(" times realtime");
    const std::size_t colon = report.rfind(": ", end);
    if (end != std::string::npos && colon != std::string::npos)
        rendering.realtimeFactor = std::stod(report.substr(colon + 2, end - colon - 2));
    return rendering;
}

} // namespace pedl::demo
