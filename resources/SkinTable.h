#pragma once

#include <array>
#include <cstdint>

namespace pedl::skin {

/// What a bitmap shows. Bitmaps that look the same share a drawing: it is drawn and stored once.
enum class Drawing : std::uint8_t {
    Background,
    About,
    PowerSwitch,
    FreezeSwitch,
    MixKey,
    LinkKey,
    ModulationKey,
    SyncSwitch,
    ModeSwitch,
    SlideSwitch,
    WaveChoice,
    WaveList,
    WaveHover,
    HertzTicks,
    NoteTicks,
    DialGroove,
    DialNeedle,
    DialNumbers,
    HostTempoDigits,
    TempoDigits,
    RateDigits,
    CutoffDigits,
    DisplayGlass,
    DisplayGlassLeft,
    DisplayGlassRight,
    LampOff,
    LampAmber,
    LampRuby,
    LampIce,
    Encoder,
    SmallKnob,
    SmallKnobTall,
    SpreadKnob,
    ThresholdKnob,
    LargeKnob,
    DepthKnob,
    EnvelopeKnob,
    LimiterKey,
    SaturatorKey,
    FollowerToCutoffKey,
    FollowerToGainKey,
    LfoToCutoffKey,
    LfoToGainKey,
    RateKey,
    DepthKey,
    DryKey,
    WetKey,
    RandomKey,
    ThresholdMode,
    LockOverlay,
    MixScopeKey,
    ResetKey,
    MidiLamp,
    HintsKey,
    PresetWord,
    ManualKey,
    BankWord,
    LoadKey,
    SaveKey,
    MidiWord,
    Rocker,
    LearnKey,
    BarGround,
    kCount
};

/// A bitmap of the skin: `frames` pictures of one size, one below the other. Lengths are pixels at
/// scale 1; at scale 2 everything is twice as large.
struct SkinBitmap {
    std::int32_t id;
    std::int32_t width;
    std::int32_t frameHeight;
    std::int32_t frames;
    Drawing drawing;

