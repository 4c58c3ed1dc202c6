#pragma once

#include "resources/painter/Painter.h"

namespace pedl::skin {

// What draws a frame of each bitmap. All take the bitmap's row of the table, the frame and the
// scale.

using PaintFunction = Picture(const SkinBitmap& size, int frame, int scale);

// Turned parts
PaintFunction paintEncoder, paintLargeKnob, paintMediumKnob, paintSmallKnob;
PaintFunction paintPowerSwitch, paintFreezeSwitch;
PaintFunction paintLampOff, paintLampAmber, paintLampRuby, paintLampIce, paintMidiLamp;

// Keys and slides
PaintFunction paintLfoToCutoffKey, paintLfoToGainKey, paintFollowerToCutoffKey,
    paintFollowerToGainKey;
PaintFunction paintRateKey, paintDepthKey, paintDryKey, paintWetKey, paintLimiterKey,
    paintSaturatorKey, paintRandomKey, paintMixScopeKey, paintModulationKey;
PaintFunction paintSyncSwitch, paintModeSwitch, paintSlideSwitch;
PaintFunction paintMixKey, paintLinkKey, paintThresholdMode, paintLockOverlay;

// Glass
PaintFunction paintCutoffDigits, paintRateDigits, paintTempoDigits, paintHostTempoDigits;
PaintFunction paintDisplayGlass, paintDisplayGlassLeft, paintDisplayGlassRight;
PaintFunction paintWaveList, paintWaveHover, paintWaveChoice;
PaintFunction paintDialGroove, paintDialNeedle, paintHertzTicks, paintNoteTicks, paintDialNumbers;

// Preset bar
PaintFunction paintLoadKey, paintSaveKey, paintBankWord, paintPresetWord, paintMidiWord,
    paintRocker, paintLearnKey, paintResetKey, paintManualKey, paintHintsKey, paintBarGround;

// Whole pictures
PaintFunction paintBackground, paintAbout;

} // namespace pedl::skin
