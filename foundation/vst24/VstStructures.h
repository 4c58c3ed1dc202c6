#pragma once

#include "VstKeyCode.h"
#include "VstTypes.h"

/// The structures, enumerations and string limits that the calls carry.
///
/// Layout as compiled hosts and plug-ins have it (packed to 8); `VstLayout.cpp` holds the offsets.

// clang-format off

/// Characters a text may have, its terminator not counted. Hosts' buffers are mostly larger, but
/// some are exactly this: a writer stays inside and never pads.
enum VstStringConstants : VstInt32 {
    kVstMaxProgNameLen    = 24, // terminator included: hosts hand buffers of 24 bytes
    kVstMaxParamStrLen    = 8,
    kVstMaxEffectNameLen  = 32, // terminator included, as some hosts' buffers have 32 bytes
    kVstMaxVendorStrLen   = 64,
    kVstMaxProductStrLen  = 64,
    kVstMaxLabelLen       = 64, // from here on: sizes of structure fields
    kVstMaxShortLabelLen  = 8,
    kVstMaxCategLabelLen  = 24,
    kVstMaxNameLen        = 64,
    kVstMaxFileNameLen    = 100
};

// clang-format on

#pragma pack(push, 8)

/// Rectangle of an editor, pixels.
struct ERect {
    VstInt16 top;
    VstInt16 left;
    VstInt16 bottom;
    VstInt16 right;
};

// --- Events ---------------------------------------------------------------------------------

enum VstEventTypes : VstInt32 { kVstMidiType = 1, kVstSysExType = 6 };
enum VstMidiEventFlags : VstInt32 { kVstMidiEventIsRealtime = 1 << 0 };

/// Any event; `type` says which structure it really is.
struct VstEvent {
    VstInt32 type;
    VstInt32 byteSize;    // hosts disagree on its value: not to be relied on
    VstInt32 deltaFrames; // position inside the coming block
    VstInt32 flags;
    char data[16];
};

struct VstMidiEvent {
    VstInt32 type; // `kVstMidiType`
    VstInt32 byteSize;
    VstInt32 deltaFrames;
    VstInt32 flags;
    VstInt32 noteLength; // frames, 0 unknown
    VstInt32 noteOffset; // frames
    char midiData[4];    // status, two data bytes, 0
    char detune;         // cents, -63..64
    char noteOffVelocity;
    char reserved1;
    char reserved2;
};

struct VstMidiSysexEvent {
    VstInt32 type; // `kVstSysExType`
    VstInt32 byteSize;
    VstInt32 deltaFrames;
    VstInt32 flags;
    VstInt32 dumpBytes;
    VstIntPtr resvd1;
    char* sysexDump;
    VstIntPtr resvd2;
};

struct VstEvents {
    VstInt32 numEvents;
    VstIntPtr reserved;
    VstEvent* events[2]; // really `numEvents` of them
};

// --- Time -----------------------------------------------------------------------------------

/// Bits of `VstTimeInfo::flags`. The "Valid" ones also make the mask of wanted fields.
enum VstTimeInfoFlags : VstInt32 {
    kVstTransportChanged = 1 << 0,
    kVstTransportPlaying = 1 << 1,
    kVstTransportCycleActive = 1 << 2,
    kVstTransportRecording = 1 << 3,
    kVstAutomationWriting = 1 << 6,
    kVstAutomationReading = 1 << 7,
    kVstNanosValid = 1 << 8,
    kVstPpqPosValid = 1 << 9,
    kVstTempoValid = 1 << 10,
    kVstBarsValid = 1 << 11,
    kVstCyclePosValid = 1 << 12,
    kVstTimeSigValid = 1 << 13,
    kVstSmpteValid = 1 << 14,
    kVstClockValid = 1 << 15
};

