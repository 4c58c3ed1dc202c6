#pragma once

#include "VstTypes.h"

/// The numbers of the calls in both directions, in the interface's own order.
///
/// Beside each stands what it carries; arguments that are not named are 0. "deprecated" calls are
/// still sent by hosts and plug-ins of today.

/// Host to plug-in, through `AEffect::dispatcher`.
enum AEffectOpcodes : VstInt32 {
    effOpen = 0,
    effClose = 1,           // the instance is gone when this returns
    effSetProgram = 2,      // value: program
    effGetProgram = 3,      // returns the program
    effSetProgramName = 4,  // ptr: text
    effGetProgramName = 5,  // ptr: text out, `kVstMaxProgNameLen`
    effGetParamLabel = 6,   // index, ptr: text out, `kVstMaxParamStrLen`
    effGetParamDisplay = 7, // index, ptr: text out, `kVstMaxParamStrLen`
    effGetParamName = 8,    // index, ptr: text out, `kVstMaxParamStrLen`
    effGetVu = 9,           // deprecated
    effSetSampleRate = 10,  // opt: hertz
    effSetBlockSize = 11,   // value: most frames a block will have
    effMainsChanged = 12,   // value: 1 resume, 0 suspend
    effEditGetRect = 13,    // ptr: ERect** out
    effEditOpen = 14,       // ptr: parent window
    effEditClose = 15,
    effEditDraw = 16,  // deprecated
    effEditMouse = 17, // deprecated
    effEditKey = 18,   // deprecated
    effEditIdle = 19,
    effEditTop = 20,                 // deprecated
    effEditSleep = 21,               // deprecated
    effIdentify = 22,                // deprecated; returns 'NvEf'
    effGetChunk = 23,                // index: 0 bank, 1 program; ptr: void** out; returns bytes
    effSetChunk = 24,                // index: 0 bank, 1 program; ptr: data; value: bytes
    effProcessEvents = 25,           // ptr: VstEvents*
    effCanBeAutomated = 26,          // index
    effString2Parameter = 27,        // index, ptr: text, or null to ask whether it is supported
    effGetNumProgramCategories = 28, // deprecated
    effGetProgramNameIndexed = 29,   // index: program, value: category, ptr: text out
    effCopyProgram = 30,             // deprecated
    effConnectInput = 31,            // deprecated; index: pin, value: 1 connected
    effConnectOutput = 32,           // deprecated; index: pin, value: 1 connected
    effGetInputProperties = 33,      // index, ptr: VstPinProperties* out
    effGetOutputProperties = 34,     // index, ptr: VstPinProperties* out
    effGetPlugCategory = 35,         // returns a `VstPlugCategory`
    effGetCurrentPosition = 36,      // deprecated
    effGetDestinationBuffer = 37,    // deprecated
    effOfflineNotify = 38,
    effOfflinePrepare = 39,
    effOfflineRun = 40,
    effProcessVarIo = 41,
    effSetSpeakerArrangement = 42,     // value: input arrangement*, ptr: output arrangement*
    effSetBlockSizeAndSampleRate = 43, // deprecated; value: frames, opt: hertz
    effSetBypass = 44,                 // value: 1 on
    effGetEffectName = 45,             // ptr: text out, `kVstMaxEffectNameLen`
    effGetErrorText = 46,              // deprecated
    effGetVendorString = 47,           // ptr: text out, `kVstMaxVendorStrLen`
    effGetProductString = 48,          // ptr: text out, `kVstMaxProductStrLen`
    effGetVendorVersion = 49,
    effVendorSpecific = 50,         // everything by agreement
    effCanDo = 51,                  // ptr: text; returns 1 yes, 0 unknown, -1 no
    effGetTailSize = 52,            // returns frames; 0 unknown, 1 none
    effIdle = 53,                   // deprecated
    effGetIcon = 54,                // deprecated
    effSetViewPosition = 55,        // deprecated
    effGetParameterProperties = 56, // index, ptr: VstParameterProperties* out
    effKeysRequired = 57,           // deprecated; reversed: 0 wants keys
    effGetVstVersion = 58,          // returns 2400
    effEditKeyDown = 59,            // index: character, value: virtual key, opt: modifiers
    effEditKeyUp = 60,              // as effEditKeyDown
    effSetEditKnobMode = 61,        // value: knob mode
    effGetMidiProgramName = 62,     // index: channel, ptr: MidiProgramName*
    effGetCurrentMidiProgram = 63,  // index: channel, ptr: MidiProgramName*
    effGetMidiProgramCategory = 64, // index: channel, ptr: MidiProgramCategory*
    effHasMidiProgramsChanged = 65, // index: channel
    effGetMidiKeyName = 66,         // index: channel, ptr: MidiKeyName*
    effBeginSetProgram = 67,
    effEndSetProgram = 68,
    effGetSpeakerArrangement = 69, // value: input arrangement** out, ptr: output arrangement** out
    effShellGetNextPlugin = 70,    // ptr: text out; returns the next identity, 0 at the end
    effStartProcess = 71,
    effStopProcess = 72,
    effSetTotalSampleToProcess = 73, // value: frames
    effSetPanLaw = 74,               // value: law, opt: gain
    effBeginLoadBank = 75,           // ptr: VstPatchChunkInfo*
    effBeginLoadProgram = 76,        // ptr: VstPatchChunkInfo*
    effSetProcessPrecision = 77,     // value: `kVstProcessPrecision32` or `...64`
    effGetNumMidiInputChannels = 78,
    effGetNumMidiOutputChannels = 79
};

