#include "demo/DemoSetting.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <stdexcept>

namespace pedl::demo {

namespace {

DemoSetting settingFrom(const nlohmann::json& row) {
    DemoSetting setting;
    row.at("name").get_to(setting.name);
    row.at("title").get_to(setting.title);
    row.at("listen").get_to(setting.listen);
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
        settings.push_back(settingFrom(row));
    return settings;
} catch (const std::exception& error) {
    throw std::runtime_error(path + ": " + error.what());
}

} // namespace pedl::demo
