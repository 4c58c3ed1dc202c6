#include "presets/RecentFiles.h"

#include "foundation/platform/SettingsStore.h"
#include "presets/SettingsText.h"

namespace pedl {

namespace {

constexpr std::string_view kFolderValue = "CurrDir";

// In the order of `FileKind`.
constexpr std::array<std::string_view, 3> kNameValues{"CurrPreset", "CurrBank", "CurrMidi"};

std::string readText(SettingsStore& settings, std::string_view value) {
    const auto bytes = settings.read(value);
    return bytes ? textOfSettings(*bytes) : std::string();
}

bool writeText(SettingsStore& settings, std::string_view value, std::string_view text) {
    return settings.write(value, settingsTextBytes(text));
}

} // namespace

void RecentFiles::remember(FileKind kind, std::string_view path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos)
        return;
    folder_ = path.substr(0, slash + 1);
    names_[static_cast<std::size_t>(kind)] = path.substr(slash + 1);
}

const std::string& RecentFiles::name(FileKind kind) const noexcept {
    return names_[static_cast<std::size_t>(kind)];
}

void RecentFiles::read(SettingsStore& settings) {
    folder_ = readText(settings, kFolderValue);
    for (std::size_t kind = 0; kind < names_.size(); ++kind)
        names_[kind] = readText(settings, kNameValues[kind]);
}

bool RecentFiles::write(SettingsStore& settings) const {
    bool isKept = writeText(settings, kFolderValue, folder_);
    for (std::size_t kind = 0; kind < names_.size(); ++kind)
        isKept = writeText(settings, kNameValues[kind], names_[kind]) && isKept;
    return isKept;
}

} // namespace pedl
