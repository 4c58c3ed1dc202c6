#pragma once

#include <optional>
#include <string>
#include <vector>

namespace pedl::demo {

/// What a setting is called and what there is to hear.
struct SettingWords {
    std::string title;
    std::string listen;
};

/// One row of the demonstration: what is rendered and with which settings.
struct DemoSetting {
    int number;       ///< in the table, from 1
    std::string name; ///< of the files it leaves
    SettingWords words;
    SettingWords ownWords; ///< on a sound of the user's own
    std::string material;  ///< "riff", "drums", "pad" or "chords"
    std::string program;
    std::optional<double> tempoBpm;       ///< of a setting that goes with the beat
    std::vector<std::string> sets;        ///< NAME=VALUE, as the command's --set takes it
    std::vector<std::string> ownSets;     ///< instead, on a sound of the user's own
    std::vector<std::string> automations; ///< NAME=CURVE.csv, the curve beside the settings file
};

/// Reads demo/settings.json. Throws std::runtime_error with the path and the reason.
std::vector<DemoSetting> readSettings(const std::string& path);

} // namespace pedl::demo
