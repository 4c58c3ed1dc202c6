// Libraries that are no plug-in, each in its own way: the build defines which fault it has.

#include "foundation/vst24/AEffect.h"

namespace {

[[maybe_unused]] VstIntPtr VSTCALLBACK dispatch(AEffect*, VstInt32, VstInt32, VstIntPtr, void*,
                                                float) {
    return 0;
}
[[maybe_unused]] void VSTCALLBACK setParameter(AEffect*, VstInt32, float) {}
[[maybe_unused]] float VSTCALLBACK getParameter(AEffect*, VstInt32) {
    return 0.0F;
}

} // namespace

#define BAD_EXPORT extern "C" __attribute__((visibility("default")))

#if defined(BAD_NO_ENTRY)
BAD_EXPORT int somethingElse() {
    return 1;
}
#else
BAD_EXPORT AEffect* VSTPluginMain(audioMasterCallback) {
#if defined(BAD_NULL)
    return nullptr;
#else
    static AEffect effect{};
#if !defined(BAD_MAGIC)
    effect.magic = kEffectMagic;
#endif
#if !defined(BAD_FUNCTIONS)
    effect.dispatcher = dispatch;
    effect.setParameter = setParameter;
    effect.getParameter = getParameter;
#endif
#if defined(BAD_COUNTS)
    effect.numInputs = -5;
#endif
    return &effect; // never able to replace
#endif
}
#endif
