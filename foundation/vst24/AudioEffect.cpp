#include "foundation/vst24/AudioEffect.h"

#include "foundation/vst24/AEffEditor.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <exception>
#include <limits>

namespace {

AudioEffect* objectOf(const AEffect* effect) {
    return effect == nullptr ? nullptr : static_cast<AudioEffect*>(effect->object);
}

void copyFront(const char* from, std::size_t length, char* to, VstInt32 maxLen) {
    if (to == nullptr || maxLen < 0)
        return;
    const std::size_t copied = std::min(length, static_cast<std::size_t>(maxLen));
    std::memcpy(to, from, copied);
    to[copied] = '\0';
}

constexpr VstInt32 kNoOpcode = -1; // for calls that have an entry of their own in the record

/// What a call answers that could not be carried out.
VstIntPtr noTo(VstInt32 opcode) {
    return opcode == effSetChunk || opcode == effGetCurrentMidiProgram ? -1 : 0;
}

/// What `call` answers, or `no` where it throws.
template <typename Answer, typename Call>
Answer guarded(AudioEffect& object, VstInt32 opcode, Answer no, Call call) noexcept {
    try {
        return call();
    } catch (const std::exception& exception) {
        object.callFailed(opcode, exception.what());
    } catch (...) {
        object.callFailed(opcode, "unknown");
    }
    return no;
}

template <typename Call> void guarded(AudioEffect& object, Call call) noexcept {
    guarded(object, kNoOpcode, 0, [&] {
        call();
        return 0;
    });
}

} // namespace

AudioEffect::AudioEffect(audioMasterCallback host, VstInt32 programs, VstInt32 parameters)
    : audioMaster(host), numPrograms(programs), numParams(parameters) {
    cEffect.magic = kEffectMagic;
    cEffect.dispatcher = dispatchCall;
    cEffect.process = processCall;
    cEffect.setParameter = setParameterCall;
    cEffect.getParameter = getParameterCall;
    cEffect.processReplacing = processReplacingCall;
    cEffect.processDoubleReplacing = processDoubleReplacingCall;
    cEffect.numPrograms = programs;
    cEffect.numParams = parameters;
    cEffect.numInputs = 1;
    cEffect.numOutputs = 2;
    cEffect.flags = effFlagsCanReplacing;
    cEffect.ioRatio = 1.0F;
    cEffect.object = this;
    cEffect.uniqueID = CCONST('N', 'o', 'E', 'f');
    cEffect.version = 1;
}

AudioEffect::~AudioEffect() {
    delete editor;
}

VstIntPtr AudioEffect::dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                  float opt) {
    auto* const text = static_cast<char*>(ptr);
    constexpr VstIntPtr kMostInt32 = std::numeric_limits<VstInt32>::max();
    constexpr VstInt32 kNoSize = -1;

    switch (opcode) {
    case effOpen:
        open();
        return 0;
    case effClose:
        close(); // the trampoline deletes the object afterwards
        return 1;
    case effSetProgram:
        if (value >= 0 && value < numPrograms)
            setProgram(static_cast<VstInt32>(value));
        return 0;
    case effGetProgram:
        return getProgram();
    case effSetProgramName:
        if (text != nullptr)
            setProgramName(text);
        return 0;
    case effGetProgramName:
        if (text != nullptr)
            getProgramName(text);
        return 0;
    case effGetParamLabel:
        if (text != nullptr)
            getParameterLabel(index, text);
        return 0;
    case effGetParamDisplay:
        if (text != nullptr)
            getParameterDisplay(index, text);
        return 0;
    case effGetParamName:
        if (text != nullptr)
            getParameterName(index, text);
        return 0;
    case effSetSampleRate:
        setSampleRate(opt);
        return 0;
    case effSetBlockSize:
        setBlockSize(static_cast<VstInt32>(std::clamp(value, VstIntPtr{0}, kMostInt32)));
        return 0;
    case effMainsChanged:
        if (value != 0)
            resume();
        else
            suspend();
        return 0;
    case effEditGetRect:
        return editor != nullptr && ptr != nullptr && editor->getRect(static_cast<ERect**>(ptr))
                   ? 1
                   : 0;
    case effEditOpen:
        return editor != nullptr && editor->open(ptr) ? 1 : 0;
    case effEditClose:
        if (editor != nullptr)
            editor->close();
        return 0;
    case effEditIdle:
        if (editor != nullptr)
            editor->idle();
        return 0;
    case effIdentify:
        return CCONST('N', 'v', 'E', 'f');
    case effGetChunk:
        return ptr != nullptr ? getChunk(static_cast<void**>(ptr), index != 0) : 0;
    case effSetChunk:
        return setChunk(ptr,
                        value >= 0 && value <= kMostInt32 ? static_cast<VstInt32>(value) : kNoSize,
                        index != 0);
    default:
        return 0;
    }
}

void AudioEffect::setSampleRate(float rateHz) {
    if (std::isfinite(rateHz) && rateHz > 0.0F)
        sampleRate = rateHz;
}

