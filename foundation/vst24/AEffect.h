#pragma once

#include "VstTypes.h"

/// The record through which a host and a plug-in meet, and the types of the functions in it.
///
/// A library's entry returns a pointer to this record; everything else is reached from it. Offsets
/// are those of the compiled hosts and plug-ins in the world: `VstLayout.cpp` holds them.

struct AEffect;

/// Plug-in to host. `opcode` is one of `AudioMasterOpcodes`; the other arguments depend on it.
using audioMasterCallback = VstIntPtr(VSTCALLBACK*)(AEffect* effect, VstInt32 opcode,
                                                    VstInt32 index, VstIntPtr value, void* ptr,
                                                    float opt);

/// Host to plug-in. `opcode` is one of `AEffectOpcodes`; the other arguments depend on it.
using AEffectDispatcherProc = VstIntPtr(VSTCALLBACK*)(AEffect* effect, VstInt32 opcode,
                                                      VstInt32 index, VstIntPtr value, void* ptr,
                                                      float opt);

using AEffectProcessProc = void(VSTCALLBACK*)(AEffect* effect, float** inputs, float** outputs,
                                              VstInt32 sampleFrames);
using AEffectProcessDoubleProc = void(VSTCALLBACK*)(AEffect* effect, double** inputs,
                                                    double** outputs, VstInt32 sampleFrames);
using AEffectSetParameterProc = void(VSTCALLBACK*)(AEffect* effect, VstInt32 index,
                                                   float parameter);
using AEffectGetParameterProc = float(VSTCALLBACK*)(AEffect* effect, VstInt32 index);

/// What the entry of a library looks like, whichever name it is exported under.
using VstEntryProc = AEffect*(VSTCALLBACK*)(audioMasterCallback host);

/// First field of every valid record. In memory on a little-endian machine it reads "PtsV".
constexpr VstInt32 kEffectMagic = CCONST('V', 's', 't', 'P');

/// Bits of `AEffect::flags`.
enum VstAEffectFlags : VstInt32 {
    effFlagsHasEditor = 1 << 0,
    effFlagsHasClip = 1 << 1,      // deprecated
    effFlagsHasVu = 1 << 2,        // deprecated
    effFlagsCanMono = 1 << 3,      // deprecated
    effFlagsCanReplacing = 1 << 4, // hosts refuse a plug-in without it
    effFlagsProgramChunks = 1 << 5,
    effFlagsIsSynth = 1 << 8,
    effFlagsNoSoundInStop = 1 << 9,
    effFlagsExtIsAsync = 1 << 10,   // deprecated
    effFlagsExtHasBuffer = 1 << 11, // deprecated
    effFlagsCanDoubleReplacing = 1 << 12
};

#pragma pack(push, 8)

/// One plug-in instance as the host sees it.
struct AEffect {
    VstInt32 magic; // `kEffectMagic`

    AEffectDispatcherProc dispatcher;
    // Deprecated, adds to the outputs. Some plug-ins leave it null, so no host of today calls it;
    // where it equals `processReplacing`, hosts conclude that the plug-in cannot replace.
    AEffectProcessProc process;
    AEffectSetParameterProc setParameter;
    AEffectGetParameterProc getParameter;

    VstInt32 numPrograms;
    VstInt32 numParams; // every program has this many
    VstInt32 numInputs;
    VstInt32 numOutputs;
    VstInt32 flags; // `VstAEffectFlags`

    VstIntPtr resvd1; // the host's own, as is `resvd2`
    VstIntPtr resvd2;

    VstInt32 initialDelay;  // latency in frames
    VstInt32 realQualities; // deprecated
    VstInt32 offQualities;  // deprecated
    float ioRatio;          // deprecated

    void* object; // the plug-in's own object behind the record
    void* user;   // the plug-in's own

    VstInt32 uniqueID; // four-character code
    VstInt32 version;

    AEffectProcessProc processReplacing;
    // Only with `effFlagsCanDoubleReplacing`: older plug-ins allocate a record that ends before it.
    AEffectProcessDoubleProc processDoubleReplacing;
    char future[56]; // zero
};

#pragma pack(pop)
