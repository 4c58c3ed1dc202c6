#include "host/MidiPlayback.h"

#include <algorithm>
#include <cmath>

namespace pedl {

namespace {

VstMidiEvent eventOf(const ChannelMessage& message) {
    VstMidiEvent event{};
    std::transform(message.bytes.begin(), message.bytes.end(), event.midiData,
                   [](std::uint8_t byte) { return static_cast<char>(byte); });
    return event;
}

/// Walks through a file's time and tells what a tick is in seconds and in quarter notes.
class Ruler {
public:
    Ruler(const MidiFile& file, double tempoBpm) : file_(file) {
        transport_.tempoBpm = tempoBpm;
        transport_.isPlaying = true;
    }

    [[nodiscard]] const Transport& transport() const { return transport_; }

    [[nodiscard]] double secondsAt(std::int64_t ticks) const {
        const auto since = static_cast<double>(ticks - fromTicks_);
        return transport_.fromSeconds +
               (file_.ticksPerSecond > 0.0
                    ? since / file_.ticksPerSecond
                    : since / file_.ticksPerQuarter * 60.0 / transport_.tempoBpm);
    }

    void change(std::int64_t ticks, TempoChange tempo) {
        moveTo(ticks);
        transport_.tempoBpm = tempo.bpm;
    }

    void change(std::int64_t ticks, SignatureChange signature) {
        moveTo(ticks);
        transport_.fromBarQuarters = transport_.fromQuarters;
        transport_.beatsPerBar = signature.beatsPerBar;
        transport_.beatUnit = signature.beatUnit;
    }

private:
    void moveTo(std::int64_t ticks) {
        const double seconds = secondsAt(ticks);
        const double quarters =
            file_.ticksPerQuarter > 0.0
                ? transport_.fromQuarters +
                      static_cast<double>(ticks - fromTicks_) / file_.ticksPerQuarter
                : transport_.quartersAt(seconds);
        transport_.fromBarQuarters = transport_.barStartAt(quarters);
        transport_.fromQuarters = quarters;
        transport_.fromSeconds = seconds;
        fromTicks_ = ticks;
    }

    const MidiFile& file_;
    std::int64_t fromTicks_ = 0; // where `transport_` begins
    Transport transport_;
};

} // namespace

MidiPlayback::MidiPlayback(const MidiFile& file, double tempoBpm, double sampleRateHz) {
    Ruler ruler(file, tempoBpm);
    changes_.push_back({0, ruler.transport()});
    for (const MidiFile::Event& event : file.events) {
        const std::int64_t frame = std::llround(ruler.secondsAt(event.ticks) * sampleRateHz);
        if (const auto* const message = std::get_if<ChannelMessage>(&event.content)) {
            messages_.push_back({frame, eventOf(*message)});
            continue;
        }
        if (const auto* const tempo = std::get_if<TempoChange>(&event.content))
            ruler.change(event.ticks, *tempo);
        else if (const auto* const signature = std::get_if<SignatureChange>(&event.content))
            ruler.change(event.ticks, *signature);
        changes_.push_back({frame, ruler.transport()});
    }
}

void MidiPlayback::playTo(Plugin& plugin) {
    const std::int64_t frame = plugin.services().positionFrames();
    for (; nextChange_ < changes_.size() && changes_[nextChange_].frame <= frame; ++nextChange_)
        plugin.services().transport = changes_[nextChange_].transport;
    if (!plugin.isRunning())
        return;
    due_.clear();
    for (; nextMessage_ < messages_.size() && messages_[nextMessage_].frame <= frame;
         ++nextMessage_)
        due_.push_back(messages_[nextMessage_].event);
    if (!due_.empty())
        plugin.sendMidi(due_);
}

VstInt32 MidiPlayback::framesToNext(std::int64_t frame, VstInt32 most) const {
    std::int64_t next = frame + most;
    if (nextChange_ < changes_.size())
        next = std::min(next, changes_[nextChange_].frame);
    if (nextMessage_ < messages_.size())
        next = std::min(next, messages_[nextMessage_].frame);
    return static_cast<VstInt32>(std::max<std::int64_t>(next - frame, 1));
}

} // namespace pedl
