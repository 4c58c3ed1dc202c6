#include "presets/MidiMap.h"

#include "parameters/ListPosition.h"

namespace pedl {

namespace {

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
    entryOf(controllerOfParameter_, parameter).set(controller);
    entryOf(linkValue_, parameter).set(listValue(controller, kLinkPositions));
    entryOf(parameterOfController_, controller).set(parameter);
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
        entryOf(parameterOfController_, controller).set(kNone);
}

void MidiMap::forgetController(std::int32_t controller) noexcept {
    if (!isController(controller))
        return;
    const std::int32_t parameter = drivenBy(controller);
    entryOf(parameterOfController_, controller).set(kNone);
    if (isParameter(parameter))
        unlink(parameter);
}

void MidiMap::unlink(std::int32_t parameter) noexcept {
    entryOf(controllerOfParameter_, parameter).set(kNone);
    entryOf(linkValue_, parameter).set(listValue(kNone, kLinkPositions));
}

std::int32_t MidiMap::controllerOf(std::int32_t parameter) const noexcept {
    return isParameter(parameter) ? entryOf(controllerOfParameter_, parameter).get() : kNone;
}

std::int32_t MidiMap::parameterOf(std::int32_t controller) const noexcept {
    const std::int32_t parameter = drivenBy(controller);
    return isController(controllerOf(parameter)) ? parameter : kNone;
}

std::int32_t MidiMap::drivenBy(std::int32_t controller) const noexcept {
    return isController(controller) ? entryOf(parameterOfController_, controller).get() : kNone;
}

void MidiMap::clear() noexcept {
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        unlink(parameter);
    for (auto& parameter : parameterOfController_)
        parameter.set(kNone);
}

void MidiMap::rebuild() noexcept {
    for (auto& parameter : parameterOfController_)
        parameter.set(kNone);
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
        const std::int32_t controller = controllerOf(parameter);
        if (!isController(controller))
            continue;
        auto& first = entryOf(parameterOfController_, controller);
        if (first.get() == kNone)
            first.set(parameter);
        else
            unlink(parameter);
    }
}

float MidiMap::linkValue(std::int32_t parameter) const noexcept {
    return isParameter(parameter) ? entryOf(linkValue_, parameter).get() : 0.0F;
}

void MidiMap::setLinkValue(std::int32_t parameter, float normalised) noexcept {
    if (!isParameter(parameter))
        return;
    // A zero keeps its sign: what a chunk brought is saved with the same bytes.
    entryOf(linkValue_, parameter).set(normalised >= 0.0F ? normalised : 0.0F);
    const std::int32_t controller = listPosition(normalised, kLinkPositions);
    if (isController(controller)) {
        entryOf(controllerOfParameter_, parameter).set(controller);
        entryOf(parameterOfController_, controller).set(parameter);
        return;
    }
    // The controller's own end stays: it goes on moving the parameter until the map is rebuilt or
    // the controller linked anew. Songs that set a link to none rely on the knob staying alive.
    entryOf(controllerOfParameter_, parameter).set(kNone);
}

float MidiMap::channelValue() const noexcept {
    return listValue(channel(), kChannelPositions);
}

void MidiMap::setChannelValue(float normalised) noexcept {
    channel_.set(listPosition(normalised, kChannelPositions));
}

std::int32_t MidiMap::channel() const noexcept {
    return channel_.get();
}

bool MidiMap::receives(std::uint8_t status) const noexcept {
    const std::int32_t selected = channel();
    if (selected == kChannelOff || selected == kAllChannels)
        return selected == kAllChannels;
    return static_cast<std::int32_t>(status & kChannelMask) == selected - 1;
}

} // namespace pedl
