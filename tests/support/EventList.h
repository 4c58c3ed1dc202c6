#pragma once

#include "foundation/vst24/VstStructures.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <new>
#include <vector>

namespace pedl::test {

/// Events as a host hands them to `effProcessEvents`, as many as there are.
class EventList {
public:
    EventList& addMidi(int status, int first, int second) {
        VstMidiEvent& event = events_.emplace_back();
        event.type = kVstMidiType;
        event.byteSize = sizeof event;
        event.midiData[0] = static_cast<char>(status);
        event.midiData[1] = static_cast<char>(first);
        event.midiData[2] = static_cast<char>(second);
        return add(&event);
    }

    EventList& addNull() { return add(nullptr); }

    /// The event added last, to be spoilt.
    VstMidiEvent& last() { return events_.back(); }

    /// @param extraEvents  what the list claims to hold beyond what it does
    VstEvents* list(VstInt32 extraEvents = 0) {
        constexpr std::size_t kHeadWords = offsetof(VstEvents, events) / sizeof(VstIntPtr);
        memory_.assign(kHeadWords + std::max<std::size_t>(pointers_.size(), 2), 0);
        auto* const events = new (memory_.data()) VstEvents{};
        events->numEvents = static_cast<VstInt32>(pointers_.size()) + extraEvents;
        VstEvent** const entries = events->events;
        std::ranges::copy(pointers_, entries);
        return events;
    }

private:
    EventList& add(VstMidiEvent* event) {
        pointers_.push_back(reinterpret_cast<VstEvent*>(event));
        return *this;
    }

    std::deque<VstMidiEvent> events_; // their addresses stay
    std::vector<VstEvent*> pointers_;
    std::vector<VstIntPtr> memory_;
};

} // namespace pedl::test
