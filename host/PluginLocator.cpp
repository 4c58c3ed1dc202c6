#include "host/PluginLocator.h"

#include <string>
#include <system_error>

namespace pedl {

namespace {

constexpr const char* kPluginFile = "ZMTpedlFilter.so";

} // namespace

std::vector<std::filesystem::path> pluginPlaces(const std::filesystem::path& commandFolder) {
    const std::filesystem::path parent = commandFolder.parent_path();
    return {commandFolder / kPluginFile, parent / "plugin" / kPluginFile,
            parent / "lib/vst" / kPluginFile,
            std::filesystem::path("/usr/local/lib/vst") / kPluginFile};
}

Result<std::filesystem::path> findPlugin() {
    std::error_code error;
    const std::filesystem::path command = std::filesystem::read_symlink("/proc/self/exe", error);
    std::string looked;
    for (const std::filesystem::path& place : pluginPlaces(command.parent_path())) {
        if (std::filesystem::is_regular_file(place, error))
            return place;
        if (looked.find(place.string()) == std::string::npos)
            looked += (looked.empty() ? "" : ", ") + place.string();
    }
    return Problem{"the plug-in is not where it is looked for (" + looked +
                   "); --plugin PATH names it"};
}

} // namespace pedl
