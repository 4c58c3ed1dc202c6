// The library's entry: the one place that knows every part.

#include "plugin/LibraryEntry.h"
#ifdef PEDL_EDITOR
#include "entry/KeptEditors.h"
#endif
#include "plugin/ZMTpedlFilterEffect.h"

namespace {

/// One instance with all it needs.
class PluginInstance final : private pedl::SystemSurroundings, public pedl::ZMTpedlFilterEffect {
public:
    explicit PluginInstance(audioMasterCallback host)
        : ZMTpedlFilterEffect(host, {systemClock, standardError, userSettings}) {}

#ifdef PEDL_EDITOR
    ~PluginInstance() override {
        editor_->leave();
    }

private:
    pedl::KeptEditor* const editor_ = pedl::KeptEditor::make(*this); // not this one's to delete
#endif
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
