#include "host/StartingState.h"

#include "host/Selection.h"
#include "host/StoredFiles.h"

#include <cstdlib>

namespace pedl {

namespace {

/// The file that is named for this kind, if any, into the plug-in.
Done loadStored(Plugin& plugin, DocumentKind kind, const std::optional<std::filesystem::path>& path,
                std::vector<std::string>& warnings) {
    if (!path)
        return done();
    const Result<std::vector<std::string>> loaded = loadStoredFile(plugin, kind, *path);
    if (!loaded.ok())
        return loaded.problem().of(storedFileOption(kind));
    warnings.insert(warnings.end(), loaded.value().begin(), loaded.value().end());
    return done();
}

/// Bank, program and links, from files and by name.
Result<std::vector<std::string>> applyFiles(Plugin& plugin, const StartingState& wanted) {
    std::vector<std::string> warnings;
    Done loaded = loadStored(plugin, DocumentKind::Bank, wanted.bank, warnings);
    if (loaded.ok() && wanted.program) {
        const Result<std::string> selected = selectProgram(plugin, *wanted.program);
        if (!selected.ok())
            loaded = selected.problem().of("--program");
        else if (!selected.value().empty())
            warnings.push_back("--program: " + selected.value());
    }
    if (loaded.ok())
        loaded = loadStored(plugin, DocumentKind::Program, wanted.preset, warnings);
    if (loaded.ok())
        loaded = loadStored(plugin, DocumentKind::MidiSettings, wanted.midiSettings, warnings);
    if (!loaded.ok())
        return loaded.problem();
    return warnings;
}

Done applySettings(Plugin& plugin, const StartingState& wanted) {
    for (const std::string& text : wanted.settings) {
        const Result<Setting> setting = findSetting(plugin, text);
        if (!setting.ok())
            return setting.problem().of("--set");
        plugin.setParameter(setting.value().index, setting.value().normalised);
    }
    for (const std::string& text : wanted.links)
        if (const Done linked = linkController(plugin, text); !linked.ok())
            return linked.problem().of("--link");
    return done();
}

} // namespace

void ignoreUserSettings() {
    setenv("XDG_CONFIG_HOME", "/dev/null", 1); // settings are below it: no folder, none can be made
}

Result<std::vector<std::string>> applyStartingState(Plugin& plugin, const StartingState& wanted) {
    Result<std::vector<std::string>> warnings = applyFiles(plugin, wanted);
    if (!warnings.ok())
        return warnings;
    if (const Done applied = applySettings(plugin, wanted); !applied.ok())
        return applied.problem();
    return warnings;
}

} // namespace pedl
