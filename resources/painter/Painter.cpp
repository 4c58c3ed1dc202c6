#include "resources/painter/Painter.h"

#include "resources/painter/Drawings.h"

#include <array>
#include <cstddef>
#include <stdexcept>

namespace pedl::skin {

namespace {

struct Row {
    Drawing drawing;
    PaintFunction* paint;
};

/// In the order of Drawing.
constexpr std::array kPainters{
    Row{Drawing::Background, paintBackground},
    Row{Drawing::About, paintAbout},
    Row{Drawing::PowerSwitch, paintPowerSwitch},
    Row{Drawing::FreezeSwitch, paintFreezeSwitch},
    Row{Drawing::MixKey, paintMixKey},
    Row{Drawing::LinkKey, paintLinkKey},
    Row{Drawing::ModulationKey, paintModulationKey},
    Row{Drawing::SyncSwitch, paintSyncSwitch},
    Row{Drawing::ModeSwitch, paintModeSwitch},
    Row{Drawing::SlideSwitch, paintSlideSwitch},
    Row{Drawing::WaveChoice, paintWaveChoice},
    Row{Drawing::WaveList, paintWaveList},
    Row{Drawing::WaveHover, paintWaveHover},
    Row{Drawing::HertzTicks, paintHertzTicks},
    Row{Drawing::NoteTicks, paintNoteTicks},
    Row{Drawing::DialGroove, paintDialGroove},
    Row{Drawing::DialNeedle, paintDialNeedle},
    Row{Drawing::DialNumbers, paintDialNumbers},
    Row{Drawing::HostTempoDigits, paintHostTempoDigits},
    Row{Drawing::TempoDigits, paintTempoDigits},
    Row{Drawing::RateDigits, paintRateDigits},
    Row{Drawing::CutoffDigits, paintCutoffDigits},
    Row{Drawing::DisplayGlass, paintDisplayGlass},
    Row{Drawing::DisplayGlassLeft, paintDisplayGlassLeft},
    Row{Drawing::DisplayGlassRight, paintDisplayGlassRight},
    Row{Drawing::LampOff, paintLampOff},
    Row{Drawing::LampAmber, paintLampAmber},
    Row{Drawing::LampRuby, paintLampRuby},
    Row{Drawing::LampIce, paintLampIce},
    Row{Drawing::Encoder, paintEncoder},
    Row{Drawing::SmallKnob, paintSmallKnob},
    Row{Drawing::SmallKnobTall, paintSmallKnob},
    Row{Drawing::SpreadKnob, paintMediumKnob},
    Row{Drawing::ThresholdKnob, paintMediumKnob},
    Row{Drawing::LargeKnob, paintLargeKnob},
    Row{Drawing::DepthKnob, paintMediumKnob},
    Row{Drawing::EnvelopeKnob, paintMediumKnob},
    Row{Drawing::LimiterKey, paintLimiterKey},
    Row{Drawing::SaturatorKey, paintSaturatorKey},
    Row{Drawing::FollowerToCutoffKey, paintFollowerToCutoffKey},
    Row{Drawing::FollowerToGainKey, paintFollowerToGainKey},
    Row{Drawing::LfoToCutoffKey, paintLfoToCutoffKey},
    Row{Drawing::LfoToGainKey, paintLfoToGainKey},
    Row{Drawing::RateKey, paintRateKey},
    Row{Drawing::DepthKey, paintDepthKey},
    Row{Drawing::DryKey, paintDryKey},
    Row{Drawing::WetKey, paintWetKey},
    Row{Drawing::RandomKey, paintRandomKey},
    Row{Drawing::ThresholdMode, paintThresholdMode},
    Row{Drawing::LockOverlay, paintLockOverlay},
    Row{Drawing::MixScopeKey, paintMixScopeKey},
    Row{Drawing::ResetKey, paintResetKey},
    Row{Drawing::MidiLamp, paintMidiLamp},
    Row{Drawing::HintsKey, paintHintsKey},
    Row{Drawing::PresetWord, paintPresetWord},
    Row{Drawing::ManualKey, paintManualKey},
    Row{Drawing::BankWord, paintBankWord},
    Row{Drawing::LoadKey, paintLoadKey},
    Row{Drawing::SaveKey, paintSaveKey},
    Row{Drawing::MidiWord, paintMidiWord},
    Row{Drawing::Rocker, paintRocker},
    Row{Drawing::LearnKey, paintLearnKey},
    Row{Drawing::BarGround, paintBarGround},
};
static_assert(kPainters.size() == static_cast<std::size_t>(Drawing::kCount));
static_assert([] {
    for (std::size_t i = 0; i < kPainters.size(); ++i)
        if (kPainters[i].drawing != static_cast<Drawing>(i))
            return false;
    return true;
}());

} // namespace

Picture paintFrame(Drawing drawing, int frame, int scale) {
    const SkinBitmap& size = firstBitmapOf(drawing);
    if (frame < 0 || frame >= size.frames || (scale != 1 && scale != 2))
        throw std::out_of_range("no such frame or scale");
    return kPainters[static_cast<std::size_t>(drawing)].paint(size, frame, scale);
}

Picture paint(Drawing drawing, int scale) {
    const SkinBitmap& size = firstBitmapOf(drawing);
    Picture strip{size.width * scale, size.height() * scale, {}};
    strip.pixels.reserve(static_cast<std::size_t>(strip.width) *
                         static_cast<std::size_t>(strip.height));
    for (int frame = 0; frame < size.frames; ++frame) {
        const Picture picture = paintFrame(drawing, frame, scale);
        strip.pixels.insert(strip.pixels.end(), picture.pixels.begin(), picture.pixels.end());
    }
    return strip;
}

} // namespace pedl::skin
