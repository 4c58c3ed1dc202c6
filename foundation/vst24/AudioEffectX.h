#pragma once

#include "AudioEffect.h"
#include "VstStructures.h"

/// The VST 2.x operations on top of `AudioEffect`: what a plug-in derives from.
///
/// Adds nothing to the record. Operations marked "asks the host" answer 0, false or null when
/// there is no host. Texts have the limits of `VstStringConstants`; buffers are never padded.
class AudioEffectX : public AudioEffect {
public:
    AudioEffectX(audioMasterCallback audioMaster, VstInt32 numPrograms, VstInt32 numParams);

    /// Handles the calls from `effProcessEvents` on and passes the rest to the base.
    VstIntPtr dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                         float opt) override;

    // Parameters
    virtual bool canParameterBeAutomated(VstInt32 /*index*/) { return true; }
    /// With null text only answers whether texts are understood.
    virtual bool string2parameter(VstInt32 /*index*/, char* /*text*/) { return false; }
    virtual bool getParameterProperties(VstInt32 /*index*/,
                                        VstParameterProperties* /*properties*/) {
        return false;
    }
    virtual bool beginEdit(VstInt32 index); // asks the host
    virtual bool endEdit(VstInt32 index);   // asks the host

    // Programs
    virtual bool getProgramNameIndexed(VstInt32 /*category*/, VstInt32 /*index*/, char* /*text*/) {
        return false;
    }
    virtual bool beginSetProgram() { return false; }
    virtual bool endSetProgram() { return false; }
    virtual VstInt32 beginLoadBank(VstPatchChunkInfo* /*info*/) { return 0; }
    virtual VstInt32 beginLoadProgram(VstPatchChunkInfo* /*info*/) { return 0; }

    // Configuration
    virtual bool ioChanged();            // asks the host
    virtual double updateSampleRate();   // asks the host; keeps what is held when it does not know
    virtual VstInt32 updateBlockSize();  // likewise
    virtual VstInt32 getInputLatency();  // asks the host, frames
    virtual VstInt32 getOutputLatency(); // asks the host, frames
    virtual bool isInputConnected(VstInt32 input);   // asks the host
    virtual bool isOutputConnected(VstInt32 output); // asks the host
    virtual bool getInputProperties(VstInt32 /*index*/, VstPinProperties* /*properties*/) {
        return false;
    }
    virtual bool getOutputProperties(VstInt32 /*index*/, VstPinProperties* /*properties*/) {
        return false;
    }
    virtual bool setSpeakerArrangement(VstSpeakerArrangement* /*pluginInput*/,
                                       VstSpeakerArrangement* /*pluginOutput*/) {
        return false;
    }
    virtual bool getSpeakerArrangement(VstSpeakerArrangement** pluginInput,
                                       VstSpeakerArrangement** pluginOutput) {
        *pluginInput = nullptr;
        *pluginOutput = nullptr;
        return false;
    }
    virtual bool setBypass(bool /*onOff*/) { return false; }
    virtual bool setPanLaw(VstInt32 /*type*/, float /*value*/) { return false; }
    virtual bool setProcessPrecision(VstInt32 /*precision*/) { return false; }
    virtual VstInt32 getNumMidiInputChannels() { return 0; }
    virtual VstInt32 getNumMidiOutputChannels() { return 0; }
    virtual void isSynth(bool state = true);
    /// Promises silence for silence, whatever was heard before.
    virtual void noTail(bool state = true);

    // Real time
    /// Asks the host. The record is the host's and good during this call of ours only; hosts may
    /// fill just what `filter` names.
    virtual VstTimeInfo* getTimeInfo(VstInt32 filter);
    virtual VstInt32 tempoAt(VstInt32 frame);     // asks the host; beats per minute x 10000
    virtual VstInt32 getCurrentProcessLevel();    // asks the host
    virtual VstInt32 getAutomationState();        // asks the host
    virtual void wantEvents(VstInt32 filter = 1); // tells the host
    virtual VstInt32 processEvents(VstEvents* /*events*/) { return 0; }
    virtual bool sendVstEventsToHost(VstEvents* events);
    virtual VstInt32 startProcess() { return 0; } // many hosts never send it, nor its end
    virtual VstInt32 stopProcess() { return 0; }
    virtual VstInt32 setTotalSampleToProcess(VstInt32 frames) { return frames; }

    // Identity
    virtual bool getEffectName(char* /*name*/) { return false; }
    virtual bool getVendorString(char* /*text*/) { return false; }
    virtual bool getProductString(char* /*text*/) { return false; }
    virtual VstInt32 getVendorVersion() { return 0; }
    virtual VstPlugCategory getPlugCategory();
    virtual VstInt32 getVstVersion() { return 2400; }
    virtual VstInt32 getTailSize() { return 0; }
    virtual VstInt32 getGetTailSize() { return getTailSize(); }
    /// @return 1 yes, 0 unknown, -1 no
    virtual VstInt32 canDo(char* /*text*/) { return 0; }
    virtual VstIntPtr vendorSpecific(VstInt32 /*index*/, VstIntPtr /*value*/, void* /*ptr*/,
                                     float /*opt*/) {
        return 0;
    }

    // The host's identity and services
    virtual bool getHostVendorString(char* text);
    virtual bool getHostProductString(char* text);
    virtual VstInt32 getHostVendorVersion();
    virtual VstIntPtr hostVendorSpecific(VstInt32 index, VstIntPtr value, void* ptr, float opt);
    /// The host's number as it comes: 1 yes, 0 unknown, -1 no.
    virtual VstInt32 canHostDo(char* text);
    virtual VstInt32 getHostLanguage();
    virtual void* getDirectory(); // a path as char*
    virtual bool sizeWindow(VstInt32 widthPixels, VstInt32 heightPixels);
    /// Hosts read names and parameters back from inside this call.
    virtual bool updateDisplay();
};
