#include "tests/endtoend/AudioThreadWalk.h"

#include <limits>

namespace pedl::test {

namespace {

constexpr VstInt32 kMaxFrames = 1024;
constexpr VstInt32 kParameters = 56;
constexpr VstInt32 kTagEnd = 165;      // a little beyond the last control tag
constexpr VstInt32 kSyncParameter = 7; // free, own tempo, the host's tempo
constexpr VstInt32 kMidiChannel = 149;
constexpr int kSettings = 24;

} // namespace

AudioThreadWalk::AudioThreadWalk(AEffect* effect, RecordingHost& host)
    : effect_(effect), floats_(noise<float>(kMaxFrames, 1)),
      doubles_(noise<double>(kMaxFrames, 2)) {
    time_.sampleRate = 48000.0;
    time_.tempo = 97.5;
    time_.flags = kVstTransportPlaying | kVstPpqPosValid | kVstTempoValid;
    host.time = &time_;
}

void AudioThreadWalk::run() noexcept {
    for (int setting = 0; setting < kSettings; ++setting) {
        if (setting > 0) // the first round hears the instance as it comes
            setEveryParameterAndTag();
        for (const float syncMode : {0.0F, 0.5F, 1.0F}) {
            note("setParameter", kSyncParameter);
            effect_->setParameter(effect_, kSyncParameter, syncMode);
            processBlocks();
        }
        readEveryParameterAndTag();
    }
}

void AudioThreadWalk::setEveryParameterAndTag() noexcept {
    for (VstInt32 index = -1; index < kTagEnd; ++index) {
        note("setParameter", index);
        effect_->setParameter(effect_, index, nextRandom());
    }
    // Bypass and the modulation switch would hide most of the path: on in a few rounds only.
    effect_->setParameter(effect_, 0, nextRandom() < 0.2F ? 1.0F : 0.0F);
    effect_->setParameter(effect_, 53, nextRandom() < 0.2F ? 1.0F : 0.0F);
    effect_->setParameter(effect_, kMidiChannel, 1.0F); // all: controllers move what they drive
}

void AudioThreadWalk::readEveryParameterAndTag() noexcept {
    for (VstInt32 index = -1; index < kTagEnd; ++index) {
        note("getParameter", index);
        effect_->getParameter(effect_, index);
    }
}

void AudioThreadWalk::processBlocks() noexcept {
    for (const VstInt32 frames : {64, 1, 0, 127, 128, 129, 480, kMaxFrames}) {
        note("effProcessEvents", frames);
        controlChange_.event.midiData[1] = static_cast<char>(nextRandom() * 127.0F);
        dispatch(effect_, effProcessEvents, 0, 0, &controlChange_.list);
        process(frames);

        const auto index = static_cast<VstInt32>(nextRandom() * kParameters);
        note("setParameter", index);
        effect_->setParameter(effect_, index, nextRandom());
    }
}

void AudioThreadWalk::process(VstInt32 frames) noexcept {
    time_.ppqPos += 0.25;
    floats_.left[0] = std::numeric_limits<float>::quiet_NaN();
    doubles_.right[0] = std::numeric_limits<double>::infinity();
    doubles_.left[1] = 1e-310; // denormal
    auto floats = floats_.from(0);
    auto doubles = doubles_.from(0);
    note("processReplacing", frames);
    effect_->processReplacing(effect_, floats.data(), floats.data(), frames);
    note("processDoubleReplacing", frames);
    effect_->processDoubleReplacing(effect_, doubles.data(), doubles.data(), frames);
}

float AudioThreadWalk::nextRandom() noexcept {
    random_ = random_ * 1664525U + 1013904223U; // Numerical Recipes: full period
    return static_cast<float>(random_ >> 8) / 16777216.0F;
}

void AudioThreadWalk::note(const char* call, int detail) noexcept {
    call_ = call;
    detail_ = detail;
}

} // namespace pedl::test
