// The library's entry: the one place that knows every part.

#include "foundation/platform/FileSettingsStore.h"
#include "foundation/platform/StandardErrorStream.h"
#include "foundation/platform/SystemClock.h"
#include "plugin/ZMTpedlFilterEffect.h"

namespace {

/// What an instance takes from the system. A base, because it is there before the effect and goes
/// after it; not a global, because a library must leave nothing to do when it is unloaded.
struct SystemSurroundings {
    pedl::SystemClock systemClock;
    pedl::StandardErrorStream standardError;
    pedl::FileSettingsStore userSettings{pedl::userSettingsFolder(), standardError};
};

/// One instance with all it needs; the host deletes it by closing the effect.
class PluginInstance final : private SystemSurroundings, public pedl::ZMTpedlFilterEffect {
public:
    explicit PluginInstance(audioMasterCallback host)
        : ZMTpedlFilterEffect(host, {systemClock, standardError, userSettings}) {}
};

} // namespace

/// A new instance for the host, or null where it answers no version or memory is short.
extern "C" __attribute__((visibility("default"))) AEffect*
VSTPluginMain(audioMasterCallback audioMaster) {
    if (audioMaster == nullptr ||
        audioMaster(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0F) == 0)
        return nullptr;
    try {
        return (new PluginInstance(audioMaster))->getAeffect();
    } catch (...) { // the host is C: nothing thrown may reach it
        return nullptr;
    }
}

// Older hosts look for `main`. The language reserves that name, the assembler does not.
asm(".globl main\n"
    ".type main, @function\n"
    ".set main, VSTPluginMain\n");
