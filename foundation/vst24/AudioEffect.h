#pragma once

#include "AEffect.h"
#include "VstOpcodes.h"

class AEffEditor;

/// A plug-in instance: the C record outwards, virtual operations with harmless defaults inwards.
///
/// Derive from `AudioEffectX`, override what the plug-in has, and return `getAeffect()` from the
/// library's entry. This class alone meets the record; overrides see no function pointers.
///
/// The host deletes the instance by `effClose`. Without a host callback (a test) everything works
/// and questions to the host are answered 0.
/// Thread: the host's; `process...`, `setParameter` and `getParameter` also on the audio thread.
class AudioEffect {
public:
    AudioEffect(audioMasterCallback audioMaster, VstInt32 numPrograms, VstInt32 numParams);

    /// Deletes the editor too, if one is still set.
    virtual ~AudioEffect();

    AudioEffect(const AudioEffect&) = delete;
    AudioEffect& operator=(const AudioEffect&) = delete;

    AEffect* getAeffect() { return &cEffect; }

    /// Told of a host call that ended in an exception. That goes no further, since hosts are C: the
    /// call has been answered with the interface's no. What the call had begun is undone by whoever
    /// threw.
    /// @param opcode of the dispatcher, or -1 for audio and parameters
    virtual void callFailed(VstInt32 /*opcode*/, const char* /*why*/) noexcept {}

    /// Turns a host call into one of the operations below. Unknown calls answer 0.
    virtual VstIntPtr dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                 float opt);

    // Lifetime
    virtual void open() {}
    virtual void close() {}
    virtual void suspend() {}
    virtual void resume() {} // may come twice without a suspend between

    // Audio
    virtual void processReplacing(float** inputs, float** outputs, VstInt32 sampleFrames) = 0;
    virtual void processDoubleReplacing(double** /*inputs*/, double** /*outputs*/,
                                        VstInt32 /*sampleFrames*/) {}
    virtual void process(float** /*inputs*/, float** /*outputs*/, VstInt32 /*sampleFrames*/) {}

    /// Stored when it is a rate at all: hosts that do not know yet say 0.
    virtual void setSampleRate(float rateHz);
    virtual void setBlockSize(VstInt32 frames);
    virtual float getSampleRate() { return sampleRate; }
    virtual VstInt32 getBlockSize() { return blockSize; }

    // Parameters; texts are at most `kVstMaxParamStrLen` characters and a terminator
    virtual void setParameter(VstInt32 /*index*/, float /*normalised*/) {}
    virtual float getParameter(VstInt32 /*index*/) { return 0.0F; }
    /// Sets the parameter here first, then tells the host, which may record it.
    virtual void setParameterAutomated(VstInt32 index, float normalised);
    virtual void getParameterLabel(VstInt32 /*index*/, char* label) { *label = '\0'; }
    virtual void getParameterDisplay(VstInt32 /*index*/, char* text) { *text = '\0'; }
    virtual void getParameterName(VstInt32 /*index*/, char* text) { *text = '\0'; }

    // Programs; names fit 24 bytes with their terminator
    virtual VstInt32 getProgram() { return curProgram; }
    virtual void setProgram(VstInt32 program) { curProgram = program; }
    virtual void setProgramName(char* /*name*/) {}
    virtual void getProgramName(char* name) { *name = '\0'; }

    // State; memory given out stays valid until the next `getChunk` or the end of the instance.
    // `setChunk` decides what to answer to data that are null or of a negative size.
    virtual VstInt32 getChunk(void** /*data*/, bool /*isPreset*/ = false) { return 0; }
    virtual VstInt32 setChunk(void* /*data*/, VstInt32 /*byteSize*/, bool /*isPreset*/ = false) {
        return 0;
    }

    // What the record declares; for constructors
    virtual void setUniqueID(VstInt32 fourCharacterCode) { cEffect.uniqueID = fourCharacterCode; }
    virtual void setNumInputs(VstInt32 inputs) { cEffect.numInputs = inputs; }
    virtual void setNumOutputs(VstInt32 outputs) { cEffect.numOutputs = outputs; }
    virtual void setInitialDelay(VstInt32 frames) { cEffect.initialDelay = frames; }
    virtual void canProcessReplacing(bool state = true);
    virtual void canDoubleReplacing(bool state = true);
    virtual void programsAreChunks(bool state = true);

    /// Takes the editor over; null gives the old one back to whoever else holds it.
    void setEditor(AEffEditor* newEditor);
    virtual AEffEditor* getEditor() { return editor; }

    // Questions to the host
    virtual VstInt32 getMasterVersion();
    virtual VstInt32 getCurrentUniqueId();
    virtual void masterIdle();

    // Number texts: at most `maxLen` characters, and a terminator after them
    static void dB2string(float factor, char* text, VstInt32 maxLen);
    void Hz2string(float samples, char* text, VstInt32 maxLen) const;
    void ms2string(float samples, char* text, VstInt32 maxLen) const;
    static void float2string(float value, char* text, VstInt32 maxLen);
    static void int2string(VstInt32 value, char* text, VstInt32 maxLen);

protected:
    /// Sends to the host as this instance; 0 without a host.
    VstIntPtr callHost(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0,
                       void* ptr = nullptr, float opt = 0.0F);

    void setFlag(VstInt32 flag, bool state);

    audioMasterCallback audioMaster; // null in tests
    AEffEditor* editor = nullptr;
    float sampleRate = 44100.0F; // hertz
    VstInt32 blockSize = 1024;   // frames
    VstInt32 numPrograms;
    VstInt32 numParams;
    VstInt32 curProgram = 0;
    AEffect cEffect{}; // zeroed

private:
    static VstIntPtr VSTCALLBACK dispatchCall(AEffect* effect, VstInt32 opcode, VstInt32 index,
                                              VstIntPtr value, void* ptr, float opt);
    static void VSTCALLBACK processCall(AEffect* effect, float** inputs, float** outputs,
                                        VstInt32 sampleFrames);
    static void VSTCALLBACK processReplacingCall(AEffect* effect, float** inputs, float** outputs,
                                                 VstInt32 sampleFrames);
    static void VSTCALLBACK processDoubleReplacingCall(AEffect* effect, double** inputs,
                                                       double** outputs, VstInt32 sampleFrames);
    static void VSTCALLBACK setParameterCall(AEffect* effect, VstInt32 index, float normalised);
    static float VSTCALLBACK getParameterCall(AEffect* effect, VstInt32 index);
};
