#pragma once

#include "tests/support/PluginLibrary.h"
#include "tests/support/StereoBuffer.h"

#include <atomic>
#include <cstdint>

namespace pedl::test {

/// Walks an instance through every call that an audio thread makes: both processing entries over
/// blocks of many sizes, parameters set and read, controllers, random settings, all tempo modes
/// with the host's time, samples that are no numbers.
///
/// Everything it needs is made by the constructor: `run` itself neither allocates nor locks, so
/// that whatever a supervisor reports is the plug-in's.
class AudioThreadWalk {
public:
    AudioThreadWalk(AEffect* effect, RecordingHost& host);

    void run() noexcept;

    /// The call that is under way, readable while `run` goes on in another thread or has been
    /// stopped in the middle.
    [[nodiscard]] const char* call() const { return call_; }
    [[nodiscard]] int detail() const { return detail_; }

private:
    void setEveryParameterAndTag() noexcept;
    void readEveryParameterAndTag() noexcept;
    void processBlocks() noexcept;
    void process(VstInt32 frames) noexcept;
    float nextRandom() noexcept;
    void note(const char* call, int detail) noexcept;

    AEffect* effect_;
    VstTimeInfo time_{};
    ControlChange controlChange_{0, 7, 64};
    StereoBuffer<float> floats_;
    StereoBuffer<double> doubles_;
    std::uint32_t random_ = 1;
    std::atomic<const char*> call_{"nothing"};
    std::atomic<int> detail_{0};
};

} // namespace pedl::test