void AudioEffect::setBlockSize(VstInt32 frames) {
    if (frames > 0)
        blockSize = frames;
}

void AudioEffect::setParameterAutomated(VstInt32 index, float normalised) {
    setParameter(index, normalised);
    callHost(audioMasterAutomate, index, 0, nullptr, normalised);
}

void AudioEffect::canProcessReplacing(bool state) {
    setFlag(effFlagsCanReplacing, state);
}

void AudioEffect::canDoubleReplacing(bool state) {
    setFlag(effFlagsCanDoubleReplacing, state);
}

void AudioEffect::programsAreChunks(bool state) {
    setFlag(effFlagsProgramChunks, state);
}

void AudioEffect::setEditor(AEffEditor* newEditor) {
    editor = newEditor;
    setFlag(effFlagsHasEditor, newEditor != nullptr);
}

VstInt32 AudioEffect::getMasterVersion() {
    if (audioMaster == nullptr)
        return 0;
    const auto version = static_cast<VstInt32>(callHost(audioMasterVersion));
    return version == 0 ? 1 : version; // the oldest hosts do not know the question
}

VstInt32 AudioEffect::getCurrentUniqueId() {
    return static_cast<VstInt32>(callHost(audioMasterCurrentId));
}

void AudioEffect::masterIdle() {
    callHost(audioMasterIdle);
}

void AudioEffect::dB2string(float factor, char* text, VstInt32 maxLen) {
    if (factor <= 0.0F)
        copyFront("-oo", 3, text, maxLen);
    else
        float2string(20.0F * std::log10(factor), text, maxLen);
}

void AudioEffect::Hz2string(float samples, char* text, VstInt32 maxLen) const {
    if (samples == 0.0F)
        copyFront("0", 1, text, maxLen);
    else
        float2string(sampleRate / samples, text, maxLen);
}

void AudioEffect::ms2string(float samples, char* text, VstInt32 maxLen) const {
    float2string(samples * 1000.0F / sampleRate, text, maxLen);
}

void AudioEffect::float2string(float value, char* text, VstInt32 maxLen) {
    // Not printf: the host's locale would turn the point into a comma.
    char digits[64];
    const auto end =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 2).ptr;
    copyFront(digits, static_cast<std::size_t>(end - digits), text, maxLen);
}

void AudioEffect::int2string(VstInt32 value, char* text, VstInt32 maxLen) {
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    copyFront(digits, static_cast<std::size_t>(end - digits), text, maxLen);
}

VstIntPtr AudioEffect::callHost(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                float opt) {
    return audioMaster != nullptr ? audioMaster(&cEffect, opcode, index, value, ptr, opt) : 0;
}

void AudioEffect::setFlag(VstInt32 flag, bool state) {
    cEffect.flags = state ? cEffect.flags | flag : cEffect.flags & ~flag;
}

VstIntPtr VSTCALLBACK AudioEffect::dispatchCall(AEffect* effect, VstInt32 opcode, VstInt32 index,
                                                VstIntPtr value, void* ptr, float opt) {
    AudioEffect* const object = objectOf(effect);
    if (object == nullptr)
        return 0;
    const VstIntPtr answer = guarded(*object, opcode, noTo(opcode), [&] {
        return object->dispatcher(opcode, index, value, ptr, opt);
    });
    if (opcode != effClose)
        return answer;
    delete object; // the record goes with it: nothing of the instance is touched after this
    return 1;
}

void VSTCALLBACK AudioEffect::processCall(AEffect* effect, float** inputs, float** outputs,
                                          VstInt32 sampleFrames) {
    if (AudioEffect* const object = objectOf(effect))
        guarded(*object, [&] { object->process(inputs, outputs, sampleFrames); });
}

void VSTCALLBACK AudioEffect::processReplacingCall(AEffect* effect, float** inputs, float** outputs,
                                                   VstInt32 sampleFrames) {
    if (AudioEffect* const object = objectOf(effect))
        guarded(*object, [&] { object->processReplacing(inputs, outputs, sampleFrames); });
}

void VSTCALLBACK AudioEffect::processDoubleReplacingCall(AEffect* effect, double** inputs,
                                                         double** outputs, VstInt32 sampleFrames) {
    if (AudioEffect* const object = objectOf(effect))
        guarded(*object, [&] { object->processDoubleReplacing(inputs, outputs, sampleFrames); });
}

void VSTCALLBACK AudioEffect::setParameterCall(AEffect* effect, VstInt32 index, float normalised) {
    if (AudioEffect* const object = objectOf(effect))
        guarded(*object, [&] { object->setParameter(index, normalised); });
}

float VSTCALLBACK AudioEffect::getParameterCall(AEffect* effect, VstInt32 index) {
    AudioEffect* const object = objectOf(effect);
    if (object == nullptr)
        return 0.0F;
    return guarded(*object, kNoOpcode, 0.0F, [&] { return object->getParameter(index); });
}