enum VstSmpteFrameRate : VstInt32 {
    kVstSmpte24fps = 0,
    kVstSmpte25fps = 1,
    kVstSmpte2997fps = 2,
    kVstSmpte30fps = 3,
    kVstSmpte2997dfps = 4,
    kVstSmpte30dfps = 5,
    kVstSmpteFilm16mm = 6,
    kVstSmpteFilm35mm = 7,
    kVstSmpte239fps = 10,
    kVstSmpte249fps = 11,
    kVstSmpte599fps = 12,
    kVstSmpte60fps = 13
};

/// Where the song stands at the block's first frame. Positions in quarter notes unless said.
struct VstTimeInfo {
    double samplePos;  // frames, always valid
    double sampleRate; // hertz, always valid
    double nanoSeconds;
    double ppqPos;
    double tempo; // beats per minute
    double barStartPos;
    double cycleStartPos;
    double cycleEndPos;
    VstInt32 timeSigNumerator;
    VstInt32 timeSigDenominator;
    VstInt32 smpteOffset;    // 1/80 of a SMPTE frame
    VstInt32 smpteFrameRate; // `VstSmpteFrameRate`
    VstInt32 samplesToNextClock;
    VstInt32 flags; // `VstTimeInfoFlags`
};

// --- Pins and parameters --------------------------------------------------------------------

enum VstPinPropertiesFlags : VstInt32 {
    kVstPinIsActive = 1 << 0,
    kVstPinIsStereo = 1 << 1,
    kVstPinUseSpeaker = 1 << 2
};

struct VstPinProperties {
    char label[kVstMaxLabelLen];
    VstInt32 flags;
    VstInt32 arrangementType; // counts with `kVstPinUseSpeaker`
    char shortLabel[kVstMaxShortLabelLen];
    char future[48];
};

enum VstParameterFlags : VstInt32 {
    kVstParameterIsSwitch = 1 << 0,
    kVstParameterUsesIntegerMinMax = 1 << 1,
    kVstParameterUsesFloatStep = 1 << 2,
    kVstParameterUsesIntStep = 1 << 3,
    kVstParameterSupportsDisplayIndex = 1 << 4,
    kVstParameterSupportsDisplayCategory = 1 << 5,
    kVstParameterCanRamp = 1 << 6
};

struct VstParameterProperties {
    float stepFloat;
    float smallStepFloat;
    float largeStepFloat;
    char label[kVstMaxLabelLen];
    VstInt32 flags;
    VstInt32 minInteger;
    VstInt32 maxInteger;
    VstInt32 stepInteger;
    VstInt32 largeStepInteger;
    char shortLabel[kVstMaxShortLabelLen];
    VstInt16 displayIndex;
    VstInt16 category;
    VstInt16 numParametersInCategory;
    VstInt16 reserved;
    char categoryLabel[kVstMaxCategLabelLen];
    char future[16];
};

// --- Speakers -------------------------------------------------------------------------------

enum VstSpeakerType : VstInt32 {
    kSpeakerM = 0,
    kSpeakerL = 1,
    kSpeakerR = 2,
    kSpeakerC = 3,
    kSpeakerLfe = 4,
    kSpeakerLs = 5,
    kSpeakerRs = 6,
    kSpeakerLc = 7,
    kSpeakerRc = 8,
    kSpeakerS = 9,
    kSpeakerSl = 10,
    kSpeakerSr = 11,
    kSpeakerTm = 12,
    kSpeakerTfl = 13,
    kSpeakerLfe2 = 19,
    kSpeakerUndefined = 0x7fffffff
};

enum VstSpeakerArrangementType : VstInt32 {
    kSpeakerArrUserDefined = -2,
    kSpeakerArrEmpty = -1,
    kSpeakerArrMono = 0,
    kSpeakerArrStereo = 1,
    kSpeakerArrStereoSurround = 2,
    kSpeakerArrStereoCenter = 3,
    kSpeakerArrStereoSide = 4,
    kSpeakerArrStereoCLfe = 5,
    kSpeakerArr30Cine = 6,
    kSpeakerArr30Music = 7,
    kSpeakerArr31Cine = 8,
    kSpeakerArr31Music = 9,
    kSpeakerArr40Cine = 10,
    kSpeakerArr40Music = 11,
    kSpeakerArr41Cine = 12,
    kSpeakerArr41Music = 13,
    kSpeakerArr50 = 14,
    kSpeakerArr51 = 15,
    kSpeakerArr60Cine = 16,
    kSpeakerArr81Music = 27,
    kSpeakerArr102 = 28
};

