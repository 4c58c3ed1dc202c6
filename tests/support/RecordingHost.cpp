#include "tests/support/RecordingHost.h"

#include <cstring>

namespace pedl::test {

namespace {

std::atomic<RecordingHost*> currentHost{nullptr};

constexpr VstInt32 kValidBits = 0xFF00; // the "Valid" flags, which also form the mask of wishes

} // namespace

RecordingHost::RecordingHost() {
    currentHost = this;
}

RecordingHost::~RecordingHost() {
    currentHost = nullptr;
}

VstIntPtr RecordingHost::callback(AEffect* effect, VstInt32 opcode, VstInt32, VstIntPtr value,
                                  void* ptr, float) {
    RecordingHost* host = currentHost.load(std::memory_order_relaxed);
    return host ? host->answer(effect, opcode, value, ptr) : 0;
}

int RecordingHost::calls(VstInt32 opcode) const {
    return calls_.at(static_cast<std::size_t>(opcode)).load(std::memory_order_relaxed);
}

VstIntPtr RecordingHost::answer(AEffect* effect, VstInt32 opcode, VstIntPtr value, void* ptr) {
    if (opcode >= 0 && opcode < static_cast<VstInt32>(kOpcodes))
        calls_[static_cast<std::size_t>(opcode)].fetch_add(1, std::memory_order_relaxed);
    switch (opcode) {
    case audioMasterVersion:
        return version;
    case audioMasterGetTime:
        return reinterpret_cast<VstIntPtr>(timeFor(value));
    case audioMasterGetSampleRate:
        return sampleRateHz;
    case audioMasterGetVendorString:
    case audioMasterGetProductString:
        std::strcpy(static_cast<char*>(ptr), product);
        return 1;
    case audioMasterCanDo:
        return 1;
    case audioMasterUpdateDisplay:
        if (onUpdateDisplay && effect)
            onUpdateDisplay(effect);
        return 1;
    default:
        return 0;
    }
}

VstTimeInfo* RecordingHost::timeFor(VstIntPtr mask) {
    if (!time || !fillsOnlyAskedTime)
        return time;
    maskedTime_ = *time;
    maskedTime_.flags &= static_cast<VstInt32>(mask) | ~kValidBits;
    return &maskedTime_;
}

} // namespace pedl::test
