#include "presets/CPresetSystemEffect.h"

#include "parameters/CopyText.h"
#include "parameters/ParameterIndex.h"

#include <cstring>
#include <string_view>

namespace pedl {

namespace {

constexpr VstInt32 kHostPrograms = 1;

/// Lets a host that polls see the new program as a change of its own before it is told.
constexpr std::uint32_t kSelectWaitMs = 100;

/// Hosts mark a project as changed when a parameter is edited; any parameter will do.
constexpr VstInt32 kChangeMarker = 0;

/// NaN answers false.
bool isNormalised(float value) {
    return value >= 0.0F && value <= 1.0F;
}

} // namespace

CPresetSystemEffect::CPresetSystemEffect(audioMasterCallback host, Clock& clock)
    : AudioEffectX(host, kHostPrograms, kNumParams), clock_(clock) {
    AudioEffect::programsAreChunks(true);
}

void CPresetSystemEffect::setView(PresetSystemView* view) noexcept {
    view_.store(view, std::memory_order_release);
}

void CPresetSystemEffect::startPresetSystem() {
    bank_.takeEditSnapshot(0);
    selectProgram(0);
}

void CPresetSystemEffect::selectProgram(std::int32_t slot) {
    isProgramLoading_.store(true, std::memory_order_relaxed);
    curProgram = 0;
    bank_.setCurrentSlot(slot);
    applySlot(slot);
    isProgramLoading_.store(false, std::memory_order_relaxed);
    clock_.sleepMs(kSelectWaitMs);
    updateDisplay();
    beginEdit(kChangeMarker);
    endEdit(kChangeMarker);
}

void CPresetSystemEffect::applySlot(std::int32_t slot) {
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
        const float normalised = bank_.value(slot, parameter);
        if (isNormalised(normalised))
            setParameter(parameter, normalised);
    }
}

void CPresetSystemEffect::renameCurrentProgram(const char* name) {
    curProgram = 0;
    if (name != nullptr)
        bank_.setName(currentSlot(), name);
    updateDisplay();
}

void CPresetSystemEffect::setParameter(VstInt32 index, float normalised) {
    if (isParameter(index) && !isProgramLoading())
        bank_.setValue(currentSlot(), index, normalised);
}

float CPresetSystemEffect::getParameter(VstInt32 index) {
    return isParameter(index) ? bank_.value(currentSlot(), index) : 0.0F;
}

void CPresetSystemEffect::setProgramName(char* name) {
    if (name == nullptr)
        return;
    const std::int32_t slot = currentSlot();
    bank_.setName(slot, {name, ::strnlen(name, kProgramNameBytes)});
    if (PresetSystemView* const view = view_.load(std::memory_order_acquire)) {
        const ProgramName stored = bank_.name(slot);
        view->programNameChanged(nameText(stored));
    }
}

void CPresetSystemEffect::getProgramName(char* name) {
    const ProgramName stored = bank_.name(currentSlot());
    copyText(name, nameText(stored), kProgramNameLength); // hosts have 24 bytes, the zero included
}

bool CPresetSystemEffect::getProgramNameIndexed(VstInt32 /*category*/, VstInt32 index, char* text) {
    if (!isProgramSlot(index))
        return false;
    const ProgramName stored = bank_.name(index);
    copyText(text, nameText(stored), kProgramNameLength);
    return true;
}

void CPresetSystemEffect::automate(std::int32_t index, float normalised) {
    beginEdit(index);
    setParameterAutomated(index, normalised);
    endEdit(index);
}

bool CPresetSystemEffect::isProgramLoading() const noexcept {
    return isProgramLoading_.load(std::memory_order_relaxed);
}

void CPresetSystemEffect::tellParameter(std::int32_t index, float normalised) noexcept {
    if (PresetSystemView* const view = view_.load(std::memory_order_acquire))
        view->parameterChanged(index, normalised);
}

void CPresetSystemEffect::tellSuspended() noexcept {
    if (PresetSystemView* const view = view_.load(std::memory_order_acquire))
        view->processingSuspended();
}

} // namespace pedl
