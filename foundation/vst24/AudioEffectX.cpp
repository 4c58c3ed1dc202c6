#include "foundation/vst24/AudioEffectX.h"

#include "foundation/vst24/AEffEditor.h"

namespace {

template <typename Structure> Structure* at(void* ptr) {
    return static_cast<Structure*>(ptr);
}

template <typename Structure> Structure* at(VstIntPtr value) {
    return reinterpret_cast<Structure*>(value);
}

/// Hosts carry the modifier bits of a key in the float argument, some of them garbage.
unsigned char modifierBits(float opt) {
    return opt >= 0.0F && opt < 256.0F ? static_cast<unsigned char>(opt) : 0;
}

VstKeyCode keyCode(VstInt32 character, VstIntPtr virtualKey, float modifiers) {
    return {character, static_cast<unsigned char>(virtualKey), modifierBits(modifiers)};
}

} // namespace

AudioEffectX::AudioEffectX(audioMasterCallback host, VstInt32 programs, VstInt32 parameters)
    : AudioEffect(host, programs, parameters) {}

VstIntPtr AudioEffectX::dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                   float opt) {
    const auto int32 = static_cast<VstInt32>(value);
    const bool hasPtr = ptr != nullptr;
    auto* const text = static_cast<char*>(ptr);

    switch (opcode) {
    case effProcessEvents:
        return hasPtr ? processEvents(at<VstEvents>(ptr)) : 0;
    case effCanBeAutomated:
        return canParameterBeAutomated(index) ? 1 : 0;
    case effString2Parameter:
        return string2parameter(index, text) ? 1 : 0;
    case effGetNumProgramCategories:
        return 1;
    case effGetProgramNameIndexed:
        return hasPtr && getProgramNameIndexed(int32, index, text) ? 1 : 0;
    case effConnectInput:
    case effConnectOutput:
        return 1;
    case effGetInputProperties:
        return hasPtr && getInputProperties(index, at<VstPinProperties>(ptr)) ? 1 : 0;
    case effGetOutputProperties:
        return hasPtr && getOutputProperties(index, at<VstPinProperties>(ptr)) ? 1 : 0;
    case effGetPlugCategory:
        return getPlugCategory();
    case effSetSpeakerArrangement:
        return hasPtr && value != 0 &&
                       setSpeakerArrangement(at<VstSpeakerArrangement>(value),
                                             at<VstSpeakerArrangement>(ptr))
                   ? 1
                   : 0;
    case effSetBlockSizeAndSampleRate:
        AudioEffect::dispatcher(effSetBlockSize, 0, value, nullptr, 0.0F);
        setSampleRate(opt);
        return 0;
    case effSetBypass:
        return setBypass(value != 0) ? 1 : 0;
    case effGetEffectName:
        return hasPtr && getEffectName(text) ? 1 : 0;
    case effGetVendorString:
        return hasPtr && getVendorString(text) ? 1 : 0;
    case effGetProductString:
        return hasPtr && getProductString(text) ? 1 : 0;
    case effGetVendorVersion:
        return getVendorVersion();
    case effVendorSpecific:
        return vendorSpecific(index, value, ptr, opt);
    case effCanDo:
        return hasPtr ? canDo(text) : 0;
    case effGetTailSize:
        return getGetTailSize();
    case effGetParameterProperties:
        return hasPtr && getParameterProperties(index, at<VstParameterProperties>(ptr)) ? 1 : 0;
    case effGetVstVersion:
        return getVstVersion();
    case effEditKeyDown: {
        VstKeyCode key = keyCode(index, value, opt);
        return editor != nullptr && editor->onKeyDown(key) ? 1 : 0;
    }
    case effEditKeyUp: {
        VstKeyCode key = keyCode(index, value, opt);
        return editor != nullptr && editor->onKeyUp(key) ? 1 : 0;
    }
    case effSetEditKnobMode:
        return editor != nullptr && editor->setKnobMode(int32) ? 1 : 0;
    case effGetCurrentMidiProgram:
        return -1; // none; the other MIDI name calls answer 0 like every unknown call
    case effBeginSetProgram:
        return beginSetProgram() ? 1 : 0;
    case effEndSetProgram:
        return endSetProgram() ? 1 : 0;
    case effGetSpeakerArrangement:
        return hasPtr && value != 0 &&
                       getSpeakerArrangement(at<VstSpeakerArrangement*>(value),
                                             at<VstSpeakerArrangement*>(ptr))
                   ? 1
                   : 0;
    case effStartProcess:
        return startProcess();
    case effStopProcess:
        return stopProcess();
    case effSetTotalSampleToProcess:
        return setTotalSampleToProcess(int32);
    case effSetPanLaw:
        return setPanLaw(int32, opt) ? 1 : 0;
    case effBeginLoadBank:
        return hasPtr ? beginLoadBank(at<VstPatchChunkInfo>(ptr)) : 0;
    case effBeginLoadProgram:
        return hasPtr ? beginLoadProgram(at<VstPatchChunkInfo>(ptr)) : 0;
    case effSetProcessPrecision:
        return setProcessPrecision(int32) ? 1 : 0;
    case effGetNumMidiInputChannels:
        return getNumMidiInputChannels();
    case effGetNumMidiOutputChannels:
        return getNumMidiOutputChannels();
    default:
        return AudioEffect::dispatcher(opcode, index, value, ptr, opt);
    }
}

