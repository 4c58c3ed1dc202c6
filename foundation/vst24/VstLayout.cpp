// The binary layout that compiled hosts and plug-ins count on, held at compile time.

#include "foundation/vst24/AEffect.h"
#include "foundation/vst24/VstOpcodes.h"
#include "foundation/vst24/VstStructures.h"

#include <cstddef>

namespace {

// Structures that hold a pointer have this layout on 64-bit systems; the others have it everywhere.
constexpr bool kIs64Bit = sizeof(void*) == 8;

#define HOLD_OFFSET(structure, field, bytes) static_assert(offsetof(structure, field) == (bytes))
#define HOLD_OFFSET_64(structure, field, bytes)                                                    \
    static_assert(!kIs64Bit || offsetof(structure, field) == (bytes))

HOLD_OFFSET(AEffect, magic, 0);
HOLD_OFFSET_64(AEffect, dispatcher, 8);
HOLD_OFFSET_64(AEffect, process, 16);
HOLD_OFFSET_64(AEffect, setParameter, 24);
HOLD_OFFSET_64(AEffect, getParameter, 32);
HOLD_OFFSET_64(AEffect, numPrograms, 40);
HOLD_OFFSET_64(AEffect, numParams, 44);
HOLD_OFFSET_64(AEffect, numInputs, 48);
HOLD_OFFSET_64(AEffect, numOutputs, 52);
HOLD_OFFSET_64(AEffect, flags, 56);
HOLD_OFFSET_64(AEffect, resvd1, 64);
HOLD_OFFSET_64(AEffect, resvd2, 72);
HOLD_OFFSET_64(AEffect, initialDelay, 80);
HOLD_OFFSET_64(AEffect, realQualities, 84);
HOLD_OFFSET_64(AEffect, offQualities, 88);
HOLD_OFFSET_64(AEffect, ioRatio, 92);
HOLD_OFFSET_64(AEffect, object, 96);
HOLD_OFFSET_64(AEffect, user, 104);
HOLD_OFFSET_64(AEffect, uniqueID, 112);
HOLD_OFFSET_64(AEffect, version, 116);
HOLD_OFFSET_64(AEffect, processReplacing, 120);
HOLD_OFFSET_64(AEffect, processDoubleReplacing, 128);
HOLD_OFFSET_64(AEffect, future, 136);
static_assert(sizeof(AEffect) == (kIs64Bit ? 192 : 144));

HOLD_OFFSET(ERect, top, 0);
HOLD_OFFSET(ERect, left, 2);
HOLD_OFFSET(ERect, bottom, 4);
HOLD_OFFSET(ERect, right, 6);
static_assert(sizeof(ERect) == 8);

HOLD_OFFSET(VstEvent, type, 0);
HOLD_OFFSET(VstEvent, byteSize, 4);
HOLD_OFFSET(VstEvent, deltaFrames, 8);
HOLD_OFFSET(VstEvent, flags, 12);
HOLD_OFFSET(VstEvent, data, 16);
static_assert(sizeof(VstEvent) == 32);

HOLD_OFFSET(VstMidiEvent, type, 0);
HOLD_OFFSET(VstMidiEvent, byteSize, 4);
HOLD_OFFSET(VstMidiEvent, deltaFrames, 8);
HOLD_OFFSET(VstMidiEvent, flags, 12);
HOLD_OFFSET(VstMidiEvent, noteLength, 16);
HOLD_OFFSET(VstMidiEvent, noteOffset, 20);
HOLD_OFFSET(VstMidiEvent, midiData, 24);
HOLD_OFFSET(VstMidiEvent, detune, 28);
HOLD_OFFSET(VstMidiEvent, noteOffVelocity, 29);
HOLD_OFFSET(VstMidiEvent, reserved1, 30);
HOLD_OFFSET(VstMidiEvent, reserved2, 31);
static_assert(sizeof(VstMidiEvent) == 32);

HOLD_OFFSET(VstMidiSysexEvent, type, 0);
HOLD_OFFSET(VstMidiSysexEvent, byteSize, 4);
HOLD_OFFSET(VstMidiSysexEvent, deltaFrames, 8);
HOLD_OFFSET(VstMidiSysexEvent, flags, 12);
HOLD_OFFSET(VstMidiSysexEvent, dumpBytes, 16);
HOLD_OFFSET_64(VstMidiSysexEvent, resvd1, 24);
HOLD_OFFSET_64(VstMidiSysexEvent, sysexDump, 32);
HOLD_OFFSET_64(VstMidiSysexEvent, resvd2, 40);
static_assert(sizeof(VstMidiSysexEvent) == (kIs64Bit ? 48 : 32));

HOLD_OFFSET(VstEvents, numEvents, 0);
HOLD_OFFSET_64(VstEvents, reserved, 8);
HOLD_OFFSET_64(VstEvents, events, 16);
static_assert(sizeof(VstEvents) == (kIs64Bit ? 32 : 16));

HOLD_OFFSET(VstTimeInfo, samplePos, 0);
HOLD_OFFSET(VstTimeInfo, sampleRate, 8);
HOLD_OFFSET(VstTimeInfo, nanoSeconds, 16);
HOLD_OFFSET(VstTimeInfo, ppqPos, 24);
HOLD_OFFSET(VstTimeInfo, tempo, 32);
HOLD_OFFSET(VstTimeInfo, barStartPos, 40);
HOLD_OFFSET(VstTimeInfo, cycleStartPos, 48);
HOLD_OFFSET(VstTimeInfo, cycleEndPos, 56);
HOLD_OFFSET(VstTimeInfo, timeSigNumerator, 64);
HOLD_OFFSET(VstTimeInfo, timeSigDenominator, 68);
HOLD_OFFSET(VstTimeInfo, smpteOffset, 72);
HOLD_OFFSET(VstTimeInfo, smpteFrameRate, 76);
HOLD_OFFSET(VstTimeInfo, samplesToNextClock, 80);
HOLD_OFFSET(VstTimeInfo, flags, 84);
static_assert(sizeof(VstTimeInfo) == 88);

HOLD_OFFSET(VstPinProperties, label, 0);
HOLD_OFFSET(VstPinProperties, flags, 64);
HOLD_OFFSET(VstPinProperties, arrangementType, 68);
HOLD_OFFSET(VstPinProperties, shortLabel, 72);
HOLD_OFFSET(VstPinProperties, future, 80);
static_assert(sizeof(VstPinProperties) == 128);

HOLD_OFFSET(VstParameterProperties, stepFloat, 0);
HOLD_OFFSET(VstParameterProperties, smallStepFloat, 4);
HOLD_OFFSET(VstParameterProperties, largeStepFloat, 8);
HOLD_OFFSET(VstParameterProperties, label, 12);
HOLD_OFFSET(VstParameterProperties, flags, 76);
HOLD_OFFSET(VstParameterProperties, minInteger, 80);
HOLD_OFFSET(VstParameterProperties, maxInteger, 84);
HOLD_OFFSET(VstParameterProperties, stepInteger, 88);
HOLD_OFFSET(VstParameterProperties, largeStepInteger, 92);
HOLD_OFFSET(VstParameterProperties, shortLabel, 96);
HOLD_OFFSET(VstParameterProperties, displayIndex, 104);
HOLD_OFFSET(VstParameterProperties, category, 106);
HOLD_OFFSET(VstParameterProperties, numParametersInCategory, 108);
HOLD_OFFSET(VstParameterProperties, reserved, 110);
HOLD_OFFSET(VstParameterProperties, categoryLabel, 112);
HOLD_OFFSET(VstParameterProperties, future, 136);
static_assert(sizeof(VstParameterProperties) == 152);

HOLD_OFFSET(VstSpeakerProperties, azimuth, 0);
HOLD_OFFSET(VstSpeakerProperties, elevation, 4);
HOLD_OFFSET(VstSpeakerProperties, radius, 8);
HOLD_OFFSET(VstSpeakerProperties, reserved, 12);
HOLD_OFFSET(VstSpeakerProperties, name, 16);
HOLD_OFFSET(VstSpeakerProperties, type, 80);
HOLD_OFFSET(VstSpeakerProperties, future, 84);
static_assert(sizeof(VstSpeakerProperties) == 112);

HOLD_OFFSET(VstSpeakerArrangement, type, 0);
HOLD_OFFSET(VstSpeakerArrangement, numChannels, 4);
HOLD_OFFSET(VstSpeakerArrangement, speakers, 8);
static_assert(sizeof(VstSpeakerArrangement) == 904);

HOLD_OFFSET(VstPatchChunkInfo, version, 0);
HOLD_OFFSET(VstPatchChunkInfo, pluginUniqueID, 4);
HOLD_OFFSET(VstPatchChunkInfo, pluginVersion, 8);
HOLD_OFFSET(VstPatchChunkInfo, numElements, 12);
HOLD_OFFSET(VstPatchChunkInfo, future, 16);
static_assert(sizeof(VstPatchChunkInfo) == 64);

HOLD_OFFSET(VstKeyCode, character, 0);
HOLD_OFFSET(VstKeyCode, virt, 4);
HOLD_OFFSET(VstKeyCode, modifier, 5);
static_assert(sizeof(VstKeyCode) == 8);

HOLD_OFFSET(MidiProgramName, thisProgramIndex, 0);
HOLD_OFFSET(MidiProgramName, name, 4);
HOLD_OFFSET(MidiProgramName, midiProgram, 68);
HOLD_OFFSET(MidiProgramName, midiBankMsb, 69);
HOLD_OFFSET(MidiProgramName, midiBankLsb, 70);
HOLD_OFFSET(MidiProgramName, reserved, 71);
HOLD_OFFSET(MidiProgramName, parentCategoryIndex, 72);
HOLD_OFFSET(MidiProgramName, flags, 76);
static_assert(sizeof(MidiProgramName) == 80);

HOLD_OFFSET(MidiProgramCategory, thisCategoryIndex, 0);
HOLD_OFFSET(MidiProgramCategory, name, 4);
HOLD_OFFSET(MidiProgramCategory, parentCategoryIndex, 68);
HOLD_OFFSET(MidiProgramCategory, flags, 72);
static_assert(sizeof(MidiProgramCategory) == 76);

HOLD_OFFSET(MidiKeyName, thisProgramIndex, 0);
HOLD_OFFSET(MidiKeyName, thisKeyNumber, 4);
HOLD_OFFSET(MidiKeyName, keyName, 8);
HOLD_OFFSET(MidiKeyName, reserved, 72);
HOLD_OFFSET(MidiKeyName, flags, 76);
static_assert(sizeof(MidiKeyName) == 80);

static_assert(CCONST('Z', 'M', 'p', 'F') == 0x5A4D7046);
static_assert(kEffectMagic == 0x56737450);
static_assert(VKEY_PAGEDOWN == 16 && VKEY_NUMPAD0 == 24 && VKEY_F1 == 40 && VKEY_EQUALS == 57);

} // namespace
