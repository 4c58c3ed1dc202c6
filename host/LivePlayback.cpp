#include "host/LivePlayback.h"

#include <algorithm>
#include <cmath>

namespace pedl {

namespace {

/// A device may do anything with what is beyond full scale or no number.
float forADevice(float sample) {
    return std::isfinite(sample) ? std::clamp(sample, -1.0F, 1.0F) : 0.0F;
}

} // namespace

LivePlayback::LivePlayback(Plugin& plugin, LoopedSound sound, VstInt32 blockFrames)
    : plugin_(plugin), sound_(std::move(sound)), blockFrames_(blockFrames),
      inputs_(plugin.record().numInputs, blockFrames),
      outputs_(plugin.record().numOutputs, blockFrames) {
    plugin_.services().transport.isPlaying = true;
    plugin_.services().processLevel = kVstProcessLevelRealtime;
    plugin_.services().jumpTo(0);
    plugin_.resume();
    output_ = std::make_unique<SoundOutput>(
        sound_.sampleRateHz(), blockFrames,
        [this](float* stereo, VstInt32 frames) { fill(stereo, frames); });
}

LivePlayback::~LivePlayback() {
    output_.reset();
    plugin_.suspend();
}

void LivePlayback::fill(float* stereo, VstInt32 frames) {
    while (frames > 0) {
        const auto part = static_cast<VstInt32>(
            std::min<std::int64_t>(std::min(frames, blockFrames_), sound_.framesLeft()));
        fillInputs(sound_.here(), sound_.channels(), part, inputs_);
        plugin_.process(inputs_.from(0), outputs_.from(0), part);
        interleave(outputs_, part, stereo);
        std::transform(stereo, stereo + 2 * part, stereo, forADevice);
        if (sound_.advance(part))
            plugin_.services().jumpTo(0);
        stereo += 2 * part;
        frames -= part;
    }
}

} // namespace pedl
