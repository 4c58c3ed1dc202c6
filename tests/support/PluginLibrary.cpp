#include "tests/support/PluginLibrary.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>

namespace pedl::test {

PluginLibrary::PluginLibrary(const std::string& path) {
    setenv("XDG_CONFIG_HOME", "/nonexistent/zmt-pedlfilter-tests", 1);
    handle_ = dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL);
    if (!handle_)
        std::fprintf(stderr, "%s\n", dlerror());
}

PluginLibrary::~PluginLibrary() {
    if (handle_)
        dlclose(handle_);
}

AEffect* PluginLibrary::create() const {
    const auto entry =
        reinterpret_cast<VstEntryProc>(handle_ ? dlsym(handle_, "VSTPluginMain") : nullptr);
    return entry ? entry(&RecordingHost::callback) : nullptr;
}

VstIntPtr dispatch(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                   float opt) {
    return effect->dispatcher(effect, opcode, index, value, ptr, opt);
}

RunningEffect::RunningEffect(const PluginLibrary& library, float sampleRateHz, VstInt32 blockFrames)
    : effect_(library.create()) {
    if (!effect_) {
        std::fprintf(stderr, "the library gave no instance\n");
        std::abort(); // every test that runs an instance is pointless without it
    }
    dispatch(effect_, effOpen);
    dispatch(effect_, effSetSampleRate, 0, 0, nullptr, sampleRateHz);
    dispatch(effect_, effSetBlockSize, 0, blockFrames);
    dispatch(effect_, effMainsChanged, 0, 1);
}

RunningEffect::~RunningEffect() {
    dispatch(effect_, effMainsChanged, 0, 0);
    dispatch(effect_, effClose);
}

ControlChange::ControlChange(int channel, int controller, int value) {
    event.type = kVstMidiType;
    event.byteSize = sizeof event;
    event.midiData[0] = static_cast<char>(0xB0 | channel);
    event.midiData[1] = static_cast<char>(controller);
    event.midiData[2] = static_cast<char>(value);
    list.numEvents = 1;
    list.events[0] = reinterpret_cast<VstEvent*>(&event);
}

} // namespace pedl::test
