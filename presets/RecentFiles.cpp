#include "presets/RecentFiles.h"

#include "foundation/platform/SettingsStore.h"
#include "presets/SettingsText.h"

namespace pedl {

namespace {

constexpr std::string_view kFolderValue = "CurrDir";

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
    nameOf(kind) = path.substr(slash + 1);
}

void RecentFiles::read(SettingsStore& settings) {
    folder_ = readText(settings, kFolderValue);
    for (const FileType& type : kFileTypes)
        nameOf(type.kind) = readText(settings, type.recentNameValue);
}

bool RecentFiles::write(SettingsStore& settings) const {
    bool isKept = writeText(settings, kFolderValue, folder_);
    for (const FileType& type : kFileTypes)
        isKept = writeText(settings, type.recentNameValue, name(type.kind)) && isKept;
    return isKept;
}

} // namespace pedl
