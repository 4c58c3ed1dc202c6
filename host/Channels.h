#pragma once

#include "foundation/vst24/VstTypes.h"

#include <vector>

namespace pedl {

/// The buffers of one block, one channel after the other, and the pointers plug-ins take.
template <typename Sample> class Channels {
public:
    Channels(int count, VstInt32 frames)
        : samples_(static_cast<std::size_t>(count) * static_cast<std::size_t>(frames)) {
        for (int channel = 0; channel < count; ++channel)
            pointers_.push_back(samples_.data() + static_cast<std::ptrdiff_t>(channel) * frames);
        pointers_.push_back(nullptr); // never an empty list, even without channels
        shifted_ = pointers_;
    }

    /// To the samples of all channels from `frame` on; good until the next call.
    Sample* const* from(VstInt32 frame) const {
        for (int channel = 0; channel < count(); ++channel)
            shifted_[static_cast<std::size_t>(channel)] = (*this)[channel] + frame;
        return shifted_.data();
    }
    Sample* operator[](int channel) const { return pointers_[static_cast<std::size_t>(channel)]; }
    int count() const { return static_cast<int>(pointers_.size()) - 1; }

private:
    std::vector<Sample> samples_;
    std::vector<Sample*> pointers_;
    mutable std::vector<Sample*> shifted_;
};

/// Spreads interleaved frames, mono or stereo, over the plug-in's inputs: both sides of a stereo
/// file go into a single input as their mean; further inputs keep their silence.
template <typename Sample>
void fillInputs(const Sample* interleaved, int channels, VstInt32 frames,
                const Channels<Sample>& inputs) {
    for (VstInt32 frame = 0; frame < frames; ++frame) {
        const Sample* const in = interleaved + static_cast<std::ptrdiff_t>(frame) * channels;
        const Sample left = in[0];
        const Sample right = in[channels - 1];
        if (inputs.count() == 1) {
            inputs[0][frame] = (left + right) / 2;
        } else {
            inputs[0][frame] = left;
            inputs[1][frame] = right;
        }
    }
}

/// The first two outputs as stereo frames; a single one goes to both sides.
template <typename Sample>
void interleave(const Channels<Sample>& outputs, VstInt32 frames, Sample* stereo) {
    const Sample* const left = outputs[0];
    const Sample* const right = outputs[outputs.count() > 1 ? 1 : 0];
    for (VstInt32 frame = 0; frame < frames; ++frame) {
        *stereo++ = left[frame];
        *stereo++ = right[frame];
    }
}

} // namespace pedl
