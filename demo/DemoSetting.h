#pragma once

#include <optional>
#include <string>
#include <vector>

namespace pedl::demo {

/// One row of the demonstration: what is rendered, with which settings, and what to listen for.
struct DemoSetting {
    std::string name; ///< of the files it leaves
    std::string title;
    std::string listen;
    std::string material; ///< "riff", "drums" or "pad"
    std::string program;
    std::optional<double> tempoBpm;
    std::vector<std::string> sets;        ///< NAME=VALUE, as the command's --set takes it
    std::vector<std::string> automations; ///< NAME=CURVE.csv, the curve beside the settings file
};

/// Reads demo/settings.json. Throws std::runtime_error with the path and the reason.
std::vector<DemoSetting> readSettings(const std::string& path);

} // namespace pedl::demo
