// The effect with an editor that shows every control: the whole toolkit layer is in
// this library, and what holds for a guest in a host's process has to hold with it.

#include "plugin/LibraryEntry.h"
#include "plugin/ZMTpedlFilterEffect.h"
#include "tests/support/gallery/GalleryEditor.h"

namespace {

class ProbeInstance final : private pedl::SystemSurroundings, public pedl::ZMTpedlFilterEffect {
public:
    explicit ProbeInstance(audioMasterCallback host)
        : ZMTpedlFilterEffect(host, {systemClock, standardError, userSettings}),
          window_(static_cast<AudioEffect*>(this)) {}

private:
    pedl::test::GalleryEditor window_; // registers itself with the effect, which does not delete it
};

} // namespace

extern "C" __attribute__((visibility("default"))) AEffect*
VSTPluginMain(audioMasterCallback audioMaster) {
    return pedl::newInstance<ProbeInstance>(audioMaster);
}

asm(".globl main\n"
    ".type main, @function\n"
    ".set main, VSTPluginMain\n");
