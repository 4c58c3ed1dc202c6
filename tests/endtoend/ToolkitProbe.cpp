// The effect with an editor that shows every control of the toolkit: the whole toolkit layer is in
// this library, and what holds for a guest in a host's process has to hold with it.

#include "foundation/platform/FileSettingsStore.h"
#include "foundation/platform/StandardErrorStream.h"
#include "foundation/platform/SystemClock.h"
#include "plugin/ZMTpedlFilterEffect.h"
#include "tests/support/toolkit/ToolkitEditor.h"

namespace {

struct SystemSurroundings {
    pedl::SystemClock systemClock;
    pedl::StandardErrorStream standardError;
    pedl::FileSettingsStore userSettings{pedl::userSettingsFolder(), standardError};
};

class ProbeInstance final : private SystemSurroundings, public pedl::ZMTpedlFilterEffect {
public:
    explicit ProbeInstance(audioMasterCallback host)
        : ZMTpedlFilterEffect(host, {systemClock, standardError, userSettings}),
          window_(static_cast<AudioEffect*>(this)) {}

private:
    pedl::test::ToolkitEditor window_; // registers itself with the effect, which does not delete it
};

} // namespace

extern "C" __attribute__((visibility("default"))) AEffect*
VSTPluginMain(audioMasterCallback audioMaster) {
    if (audioMaster == nullptr ||
        audioMaster(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0F) == 0)
        return nullptr;
    try {
        return (new ProbeInstance(audioMaster))->getAeffect();
    } catch (...) {
        return nullptr;
    }
}

asm(".globl main\n"
    ".type main, @function\n"
    ".set main, VSTPluginMain\n");
