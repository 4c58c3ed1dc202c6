#include "plugin/ZMTpedlFilterEffect.h"

#include "foundation/basics/FixedText.h"
#include "presets/FactoryPrograms.h"
#include "presets/StreamFormat.h"

#include <algorithm>
#include <cmath>

// The effect's life and its audio. What else it does has files of its own: `EffectIdentity.cpp`,
// `EffectParameters.cpp`, `EffectLevels.cpp`, `EffectTags.cpp`, `EffectTempo.cpp`.

namespace pedl {

ZMTpedlFilterEffect::ZMTpedlFilterEffect(audioMasterCallback host, EffectSurroundings surroundings)
    : CPresetSystemEffect(host, surroundings.clock, surroundings.diagnostics,
                          surroundings.settings),
      engine_(surroundings.clock.calendarSeconds()) {
    AudioEffect::setNumInputs(kChannels);
    AudioEffect::setNumOutputs(kChannels);
    AudioEffect::canProcessReplacing(true);
    AudioEffect::canDoubleReplacing(true);
    AudioEffect::setUniqueID(kPluginId);
    AudioEffect::setInitialDelay(0);
    ZMTpedlFilterEffect::initialiseFactoryPrograms();
    startPresetSystem();
    selectProgram(0); // whatever the start sequence left behind, the first program plays
    diagnostics().line("ZMT pedlFilter:start effect");
    engine_.reset();
    ZMTpedlFilterEffect::resume();
    engine_.reset();
}

ZMTpedlFilterEffect::~ZMTpedlFilterEffect() {
    setEditor(nullptr); // the base would delete it, yet a host may still be closing its window
    setView(nullptr);
    diagnostics().line("ZMT pedlFilter:stop effect");
}

void ZMTpedlFilterEffect::initialiseFactoryPrograms() {
    writeFactoryPrograms(editableBank());
}

void ZMTpedlFilterEffect::callFailed(VstInt32 opcode, const char* why) noexcept {
    FixedText<120> text = "ZMT pedlFilter:host call ";
    text.appendInteger(opcode);
    text.append(" failed, nothing changed: ");
    text.append(why);
    try {
        diagnostics().line(text);
    } catch (...) { // neither the call nor its line could be had
    }
}

void ZMTpedlFilterEffect::setSampleRate(float rateHz) {
    if (!std::isfinite(rateHz) || rateHz <= 0.0F)
        return;
    CPresetSystemEffect::setSampleRate(rateHz);
    engine_.setSampleRate(static_cast<double>(rateHz));
}

void ZMTpedlFilterEffect::suspend() {
    engine_.reset();
    tellSuspended();
}

/// Tables of a rate that is new to the process ask for memory; where there is none, the old rate
/// stays.
void ZMTpedlFilterEffect::resume() {
    const float rateBeforeHz = sampleRate;
    engine_.setSampleRate(updateSampleRate());
    try {
        engine_.reinitialise(clock().calendarSeconds());
    } catch (...) {
        sampleRate = rateBeforeHz;
        engine_.setSampleRate(static_cast<double>(rateBeforeHz));
        throw;
    }
    CPresetSystemEffect::resume();
    tempoSync_.reset();
}

void ZMTpedlFilterEffect::processReplacing(float** inputs, float** outputs, VstInt32 sampleFrames) {
    updateTempoSync();
    engine_.processFloat(inputs, outputs, std::max(sampleFrames, 0));
}

void ZMTpedlFilterEffect::processDoubleReplacing(double** inputs, double** outputs,
                                                 VstInt32 sampleFrames) {
    updateTempoSync();
    engine_.processDouble(inputs, outputs, std::max(sampleFrames, 0));
}

} // namespace pedl
