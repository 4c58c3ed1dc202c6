// What the effect tells hosts of itself: names, pins, speaker arrangements, capabilities.

#include "foundation/vst24/VendorCalls.h"
#include "parameters/CopyText.h"
#include "plugin/ZMTpedlFilterEffect.h"
#include "presets/HintText.h"

#include <algorithm>
#include <cstdio>
#include <initializer_list>
#include <string_view>

namespace pedl {

namespace {

constexpr std::string_view kProductName = "ZMT pedlFilter";
constexpr std::string_view kVendorName = kWebAddressShort;
constexpr VstInt32 kVendorVersion = 1000;

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> texts) {
    return std::ranges::find(texts, text) != texts.end();
}

void describePin(const char* direction, VstInt32 index, VstPinProperties& properties) {
    std::snprintf(properties.label, kVstMaxLabelLen, "%s %1d %s", kProductName.data(), index + 1,
                  direction);
    properties.flags = kVstPinIsActive | kVstPinIsStereo;
}

} // namespace

bool ZMTpedlFilterEffect::getEffectName(char* name) {
    copyText(name, kProductName, kVstMaxEffectNameLen - 1);
    return true;
}

bool ZMTpedlFilterEffect::getProductString(char* text) {
    copyText(text, kProductName, kVstMaxProductStrLen - 1);
    return true;
}

bool ZMTpedlFilterEffect::getVendorString(char* text) {
    copyText(text, kVendorName, kVstMaxVendorStrLen - 1);
    return true;
}

VstInt32 ZMTpedlFilterEffect::getVendorVersion() {
    return kVendorVersion;
}

bool ZMTpedlFilterEffect::getInputProperties(VstInt32 index, VstPinProperties* properties) {
    if (index < 0 || index >= kChannels)
        return false;
    describePin("In", index, *properties);
    return true;
}

bool ZMTpedlFilterEffect::getOutputProperties(VstInt32 index, VstPinProperties* properties) {
    if (index < 0 || index >= kChannels)
        return false;
    describePin("Out", index, *properties);
    return true;
}

bool ZMTpedlFilterEffect::setSpeakerArrangement(VstSpeakerArrangement* pluginInput,
                                                VstSpeakerArrangement* pluginOutput) {
    const VstInt32 inputs = pluginInput->numChannels;
    const VstInt32 outputs = pluginOutput->numChannels;
    const bool isMonoIn = inputs == 1 && (outputs == 1 || outputs == 2);
    const bool isKnown = isMonoIn || (inputs == 2 && outputs == 2);
    isInputStereo_ = !isMonoIn;
    isOutputStereo_ = !(isMonoIn && outputs == 1);
    return isKnown;
}

VstInt32 ZMTpedlFilterEffect::canDo(char* text) {
    if (isOneOf(text, {"offline", "plugAsChannelInsert", "plugAsSend", "mixDryWet", "1in1out",
                       "1in2out", "2in2out"}))
        return 1;
    if (std::string_view(text) == "receiveVstMidiEvent") {
        char question[] = "sendVstMidiEvent";
        return canHostDo(question) == 1 ? 1 : 0;
    }
    return 0;
}

VstIntPtr ZMTpedlFilterEffect::vendorSpecific(VstInt32 index, VstIntPtr value, void* /*ptr*/,
                                              float opt) {
    const bool isSlot = opt >= 0.0F && opt < static_cast<float>(kNumPrograms); // NaN is none
    if (index != kVendorCallId || value != kVendorCallSelectSlot || !isSlot)
        return 0;
    showLoaded({{}, static_cast<std::int32_t>(opt)}); // an open window shows the name too
    return 1;
}

} // namespace pedl
