#include "demo/tour/DemoSetting.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <stdexcept>

namespace pedl::demo {

namespace {

/// The words of a row; what is not there is taken from `otherwise`.
SettingWords wordsFrom(const nlohmann::json& row, const SettingWords& otherwise) {
    return {row.value("title", otherwise.title), row.value("listen", otherwise.listen)};
}

DemoSetting settingFrom(const nlohmann::json& row, int number) {
    DemoSetting setting{};
    setting.number = number;
    row.at("name").get_to(setting.name);
    setting.words = {row.at("title"), row.at("listen")};
    const nlohmann::json own = row.value("own", nlohmann::json::object());
    setting.ownWords = wordsFrom(own, setting.words);
    setting.ownSets = own.value("set", setting.ownSets);
    row.at("material").get_to(setting.material);
    row.at("program").get_to(setting.program);
    row.at("set").get_to(setting.sets);
    if (row.contains("tempo"))
        setting.tempoBpm = row.at("tempo").get<double>();
    if (row.contains("automate"))
        row.at("automate").get_to(setting.automations);
    return setting;
}

} // namespace

std::vector<DemoSetting> readSettings(const std::string& path) try {
    std::ifstream file(path);
    if (!file)
        throw std::runtime_error("cannot be read");
    std::vector<DemoSetting> settings;
    for (const nlohmann::json& row : nlohmann::json::parse(file))
        settings.push_back(settingFrom(row, static_cast<int>(settings.size()) + 1));
    return settings;
} catch (const std::exception& error) {
    throw std::runtime_error(path + ": " + error.what());
}

} // namespace pedl::demo
