#pragma once

#include "foundation/vst24/AEffect.h"
#include "foundation/vst24/VstOpcodes.h"
#include "foundation/vst24/VstStructures.h"

#include <array>
#include <atomic>
#include <cstddef>

namespace pedl::test {

/// The host's side of the interface: answers the plug-in's calls as it is told to and counts them.
///
/// One host is current at a time, since the callback carries nothing that could tell hosts apart.
/// It neither allocates nor locks, so a plug-in may call it from a supervised audio thread.
/// Thread: the counters any; the answers are set while no instance runs.
class RecordingHost {
public:
    RecordingHost();
    ~RecordingHost();
    RecordingHost(const RecordingHost&) = delete;
    RecordingHost& operator=(const RecordingHost&) = delete;

    static VstIntPtr callback(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                              void* ptr, float opt);

    [[nodiscard]] int calls(VstInt32 opcode) const;

    VstIntPtr version = 2400;
    VstIntPtr sampleRateHz = 0; ///< 0, as hosts answer while the entry runs
    const char* product = "Recording host";
    VstTimeInfo* time = nullptr;     ///< null: the host knows no time
    bool fillsOnlyAskedTime = false; ///< clears the flags of fields that the mask did not name
    /// Called inside `audioMasterUpdateDisplay` with the instance that sent it.
    void (*onUpdateDisplay)(AEffect*) = nullptr;

private:
    VstIntPtr answer(AEffect* effect, VstInt32 opcode, VstIntPtr value, void* ptr);
    VstTimeInfo* timeFor(VstIntPtr mask);

    static constexpr std::size_t kOpcodes = 64;
    std::array<std::atomic<int>, kOpcodes> calls_{};
    VstTimeInfo maskedTime_{};
};

} // namespace pedl::test