/// Plug-in to host, through the `audioMasterCallback`.
enum AudioMasterOpcodes : VstInt32 {
    audioMasterAutomate = 0,  // index, opt: value
    audioMasterVersion = 1,   // returns 2400; 0 means there is no host
    audioMasterCurrentId = 2, // returns the identity of the shell's plug-in being loaded
    audioMasterIdle = 3,
    audioMasterPinConnected = 4,  // deprecated; index, value: 0 input, 1 output; returns 0 if so
    audioMasterWantMidi = 6,      // deprecated
    audioMasterGetTime = 7,       // value: wanted fields; returns VstTimeInfo*, the host's memory
    audioMasterProcessEvents = 8, // ptr: VstEvents*
    audioMasterSetTime = 9,       // deprecated
    audioMasterTempoAt = 10,      // deprecated; value: frame; returns beats per minute x 10000
    audioMasterGetNumAutomatableParameters = 11, // deprecated
    audioMasterGetParameterQuantization = 12,    // deprecated
    audioMasterIOChanged = 13,
    audioMasterNeedIdle = 14,   // deprecated
    audioMasterSizeWindow = 15, // index: width, value: height, pixels
    audioMasterGetSampleRate = 16,
    audioMasterGetBlockSize = 17,
    audioMasterGetInputLatency = 18,
    audioMasterGetOutputLatency = 19,
    audioMasterGetPreviousPlug = 20,         // deprecated
    audioMasterGetNextPlug = 21,             // deprecated
    audioMasterWillReplaceOrAccumulate = 22, // deprecated
    audioMasterGetCurrentProcessLevel = 23,  // returns a `VstProcessLevels`
    audioMasterGetAutomationState = 24,      // returns a `VstAutomationStates`
    audioMasterOfflineStart = 25,
    audioMasterOfflineRead = 26,
    audioMasterOfflineWrite = 27,
    audioMasterOfflineGetCurrentPass = 28,
    audioMasterOfflineGetCurrentMetaPass = 29,
    audioMasterSetOutputSampleRate = 30,         // deprecated
    audioMasterGetOutputSpeakerArrangement = 31, // deprecated
    audioMasterGetVendorString = 32,             // ptr: text out, `kVstMaxVendorStrLen`
    audioMasterGetProductString = 33,            // ptr: text out, `kVstMaxProductStrLen`
    audioMasterGetVendorVersion = 34,
    audioMasterVendorSpecific = 35,
    audioMasterSetIcon = 36, // deprecated
    audioMasterCanDo = 37,   // ptr: text; returns 1 yes, 0 unknown, -1 no
    audioMasterGetLanguage = 38,
    audioMasterOpenWindow = 39,  // deprecated
    audioMasterCloseWindow = 40, // deprecated
    audioMasterGetDirectory = 41,
    audioMasterUpdateDisplay = 42,
    audioMasterBeginEdit = 43, // index
    audioMasterEndEdit = 44,   // index
    audioMasterOpenFileSelector = 45,
    audioMasterCloseFileSelector = 46,
    audioMasterEditFile = 47,                  // deprecated
    audioMasterGetChunkFile = 48,              // deprecated
    audioMasterGetInputSpeakerArrangement = 49 // deprecated
};
