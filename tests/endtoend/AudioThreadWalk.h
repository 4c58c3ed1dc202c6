#pragma once

#include "tests/support/PluginLibrary.h"
#include "tests/support/StereoBuffer.h"

#include <atomic>
#include <cstdint>
#include <limits>

namespace pedl::test {

/// Walks an instance through every call that an audio thread makes: both processing entries over
/// blocks of many sizes, parameters set and read, controllers, random settings, all tempo modes
/// with the host's time, samples that are no numbers.
///
/// Everything it needs is made by the constructor: `run` itself neither allocates nor locks, so
/// that whatever a supervisor reports is the plug-in's.
class AudioThreadWalk {
public:
    AudioThreadWalk(AEffect* effect, RecordingHost& host) : effect_(effect) {
        time_.sampleRate = 48000.0;
        time_.tempo = 97.5;
        time_.flags = kVstTransportPlaying | kVstPpqPosValid | kVstTempoValid;
        host.time = &time_;
    }

    void run() noexcept {
        for (int setting = 0; setting < 24; ++setting) {
            if (setting > 0) // the first round hears the instance as it comes
                setEveryParameterAndTag();
            for (const float syncMode : {0.0F, 0.5F, 1.0F}) { // free, own tempo, the host's
                set(7, syncMode);
                processBlocks();
            }
            for (VstInt32 index = -1; index < kTagEnd; ++index) {
                call_ = "getParameter";
                detail_ = index;
                effect_->getParameter(effect_, index);
            }
        }
    }

    /// The call that is under way, readable while `run` goes on in another thread or has been
    /// stopped in the middle.
    [[nodiscard]] const char* call() const { return call_; }
    [[nodiscard]] int detail() const { return detail_; }

private:
    static constexpr VstInt32 kMaxFrames = 1024;
    static constexpr VstInt32 kTagEnd = 165; // a little beyond the last control tag

    void set(VstInt32 index, float normalised) noexcept {
        call_ = "setParameter";
        detail_ = index;
        effect_->setParameter(effect_, index, normalised);
    }

    void setEveryParameterAndTag() noexcept {
        for (VstInt32 index = -1; index < kTagEnd; ++index)
            set(index, nextRandom());
        // Bypass and the modulation switch would hide most of the path: on in a few rounds only.
        for (const VstInt32 index : {0, 53})
            set(index, nextRandom() < 0.2F ? 1.0F : 0.0F);
        set(149, 1.0F); // all channels: controllers move what they drive
    }

    void processBlocks() noexcept {
        for (const VstInt32 frames : {64, 1, 0, 127, 128, 129, 480, kMaxFrames}) {
            call_ = "effProcessEvents";
            detail_ = frames;
            controlChange_.event.midiData[1] = static_cast<char>(nextRandom() * 127.0F);
            dispatch(effect_, effProcessEvents, 0, 0, &controlChange_.list);

            time_.ppqPos += 0.25;
            floats_.left[0] = std::numeric_limits<float>::quiet_NaN();
            doubles_.right[0] = std::numeric_limits<double>::infinity();
            doubles_.left[1] = 1e-310; // denormal
            auto floats = floats_.from(0);
            auto doubles = doubles_.from(0);
            call_ = "processReplacing";
            effect_->processReplacing(effect_, floats.data(), floats.data(), frames);
            call_ = "processDoubleReplacing";
            effect_->processDoubleReplacing(effect_, doubles.data(), doubles.data(), frames);
            set(static_cast<VstInt32>(nextRandom() * 56.0F), nextRandom());
        }
    }

    float nextRandom() noexcept {
        random_ = random_ * 1664525U + 1013904223U; // Numerical Recipes: full period
        return static_cast<float>(random_ >> 8) / 16777216.0F;
    }

    AEffect* effect_;
    VstTimeInfo time_{};
    ControlChange controlChange_{0, 7, 64};
    StereoBuffer<float> floats_ = noise<float>(kMaxFrames, 1);
    StereoBuffer<double> doubles_ = noise<double>(kMaxFrames, 2);
    std::uint32_t random_ = 1;
    std::atomic<const char*> call_{"nothing"};
    std::atomic<int> detail_{0};
};

} // namespace pedl::test
