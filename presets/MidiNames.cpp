#include "presets/MidiNames.h"

#include "parameters/ListPosition.h"
#include "presets/MidiMap.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace pedl {

namespace {

struct ControllerName {
    std::int32_t number;
    std::string_view name; // cut so that it fits the display with the number behind it
};

// clang-format off
constexpr std::array kControllerNames = std::to_array<ControllerName>({
    {0,   "bank sel MSB"},   {1,   "modulation"},     {2,   "breath"},         {4,   "foot"},
    {5,   "portamento"},     {6,   "data ent MSB"},   {7,   "main volume"},    {8,   "balance"},
    {10,  "pan"},            {11,  "expression"},
    {16,  "gen purp 1"},     {17,  "gen purp 2"},     {18,  "gen purp 3"},     {19,  "gen purp 4"},
    {32,  "bank sel LSB"},   {33,  "modul. LSB"},     {34,  "breath LSB"},     {36,  "foot LSB"},
    {37,  "porta LSB"},      {38,  "data ent LSB"},   {39,  "main vol LSB"},   {40,  "balance LSB"},
    {42,  "pan LSB"},        {43,  "express. LSB"},
    {64,  "sustain"},        {65,  "porta on/off"},   {66,  "sostenuto"},      {67,  "soft pedal"},
    {68,  "legato FS"},      {69,  "hold 2"},         {70,  "sound var"},      {71,  "harmonic"},
    {72,  "release time"},   {73,  "attack time"},    {74,  "brightness"},
    {80,  "gen purp 5"},     {81,  "gen purp 6"},     {82,  "gen purp 7"},     {83,  "gen purp 8"},
    {84,  "porta ctrl"},
    {91,  "ext FX"},         {92,  "tremolo"},        {93,  "chorus"},         {94,  "detune"},
    {95,  "phaser"},         {96,  "data incr"},      {97,  "data decr"},      {98,  "NRPN LSB"},
    {99,  "NRPN MSB"},       {100, "RPN LSB"},        {101, "RPN MSB"},
    {120, "all snd off"},    {121, "reset ctrl"},     {122, "local ctrl"},     {123, "all note off"},
    {124, "omni off"},       {125, "omni on"},        {126, "mono mode on"},   {127, "poly mode on"},
});
// clang-format on

/// A short text that is put together when the library is compiled.
class ShortText {
public:
    constexpr ShortText& append(std::string_view text) {
        for (const char character : text)
            characters_[length_++] = character; // beyond the end it does not compile
        return *this;
    }

    constexpr ShortText& append(std::int32_t number) {
        if (number >= 10)
            append(number / 10);
        characters_[length_++] = static_cast<char>('0' + number % 10);
        return *this;
    }

    [[nodiscard]] constexpr std::string_view view() const { return {characters_.data(), length_}; }

private:
    std::array<char, 24> characters_{};
    std::size_t length_ = 0;
};

constexpr ShortText textOfController(std::int32_t number) {
    const auto* const named = std::ranges::find(kControllerNames, number, &ControllerName::number);
    if (named == kControllerNames.end())
        return ShortText().append("control change #").append(number);
    return ShortText().append(named->name).append(" cc#").append(number);
}

constexpr ShortText textOfControllerPosition(std::int32_t position) {
    switch (position) {
    case kControllerNotAssigned:
        return ShortText().append("not assigned");
    case kAssignmentNotAvailable:
        return ShortText().append("assignment not available");
    case kNoControllerText:
        return {};
    default:
        return textOfController(position);
    }
}

constexpr ShortText textOfChannel(std::int32_t channel) {
    switch (channel) {
    case MidiMap::kChannelOff:
        return ShortText().append("OFF");
    case MidiMap::kAllChannels:
        return ShortText().append("OMNI");
    default:
        return ShortText().append("Ch ").append(channel);
    }
}

template <std::int32_t kCount> constexpr auto listOf(ShortText (*textAt)(std::int32_t)) {
    std::array<ShortText, kCount> list{};
    for (std::int32_t position = 0; position < kCount; ++position)
        list[static_cast<std::size_t>(position)] = textAt(position);
    return list;
}

constexpr auto kControllerTexts = listOf<kNumControllerTexts>(textOfControllerPosition);
constexpr auto kChannelTexts = listOf<kNumChannelTexts>(textOfChannel);
static_assert(kControllerNotAssigned == kNumControllers);
static_assert(kNumChannelTexts == MidiMap::kAllChannels + 1);

} // namespace

std::string_view controllerText(float normalised) noexcept {
    const std::int32_t position = listPosition(normalised, kNumControllerTexts);
    return kControllerTexts[static_cast<std::size_t>(position)].view();
}

std::string_view channelText(float normalised) noexcept {
    const std::int32_t position = listPosition(normalised, kNumChannelTexts);
    return kChannelTexts[static_cast<std::size_t>(position)].view();
}

} // namespace pedl
