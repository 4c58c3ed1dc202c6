#include "presets/MidiMap.h"

#include "parameters/ListPosition.h"

namespace pedl {

namespace {

constexpr auto kRelaxed = std::memory_order_relaxed;

constexpr std::int32_t kLinkPositions = kNumControllers + 1;          // the last one is none
constexpr std::int32_t kChannelPositions = MidiMap::kAllChannels + 1; // the first one is off
constexpr unsigned kChannelMask = 0x0F;                               // of a status byte

/// The entry of an index that has been checked.
template <typename Entries> auto& entryOf(Entries& entries, std::int32_t index) noexcept {
    return entries[static_cast<std::size_t>(index)];
}

} // namespace

void MidiMap::link(std::int32_t parameter, std::int32_t controller) noexcept {
    if (!isParameter(parameter) || !isController(controller))
        return;
    entryOf(controllerOfParameter_, parameter).store(controller, kRelaxed);
    entryOf(linkValue_, parameter).store(listValue(controller, kLinkPositions), kRelaxed);
    entryOf(parameterOfController_, controller).store(parameter, kRelaxed);
}

void MidiMap::relink(std::int32_t parameter, std::int32_t controller) noexcept {
    if (!isParameter(parameter) || !isController(controller))
        return;
    for (std::int32_t other = 0; other < kNumParams; ++other)
        if (controllerOf(other) == controller)
            forgetParameter(other);
    for (std::int32_t other = 0; other < kNumControllers; ++other)
        if (drivenBy(other) == parameter)
            forgetController(other);
    link(parameter, controller);
}

void MidiMap::forgetParameter(std::int32_t parameter) noexcept {
    if (!isParameter(parameter))
        return;
    const std::int32_t controller = controllerOf(parameter);
    unlink(parameter);
    if (isController(controller))
        entryOf(parameterOfController_, controller).store(kNone, kRelaxed);
}

void MidiMap::forgetController(std::int32_t controller) noexcept {
    if (!isController(controller))
        return;
    const std::int32_t parameter = drivenBy(controller);
    entryOf(parameterOfController_, controller).store(kNone, kRelaxed);
    if (isParameter(parameter))
        unlink(parameter);
}

void MidiMap::unlink(std::int32_t parameter) noexcept {
    entryOf(controllerOfParameter_, parameter).store(kNone, kRelaxed);
    entryOf(linkValue_, parameter).store(listValue(kNone, kLinkPositions), kRelaxed);
}

std::int32_t MidiMap::controllerOf(std::int32_t parameter) const noexcept {
    return isParameter(parameter) ? entryOf(controllerOfParameter_, parameter).load(kRelaxed)
                                  : kNone;
}

std::int32_t MidiMap::parameterOf(std::int32_t controller) const noexcept {
    const std::int32_t parameter = drivenBy(controller);
    return isController(controllerOf(parameter)) ? parameter : kNone;
}

std::int32_t MidiMap::drivenBy(std::int32_t controller) const noexcept {
    return isController(controller) ? entryOf(parameterOfController_, controller).load(kRelaxed)
                                    : kNone;
}

void MidiMap::clear() noexcept {
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        unlink(parameter);
    for (auto& parameter : parameterOfController_)
        parameter.store(kNone, kRelaxed);
}

void MidiMap::rebuild() noexcept {
    for (auto& parameter : parameterOfController_)
        parameter.store(kNone, kRelaxed);
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
        const std::int32_t controller = controllerOf(parameter);
        if (!isController(controller))
            continue;
        auto& first = entryOf(parameterOfController_, controller);
        if (first.load(kRelaxed) == kNone)
            first.store(parameter, kRelaxed);
        else
            unlink(parameter);
    }
}

float MidiMap::linkValue(std::int32_t parameter) const noexcept {
    return isParameter(parameter) ? entryOf(linkValue_, parameter).load(kRelaxed) : 0.0F;
}

void MidiMap::setLinkValue(std::int32_t parameter, float normalised) noexcept {
    if (!isParameter(parameter))
        return;
    // A zero keeps its sign: what a chunk brought is saved with the same bytes.
    entryOf(linkValue_, parameter).store(normalised >= 0.0F ? normalised : 0.0F, kRelaxed);
    const std::int32_t controller = listPosition(normalised, kLinkPositions);
    if (isController(controller)) {
        entryOf(controllerOfParameter_, parameter).store(controller, kRelaxed);
        entryOf(parameterOfController_, controller).store(parameter, kRelaxed);
        return;
    }
    // The controller's own end stays: it goes on moving the parameter until the map is rebuilt or
    // the controller linked anew. Songs that set a link to none rely on the knob staying alive.
    entryOf(controllerOfParameter_, parameter).store(kNone, kRelaxed);
}

float MidiMap::channelValue() const noexcept {
    return listValue(channel(), kChannelPositions);
}

void MidiMap::setChannelValue(float normalised) noexcept {
    channel_.store(listPosition(normalised, kChannelPositions), kRelaxed);
}

std::int32_t MidiMap::channel() const noexcept {
    return channel_.load(kRelaxed);
}

bool MidiMap::receives(std::uint8_t status) const noexcept {
    const std::int32_t selected = channel();
    if (selected == kChannelOff || selected == kAllChannels)
        return selected == kAllChannels;
    return static_cast<std::int32_t>(status & kChannelMask) == selected - 1;
}

} // namespace pedl