bool AudioEffectX::beginEdit(VstInt32 index) {
    return callHost(audioMasterBeginEdit, index) != 0;
}

bool AudioEffectX::endEdit(VstInt32 index) {
    return callHost(audioMasterEndEdit, index) != 0;
}

bool AudioEffectX::ioChanged() {
    return callHost(audioMasterIOChanged) != 0;
}

double AudioEffectX::updateSampleRate() {
    const VstIntPtr rateHz = callHost(audioMasterGetSampleRate);
    if (rateHz > 0)
        sampleRate = static_cast<float>(rateHz);
    return sampleRate;
}

VstInt32 AudioEffectX::updateBlockSize() {
    const VstIntPtr frames = callHost(audioMasterGetBlockSize);
    if (frames > 0)
        blockSize = static_cast<VstInt32>(frames);
    return blockSize;
}

VstInt32 AudioEffectX::getInputLatency() {
    return static_cast<VstInt32>(callHost(audioMasterGetInputLatency));
}

VstInt32 AudioEffectX::getOutputLatency() {
    return static_cast<VstInt32>(callHost(audioMasterGetOutputLatency));
}

bool AudioEffectX::isInputConnected(VstInt32 input) {
    // The question is asked the other way round: 0 means connected.
    return audioMaster != nullptr && callHost(audioMasterPinConnected, input, 0) == 0;
}

bool AudioEffectX::isOutputConnected(VstInt32 output) {
    return audioMaster != nullptr && callHost(audioMasterPinConnected, output, 1) == 0;
}

void AudioEffectX::isSynth(bool state) {
    setFlag(effFlagsIsSynth, state);
}

void AudioEffectX::noTail(bool state) {
    setFlag(effFlagsNoSoundInStop, state);
}

VstTimeInfo* AudioEffectX::getTimeInfo(VstInt32 filter) {
    return at<VstTimeInfo>(callHost(audioMasterGetTime, 0, filter));
}

VstInt32 AudioEffectX::tempoAt(VstInt32 frame) {
    return static_cast<VstInt32>(callHost(audioMasterTempoAt, 0, frame));
}

VstInt32 AudioEffectX::getCurrentProcessLevel() {
    return static_cast<VstInt32>(callHost(audioMasterGetCurrentProcessLevel));
}

VstInt32 AudioEffectX::getAutomationState() {
    return static_cast<VstInt32>(callHost(audioMasterGetAutomationState));
}

void AudioEffectX::wantEvents(VstInt32 filter) {
    callHost(audioMasterWantMidi, 0, filter);
}

bool AudioEffectX::sendVstEventsToHost(VstEvents* events) {
    return callHost(audioMasterProcessEvents, 0, 0, events) != 0;
}

VstPlugCategory AudioEffectX::getPlugCategory() {
    return (cEffect.flags & effFlagsIsSynth) != 0 ? kPlugCategSynth : kPlugCategUnknown;
}

bool AudioEffectX::getHostVendorString(char* text) {
    return callHost(audioMasterGetVendorString, 0, 0, text) != 0;
}

bool AudioEffectX::getHostProductString(char* text) {
    return callHost(audioMasterGetProductString, 0, 0, text) != 0;
}

VstInt32 AudioEffectX::getHostVendorVersion() {
    return static_cast<VstInt32>(callHost(audioMasterGetVendorVersion));
}

VstIntPtr AudioEffectX::hostVendorSpecific(VstInt32 index, VstIntPtr value, void* ptr, float opt) {
    return callHost(audioMasterVendorSpecific, index, value, ptr, opt);
}

VstInt32 AudioEffectX::canHostDo(char* text) {
    return static_cast<VstInt32>(callHost(audioMasterCanDo, 0, 0, text));
}

VstInt32 AudioEffectX::getHostLanguage() {
    return static_cast<VstInt32>(callHost(audioMasterGetLanguage));
}

void* AudioEffectX::getDirectory() {
    return at<void>(callHost(audioMasterGetDirectory));
}

bool AudioEffectX::sizeWindow(VstInt32 widthPixels, VstInt32 heightPixels) {
    return callHost(audioMasterSizeWindow, widthPixels, heightPixels) != 0;
}

bool AudioEffectX::updateDisplay() {
    return callHost(audioMasterUpdateDisplay) != 0;
}
