#include "host/HostServices.h"

#include "foundation/vst24/VstOpcodes.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstring>
#include <string_view>

namespace pedl {

namespace {

constexpr std::string_view kHostVendor = "ZMT-sonics";
constexpr std::string_view kHostProduct = "zmt-pedlfilter";
constexpr VstInt32 kHostVendorVersion = 1000;

/// What `audioMasterCanDo` is answered 1 for; anything else is "don't know".
constexpr std::array<std::string_view, 7> kAbilities{
    "sendVstEvents",       "sendVstMidiEvent", "sendVstTimeInfo", "receiveVstEvents",
    "receiveVstMidiEvent", "startStopProcess", "sizeWindow"};

thread_local HostServices* active = nullptr;

VstIntPtr writeText(std::string_view text, void* buffer) {
    if (buffer == nullptr)
        return 0;
    auto* const out = static_cast<char*>(buffer);
    std::memcpy(out, text.data(), text.size());
    out[text.size()] = '\0';
    return 1;
}

VstIntPtr canDo(const void* text) {
    if (text == nullptr)
        return 0;
    const std::string_view asked = static_cast<const char*>(text);
    return std::find(kAbilities.begin(), kAbilities.end(), asked) != kAbilities.end() ? 1 : 0;
}

/// Answers that are the same for every plug-in, known or not.
VstIntPtr answerAnyone(VstInt32 opcode, void* ptr) {
    switch (opcode) {
    case audioMasterVersion:
        return HostServices::kVstVersion;
    case audioMasterGetVendorString:
        return writeText(kHostVendor, ptr);
    case audioMasterGetProductString:
        return writeText(kHostProduct, ptr);
    case audioMasterGetVendorVersion:
        return kHostVendorVersion;
    case audioMasterCanDo:
        return canDo(ptr);
    case audioMasterGetLanguage:
        return kVstLangEnglish;
    default:
        return 0;
    }
}

} // namespace

double Transport::barStartAt(double quarters) const {
    const double quartersPerBar = 4.0 * beatsPerBar / beatUnit;
    return fromBarQuarters +
           std::floor((quarters - fromBarQuarters) / quartersPerBar) * quartersPerBar;
}

VstIntPtr VSTCALLBACK HostServices::callback(AEffect* effect, VstInt32 opcode, VstInt32 /*index*/,
                                             VstIntPtr /*value*/, void* ptr, float /*opt*/) {
    // Inside a call of ours the record is not looked at: in the entry it may not be filled yet.
    HostServices* services = active;
    if (services == nullptr && effect != nullptr)
        services = reinterpret_cast<HostServices*>(effect->resvd1);
    return services != nullptr ? services->answer(opcode, ptr) : answerAnyone(opcode, ptr);
}

HostServices::Active::Active(HostServices& services) : outer_(active) {
    active = &services;
}

HostServices::Active::~Active() {
    active = outer_;
}

VstIntPtr HostServices::answer(VstInt32 opcode, void* ptr) {
    switch (opcode) {
    case audioMasterGetTime:
        return reinterpret_cast<VstIntPtr>(timeInfo());
    case audioMasterProcessEvents:
        return ptr != nullptr ? 1 : 0;
    case audioMasterSizeWindow:
        return 1;
    case audioMasterGetSampleRate:
        return static_cast<VstIntPtr>(std::lround(sampleRateHz));
    case audioMasterGetBlockSize:
        return blockFrames;
    case audioMasterGetCurrentProcessLevel:
        return processLevel;
    case audioMasterUpdateDisplay:
    case audioMasterBeginEdit:
    case audioMasterEndEdit:
        return 1; // nobody is there to see it
    default:
        return answerAnyone(opcode, ptr);
    }
}

void HostServices::advance(VstInt32 frames) {
    positionFrames_ += frames;
    hasJumped_ = false;
}

void HostServices::jumpTo(std::int64_t frame) {
    positionFrames_ = frame;
    hasJumped_ = true;
}

const VstTimeInfo* HostServices::timeInfo() {
    constexpr double kClocksPerQuarter = 24.0; // MIDI clock
    constexpr double kSmpteFramesPerSecond = 25.0;
    constexpr double kSmpteSubframes = 80.0;

    const double seconds = static_cast<double>(positionFrames_) / sampleRateHz;
    const double quarters = transport.quartersAt(seconds);
    const double framesPerClock = sampleRateHz * 60.0 / transport.tempoBpm / kClocksPerQuarter;
    const double clocks = quarters * kClocksPerQuarter;

    // Everything is filled, whatever the mask names: a plug-in never finds a stale field.
    time_ = {};
    time_.samplePos = static_cast<double>(positionFrames_);
    time_.sampleRate = sampleRateHz;
    time_.nanoSeconds = static_cast<double>(
        std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count());
    time_.ppqPos = quarters;
    time_.tempo = transport.tempoBpm;
    time_.barStartPos = transport.barStartAt(quarters);
    time_.timeSigNumerator = transport.beatsPerBar;
    time_.timeSigDenominator = transport.beatUnit;
    time_.smpteFrameRate = kVstSmpte25fps;
    // Wraps with the day, as SMPTE does, long before the integer would.
    time_.smpteOffset = static_cast<VstInt32>(std::fmod(seconds, 24.0 * 60.0 * 60.0) *
                                              kSmpteFramesPerSecond * kSmpteSubframes);
    time_.samplesToNextClock =
        static_cast<VstInt32>(std::lround((std::ceil(clocks) - clocks) * framesPerClock));
    time_.flags = kVstNanosValid | kVstPpqPosValid | kVstTempoValid | kVstBarsValid |
                  kVstTimeSigValid | kVstSmpteValid | kVstClockValid;
    if (transport.isPlaying)
        time_.flags |= kVstTransportPlaying;
    if (hasJumped_)
        time_.flags |= kVstTransportChanged;
    return &time_;
}

} // namespace pedl
