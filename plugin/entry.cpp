// The library's entry: the one place that knows every part.

#include "plugin/LibraryEntry.h"
#include "plugin/ZMTpedlFilterEffect.h"

namespace {

/// One instance with all it needs.
class PluginInstance final : private pedl::SystemSurroundings, public pedl::ZMTpedlFilterEffect {
public:
    explicit PluginInstance(audioMasterCallback host)
        : ZMTpedlFilterEffect(host, {systemClock, standardError, userSettings}) {}
};

} // namespace

extern "C" __attribute__((visibility("default"))) AEffect*
VSTPluginMain(audioMasterCallback audioMaster) {
    return pedl::newInstance<PluginInstance>(audioMaster);
}

// Older hosts look for `main`. The language reserves that name, the assembler does not.
asm(".globl main\n"
    ".type main, @function\n"
    ".set main, VSTPluginMain\n");
