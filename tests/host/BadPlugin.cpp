// A library that is no plug-in, in the way that the variable BAD_PLUGIN names.

#include "foundation/vst24/AEffect.h"

#include <cstdlib>
#include <string_view>

namespace {

VstIntPtr VSTCALLBACK dispatch(AEffect*, VstInt32, VstInt32, VstIntPtr, void*, float) {
    return 0;
}
void VSTCALLBACK setParameter(AEffect*, VstInt32, float) {}
float VSTCALLBACK getParameter(AEffect*, VstInt32) {
    return 0.0F;
}

} // namespace

extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(audioMasterCallback) {
    static AEffect effect{};
    const std::string_view fault = std::getenv("BAD_PLUGIN");
    if (fault == "null")
        return nullptr;
    effect.magic = fault == "magic" ? kEffectMagic + 1 : kEffectMagic;
    effect.dispatcher = fault == "functions" ? nullptr : dispatch;
    effect.setParameter = setParameter;
    effect.getParameter = getParameter;
    effect.numInputs = fault == "counts" ? -5 : 0;
    return &effect; // never able to replace
}