    [[nodiscard]] constexpr std::int32_t height() const { return frameHeight * frames; }
};

/// Every bitmap of the skin, the one list: painter, packer and editor read it.
inline constexpr std::array kSkinBitmaps{
    SkinBitmap{12100, 521, 544, 1, Drawing::Background},
    SkinBitmap{12200, 521, 544, 1, Drawing::About},
    SkinBitmap{12110, 67, 60, 2, Drawing::PowerSwitch},
    SkinBitmap{12111, 67, 60, 2, Drawing::FreezeSwitch},
    SkinBitmap{12115, 27, 22, 4, Drawing::MixKey},
    SkinBitmap{12116, 11, 20, 4, Drawing::LinkKey},
    SkinBitmap{12117, 260, 15, 2, Drawing::ModulationKey},
    SkinBitmap{12131, 61, 58, 3, Drawing::SyncSwitch},
    SkinBitmap{12132, 61, 58, 3, Drawing::ModeSwitch},
    SkinBitmap{12133, 61, 46, 3, Drawing::SlideSwitch},
    SkinBitmap{12135, 61, 46, 3, Drawing::SlideSwitch},
    SkinBitmap{12139, 42, 28, 6, Drawing::WaveChoice},
    SkinBitmap{12140, 42, 28, 7, Drawing::WaveList},
    SkinBitmap{12141, 42, 28, 7, Drawing::WaveHover},
    SkinBitmap{12142, 461, 18, 1, Drawing::HertzTicks},
    SkinBitmap{12146, 461, 18, 1, Drawing::NoteTicks},
    SkinBitmap{12145, 461, 18, 1, Drawing::DialGroove},
    SkinBitmap{12143, 17, 18, 1, Drawing::DialNeedle},
    SkinBitmap{12144, 454, 10, 2, Drawing::DialNumbers},
    SkinBitmap{12148, 27, 41, 13, Drawing::HostTempoDigits},
    SkinBitmap{12151, 27, 41, 13, Drawing::TempoDigits},
    SkinBitmap{12152, 27, 41, 13, Drawing::RateDigits},
    SkinBitmap{12153, 27, 41, 13, Drawing::CutoffDigits},
    SkinBitmap{12155, 135, 41, 1, Drawing::DisplayGlass},
    SkinBitmap{12156, 81, 41, 1, Drawing::DisplayGlassLeft},
    SkinBitmap{12157, 54, 41, 1, Drawing::DisplayGlassRight},
    SkinBitmap{12160, 12, 12, 1, Drawing::LampOff},
    SkinBitmap{12161, 12, 12, 1, Drawing::LampAmber},
    SkinBitmap{12162, 12, 12, 1, Drawing::LampRuby},
    SkinBitmap{12163, 12, 12, 1, Drawing::LampIce},
    SkinBitmap{12172, 70, 70, 101, Drawing::Encoder},
    SkinBitmap{12173, 70, 70, 101, Drawing::Encoder},
    SkinBitmap{12176, 28, 26, 101, Drawing::SmallKnob},
    SkinBitmap{12192, 28, 26, 101, Drawing::SmallKnob},
    SkinBitmap{12193, 28, 28, 101, Drawing::SmallKnobTall},
    SkinBitmap{12194, 28, 26, 101, Drawing::SmallKnob},
    SkinBitmap{12195, 28, 26, 101, Drawing::SmallKnob},
    SkinBitmap{12196, 28, 26, 101, Drawing::SmallKnob},
    SkinBitmap{12197, 28, 26, 101, Drawing::SmallKnob},
    SkinBitmap{12198, 28, 26, 101, Drawing::SmallKnob},
    SkinBitmap{12199, 28, 26, 101, Drawing::SmallKnob},
    SkinBitmap{12177, 35, 35, 101, Drawing::SpreadKnob},
    SkinBitmap{12188, 35, 34, 101, Drawing::ThresholdKnob},
    SkinBitmap{12179, 52, 49, 101, Drawing::LargeKnob},
    SkinBitmap{12180, 52, 49, 101, Drawing::LargeKnob},
    SkinBitmap{12181, 52, 49, 101, Drawing::LargeKnob},
    SkinBitmap{12182, 52, 49, 101, Drawing::LargeKnob},
    SkinBitmap{12183, 52, 49, 101, Drawing::LargeKnob},
    SkinBitmap{12184, 52, 49, 101, Drawing::LargeKnob},
    SkinBitmap{12185, 52, 49, 101, Drawing::LargeKnob},
    SkinBitmap{12186, 40, 37, 101, Drawing::DepthKnob},
    SkinBitmap{12187, 40, 37, 101, Drawing::DepthKnob},
    SkinBitmap{12189, 40, 40, 101, Drawing::EnvelopeKnob},
    SkinBitmap{12190, 40, 40, 101, Drawing::EnvelopeKnob},
    SkinBitmap{12191, 40, 40, 101, Drawing::EnvelopeKnob},
    SkinBitmap{12287, 19, 13, 2, Drawing::LimiterKey},
    SkinBitmap{12295, 28, 19, 2, Drawing::SaturatorKey},
    SkinBitmap{12290, 55, 14, 2, Drawing::FollowerToCutoffKey},
    SkinBitmap{12301, 55, 14, 2, Drawing::FollowerToGainKey},
    SkinBitmap{12292, 55, 14, 2, Drawing::LfoToCutoffKey},
    SkinBitmap{12291, 55, 14, 2, Drawing::LfoToGainKey},
    SkinBitmap{12293, 31, 14, 2, Drawing::RateKey},
    SkinBitmap{12294, 37, 14, 2, Drawing::DepthKey},
    SkinBitmap{12296, 27, 14, 2, Drawing::DryKey},
    SkinBitmap{12297, 27, 14, 2, Drawing::WetKey},
    SkinBitmap{12308, 36, 14, 2, Drawing::RandomKey},
    SkinBitmap{12305, 48, 22, 3, Drawing::ThresholdMode},
    SkinBitmap{12310, 264, 17, 1, Drawing::LockOverlay},
    SkinBitmap{19001, 17, 15, 2, Drawing::MixScopeKey},
    SkinBitmap{19973, 22, 15, 3, Drawing::ResetKey},
    SkinBitmap{19975, 11, 11, 2, Drawing::MidiLamp},
    SkinBitmap{19979, 15, 16, 3, Drawing::HintsKey},
    SkinBitmap{19980, 620, 34, 1, Drawing::BarGround},
    SkinBitmap{19988, 50, 10, 3, Drawing::PresetWord},
    SkinBitmap{19989, 16, 14, 3, Drawing::ManualKey},
    SkinBitmap{19990, 39, 10, 3, Drawing::BankWord},
    SkinBitmap{19991, 12, 14, 3, Drawing::LoadKey},
    SkinBitmap{19995, 12, 14, 3, Drawing::SaveKey},
    SkinBitmap{19994, 35, 10, 3, Drawing::MidiWord},
    SkinBitmap{19997, 31, 14, 5, Drawing::Rocker},
    SkinBitmap{19998, 22, 15, 3, Drawing::LearnKey},
    SkinBitmap{19999, 22, 15, 3, Drawing::LearnKey},
};

/// The bitmap of that identifier, null where there is none.
constexpr const SkinBitmap* findSkinBitmap(std::int32_t id) {
    for (const SkinBitmap& bitmap : kSkinBitmaps)
        if (bitmap.id == id)
            return &bitmap;
    return nullptr;
}

/// The first bitmap that shows a drawing: all that do have the same size and number of frames.
constexpr const SkinBitmap& firstBitmapOf(Drawing drawing) {
    for (const SkinBitmap& bitmap : kSkinBitmaps)
        if (bitmap.drawing == drawing)
            return bitmap;
    return kSkinBitmaps.front();
}

static_assert(
    [] {
        for (const SkinBitmap& bitmap : kSkinBitmaps) {
            const SkinBitmap& first = firstBitmapOf(bitmap.drawing);
            if (findSkinBitmap(bitmap.id) != &bitmap || first.width != bitmap.width ||
                first.frameHeight != bitmap.frameHeight || first.frames != bitmap.frames)
                return false;
        }
        for (int drawing = 0; drawing < static_cast<int>(Drawing::kCount); ++drawing)
            if (firstBitmapOf(static_cast<Drawing>(drawing)).drawing !=
                static_cast<Drawing>(drawing))
                return false;
        return true;
    }(),
    "an identifier twice, a drawing of two sizes, or a drawing that no bitmap shows");

} // namespace pedl::skin
