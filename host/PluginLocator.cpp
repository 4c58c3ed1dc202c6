#include "host/PluginLocator.h"

#include <cstdlib>
#include <sstream>
#include <system_error>

namespace pedl {

namespace {

using Paths = std::vector<std::filesystem::path>;

constexpr const char* kEnding = ".so";
constexpr const char* kPluginFile = "ZMTpedlFilter.so";

/// The folders in which every host looks, the user's own first.
Paths vstFolders() {
    Paths folders;
    const char* const listed = std::getenv("VST_PATH");
    std::istringstream list(listed == nullptr ? "" : listed);
    for (std::string folder; std::getline(list, folder, ':');)
        if (!folder.empty())
            folders.emplace_back(folder);
    if (const char* const home = std::getenv("HOME"); home != nullptr && *home != '\0')
        folders.push_back(std::filesystem::path(home) / ".vst");
    folders.emplace_back("/usr/local/lib/vst");
    folders.emplace_back("/usr/lib/vst");
    return folders;
}

/// @param missing  begins the line that names the places where there is none
Result<std::filesystem::path> firstFile(const Paths& places, const std::string& missing) {
    std::error_code error;
    std::string looked;
    for (const std::filesystem::path& place : places) {
        if (std::filesystem::is_regular_file(place, error))
            return place;
        if (looked.find(place.string()) == std::string::npos)
            looked += (looked.empty() ? "" : ", ") + place.string();
    }
    return Problem{missing + " (" + looked + ")"};
}

} // namespace

Paths pluginPlaces(const std::filesystem::path& commandFolder) {
    const std::filesystem::path parent = commandFolder.parent_path();
    Paths places{commandFolder / kPluginFile, parent / "plugin" / kPluginFile,
                 parent / "lib/vst" / kPluginFile};
    for (const std::filesystem::path& folder : vstFolders())
        places.push_back(folder / kPluginFile);
    return places;
}

Result<std::filesystem::path> findPlugin() {
    std::error_code error;
    const std::filesystem::path command = std::filesystem::read_symlink("/proc/self/exe", error);
    return firstFile(pluginPlaces(command.parent_path()),
                     "the plug-in is not where it is looked for; --plugin PATH names it");
}

Result<std::filesystem::path> findPlugin(const std::string& named) {
    std::error_code error;
    if (named.find('/') != std::string::npos || std::filesystem::exists(named, error))
        return std::filesystem::path(named);
    const std::string file = named.ends_with(kEnding) ? named : named + kEnding;
    Paths places;
    for (const std::filesystem::path& folder : vstFolders())
        places.push_back(folder / file);
    return firstFile(places, named + ": no such plug-in file, nor one where hosts look for them");
}

} // namespace pedl
