#include "parameters/ValueText.h"

#include "parameters/NoteDivision.h"
#include "parameters/NumberText.h"
#include "parameters/ValueLaws.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pedl {

namespace {

// The laws are those of the engine, in double precision from the float that the host holds; the
// last step to a number text is in single precision.

int truncated(double value) {
    return static_cast<int>(value);
}

DisplayText numberOf(double value, int decimals) {
    return numberText(static_cast<float>(value), decimals);
}

/// Off below one half, on from there.
DisplayText twoWay(double v, const char* off, const char* on) {
    return laws::twoWayState(v) == 0 ? off : on;
}

/// Three positions that change at one quarter and three quarters.
DisplayText threeWay(double v, const std::array<const char*, 3>& texts) {
    return texts[static_cast<std::size_t>(laws::threeWayState(v))];
}

DisplayText waveText(double v) {
    constexpr std::array<const char*, 7> kWaves{"sin", "tri",   "sawUp", "sawDown",
                                                "sqr", "spike", "rnd"};
    return kWaves[static_cast<std::size_t>(laws::waveState(v))];
}

/// Values just below 0 dB read "0.0", not "-0.0". Single precision throughout.
DisplayText gainText(float v) {
    const float gainDb = laws::inputGainDb(v);
    return numberText(gainDb > -0.1F ? std::max(0.0F, gainDb) : gainDb, 1);
}

DisplayText ratioText(const char* left, int first, const char* right, int second) {
    DisplayText text(left);
    text.appendInteger(first);
    text.append(':');
    text.append(right);
    text.appendInteger(second);
    return text;
}

DisplayText widthText(double v) {
    const int offset = truncated(50.0 * v - 25.0);
    return ratioText("", 50 - offset, "", 50 + offset);
}

DisplayText morphText(double v) {
    if (v < 0.05)
        return "LPF";
    if (v > 0.95)
        return "HPF";
    if (v > 0.475 && v < 0.525)
        return "BPF";
    if (v < 0.5) {
        const int tenths = truncated(20.0 * v);
        return ratioText("L", 10 - tenths, "B", tenths);
    }
    const int tenths = truncated((v - 0.475) * 20.0);
    return ratioText("B", 10 - tenths, "H", tenths);
}

DisplayText thresholdText(double v) {
    constexpr double kFloorDb = -96.0;
    return decibelText(std::sqrt(1.0 / laws::thresholdFactor(v)), kFloorDb);
}

DisplayText attackText(double v) {
    const double attackMs = laws::attackMs(laws::attackBend(v));
    return numberOf(attackMs, attackMs < 10.0 ? 1 : 0);
}

DisplayText extensionText(double v) {
    const double factor = laws::holdExtension(v);
    if (factor < 0.005)
        return "off";
    DisplayText text("x");
    text.append(oneDecimalText(factor).view());
    return text;
}

} // namespace

DisplayText valueText(TextRule rule, float normalised) {
    const auto v = static_cast<double>(normalised);
    // clang-format off
    switch (rule) {
    case TextRule::Empty: return {};
    case TextRule::Process: return twoWay(v, "process", "bypass");
    case TextRule::OnOff: return twoWay(v, "off", "on");
    case TextRule::FreezeMode: return threeWay(v, {"monoOn", "monoOff", "bistable"});
    case TextRule::SyncMode: return threeWay(v, {"off", "BPM", "hostBPM"});
    case TextRule::Slope: return threeWay(v, {"off", "12 dB", "24 dB"});
    case TextRule::ThresholdMode: return threeWay(v, {"abovethrs", "belowthrs", "around"});
    case TextRule::Routing: return threeWay(v, {"pre WET", "post WET", "post MIX"});
    case TextRule::Wave: return waveText(v);
    case TextRule::RandomType: return twoWay(v, "fastRND", "slowRND");
    case TextRule::LevelSource: return twoWay(v, "preset", "bank");
    case TextRule::Modulation: return twoWay(v, "Mod on", "Mod off");
    case TextRule::NoteScale: return twoWay(v, "freq", "note");
    case TextRule::ShownQuantity: return v == 0.0 ? "Freq" : "LFO";
    case TextRule::GainDb: return gainText(normalised);
    case TextRule::Percent: return numberOf(100.0 * v, 0);
    case TextRule::BipolarPercent: return numberOf(200.0 * v - 100.0, 0);
    case TextRule::SpreadDegrees: return numberOf(360.0 * v - 180.0, 0);
    case TextRule::WidthRatio: return widthText(v);
    case TextRule::LfoRateHz: return numberOf(laws::lfoRateHz(v), 2);
    case TextRule::TempoBpm: return numberOf(laws::tempoBpm(v), 1);
    case TextRule::Note: return noteDivisionText(kNoteDivisions[noteDivisionIndex(normalised)]);
    case TextRule::FilterMorph: return morphText(v);
    case TextRule::CutoffHz: return numberOf(laws::kLowestCutoffHz * laws::cutoffRatio(v), 0);
    case TextRule::ThresholdDb: return thresholdText(v);
    case TextRule::AttackMs: return attackText(v);
    case TextRule::ExtensionFactor: return extensionText(v);
    case TextRule::ReleaseMs: return numberOf(laws::releaseMs(v), 0);
    case TextRule::LevelDb: return decibelText(laws::dryWetLevel(v));
    }
    // clang-format on
    return {};
}

std::string_view valueUnit(TextRule rule) noexcept {
    switch (rule) {
    case TextRule::GainDb:
    case TextRule::ThresholdDb:
    case TextRule::LevelDb:
        return "dB";
    case TextRule::Percent:
    case TextRule::BipolarPercent:
        return "%";
    case TextRule::SpreadDegrees:
        return "deg";
    case TextRule::LfoRateHz:
    case TextRule::CutoffHz:
        return "Hz";
    case TextRule::TempoBpm:
        return "BPM";
    case TextRule::AttackMs:
    case TextRule::ReleaseMs:
        return "ms";
    default:
        return {};
    }
}

} // namespace pedl
