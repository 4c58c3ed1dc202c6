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
thread_local HostServices::Purpose activePurpose = HostServices::Purpose::Anything;

/// What was told last, in each thread of its own: an editor asks while audio runs.
thread_local VstTimeInfo toldTime{};

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

VstIntPtr VSTCALLBACK HostServices::callback(AEffect* effect, VstInt32 opcode, VstInt32 index,
                                             VstIntPtr value, void* ptr, float /*opt*/) {
    // Inside a call of ours the record is not looked at: in the entry it may not be filled yet.
    HostServices* services = active;
    if (services == nullptr && effect != nullptr)
        services = reinterpret_cast<HostServices*>(effect->resvd1);
    return services != nullptr ? services->answer(opcode, index, value, ptr)
                               : answerAnyone(opcode, ptr);
}

HostServices::Active::Active(HostServices& services, Purpose purpose)
    : outer_(active), outerPurpose_(activePurpose) {
    active = &services;
    activePurpose = purpose;
}

HostServices::Active::~Active() {
    active = outer_;
    activePurpose = outerPurpose_;
}

VstIntPtr HostServices::answer(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr) {
    switch (opcode) {
    case audioMasterGetTime:
        return reinterpret_cast<VstIntPtr>(timeInfo());
    case audioMasterProcessEvents:
        return ptr != nullptr ? 1 : 0;
    case audioMasterSizeWindow:
        return noteWantedSize(index, value);
    case audioMasterGetSampleRate:
        return static_cast<VstIntPtr>(std::lround(sampleRateHz));
    case audioMasterGetBlockSize:
        return blockFrames;
    case audioMasterGetCurrentProcessLevel:
        return levelOfThisThread();
    case audioMasterUpdateDisplay:
    case audioMasterBeginEdit:
    case audioMasterEndEdit:
        return 1; // there is nothing to record or to show anew
    default:
        return answerAnyone(opcode, ptr);
    }
}

/// Whoever shows the editor applies it, for the plug-in may ask in any thread.
VstIntPtr HostServices::noteWantedSize(VstInt32 widthPixels, VstIntPtr heightPixels) {
    constexpr VstInt32 kMostPixels = 32767; // that X can place
    if (widthPixels <= 0 || widthPixels > kMostPixels || heightPixels <= 0 ||
        heightPixels > kMostPixels)
        return 0;
    wantedSize_.set(static_cast<std::uint32_t>(widthPixels) << 16 |
                    static_cast<std::uint32_t>(heightPixels));
    return 1;
}

std::optional<HostServices::EditorSize> HostServices::takeWantedSize() {
    const std::uint32_t wanted = wantedSize_.exchange(0);
    if (wanted == 0)
        return std::nullopt;
    return EditorSize{static_cast<VstInt32>(wanted >> 16), static_cast<VstInt32>(wanted & 0xFFFF)};
}

/// While audio runs in real time, the other threads still belong to the user.
VstInt32 HostServices::levelOfThisThread() const {
    return processLevel == kVstProcessLevelRealtime && activePurpose != Purpose::Audio
               ? VstInt32{kVstProcessLevelUser}
               : processLevel;
}

void HostServices::advance(VstInt32 frames) {
    positionFrames_.set(positionFrames_.get() + frames);
    hasJumped_.set(false);
}

void HostServices::jumpTo(std::int64_t frame) {
    positionFrames_.set(frame);
    hasJumped_.set(true);
}

const VstTimeInfo* HostServices::timeInfo() const {
    constexpr double kClocksPerQuarter = 24.0; // MIDI clock
    constexpr double kSmpteFramesPerSecond = 25.0;
    constexpr double kSmpteSubframes = 80.0;

    const auto frame = static_cast<double>(positionFrames_.get());
    const double seconds = frame / sampleRateHz;
    const double quarters = transport.quartersAt(seconds);
    const double framesPerClock = sampleRateHz * 60.0 / transport.tempoBpm / kClocksPerQuarter;
    const double clocks = quarters * kClocksPerQuarter;

    // Everything is filled, whatever the mask names: a plug-in never finds a stale field.
    VstTimeInfo& time = toldTime;
    time = {};
    time.samplePos = frame;
    time.sampleRate = sampleRateHz;
    time.nanoSeconds = static_cast<double>(
        std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count());
    time.ppqPos = quarters;
    time.tempo = transport.tempoBpm;
    time.barStartPos = transport.barStartAt(quarters);
    time.timeSigNumerator = transport.beatsPerBar;
    time.timeSigDenominator = transport.beatUnit;
    time.smpteFrameRate = kVstSmpte25fps;
    // Wraps with the day, as SMPTE does, long before the integer would.
    time.smpteOffset = static_cast<VstInt32>(std::fmod(seconds, 24.0 * 60.0 * 60.0) *
                                             kSmpteFramesPerSecond * kSmpteSubframes);
    time.samplesToNextClock =
        static_cast<VstInt32>(std::lround((std::ceil(clocks) - clocks) * framesPerClock));
    time.flags = kVstNanosValid | kVstPpqPosValid | kVstTempoValid | kVstBarsValid |
                 kVstTimeSigValid | kVstSmpteValid | kVstClockValid;
    if (transport.isPlaying)
        time.flags |= kVstTransportPlaying;
    if (hasJumped_.get())
        time.flags |= kVstTransportChanged;
    return &time;
}

} // namespace pedl