struct VstSpeakerProperties {
    float azimuth;   // radians
    float elevation; // radians
    float radius;    // metres
    float reserved;
    char name[kVstMaxNameLen];
    VstInt32 type; // `VstSpeakerType`
    char future[28];
};

struct VstSpeakerArrangement {
    VstInt32 type; // `VstSpeakerArrangementType`
    VstInt32 numChannels;
    VstSpeakerProperties speakers[8]; // really `numChannels` of them
};

// --- Stored states and MIDI names -----------------------------------------------------------

struct VstPatchChunkInfo {
    VstInt32 version; // 1
    VstInt32 pluginUniqueID;
    VstInt32 pluginVersion;
    VstInt32 numElements; // programs of a bank, parameters of a program
    char future[48];
};

struct MidiProgramName {
    VstInt32 thisProgramIndex;
    char name[kVstMaxNameLen];
    char midiProgram; // -1 off
    char midiBankMsb; // -1 off
    char midiBankLsb; // -1 off
    char reserved;
    VstInt32 parentCategoryIndex; // -1 none
    VstInt32 flags;               // 1 omni
};

struct MidiProgramCategory {
    VstInt32 thisCategoryIndex;
    char name[kVstMaxNameLen];
    VstInt32 parentCategoryIndex; // -1 none
    VstInt32 flags;
};

struct MidiKeyName {
    VstInt32 thisProgramIndex;
    VstInt32 thisKeyNumber;
    char keyName[kVstMaxNameLen];
    VstInt32 reserved;
    VstInt32 flags;
};

#pragma pack(pop)

// --- Plain enumerations ---------------------------------------------------------------------

enum VstPlugCategory : VstInt32 {
    kPlugCategUnknown = 0,
    kPlugCategEffect = 1,
    kPlugCategSynth = 2,
    kPlugCategAnalysis = 3,
    kPlugCategMastering = 4,
    kPlugCategSpacializer = 5,
    kPlugCategRoomFx = 6,
    kPlugSurroundFx = 7,
    kPlugCategRestoration = 8,
    kPlugCategOfflineProcess = 9,
    kPlugCategShell = 10,
    kPlugCategGenerator = 11,
    kPlugCategMaxCount = 12
};

enum VstProcessPrecision : VstInt32 { kVstProcessPrecision32 = 0, kVstProcessPrecision64 = 1 };

enum VstProcessLevels : VstInt32 {
    kVstProcessLevelUnknown = 0,
    kVstProcessLevelUser = 1,
    kVstProcessLevelRealtime = 2,
    kVstProcessLevelPrefetch = 3,
    kVstProcessLevelOffline = 4
};

enum VstAutomationStates : VstInt32 {
    kVstAutomationUnsupported = 0,
    kVstAutomationOff = 1,
    kVstAutomationRead = 2,
    kVstAutomationWrite = 3,
    kVstAutomationReadWrite = 4
};

enum VstHostLanguage : VstInt32 {
    kVstLangEnglish = 1,
    kVstLangGerman = 2,
    kVstLangFrench = 3,
    kVstLangItalian = 4,
    kVstLangSpanish = 5,
    kVstLangJapanese = 6
};

enum VstPanLawType : VstInt32 { kLinearPanLaw = 0, kEqualPowerPanLaw = 1 };

/// How knobs follow the mouse, as hosts hand it to editors. Scoped: the toolkit has the same names.
enum class VstKnobMode : VstInt32 { kCircularMode = 0, kRelativCircularMode = 1, kLinearMode = 2 };
