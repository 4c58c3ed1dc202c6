#include "parameters/ValueText.h"

#include <cmath>
#include <gtest/gtest.h>
#include <initializer_list>
#include <vector>

namespace pedl {
namespace {

/// What follows a position: the text from there up to the next one.
struct Change {
    float from;
    const char* text;
};

float justBelow(float value) {
    return std::nextafter(value, 0.0F);
}

void expectChanges(TextRule rule, std::initializer_list<Change> changes) {
    const std::vector<Change> list(changes);
    for (std::size_t i = 0; i < list.size(); ++i) {
        SCOPED_TRACE(testing::Message() << list[i].text << " from " << list[i].from);
        const float end = i + 1 < list.size() ? justBelow(list[i + 1].from) : 1.0F;
        EXPECT_EQ(valueText(rule, list[i].from).view(), list[i].text);
        EXPECT_EQ(valueText(rule, end).view(), list[i].text);
    }
}

TEST(ValueText, SelectorsChangeWhereTheirPositionsBegin) {
    // clang-format off
    expectChanges(TextRule::Process,     {{0.0F, "process"}, {0.5F, "bypass"}});
    expectChanges(TextRule::OnOff,       {{0.0F, "off"}, {0.5F, "on"}});
    expectChanges(TextRule::RandomType,  {{0.0F, "fastRND"}, {0.5F, "slowRND"}});
    expectChanges(TextRule::LevelSource, {{0.0F, "preset"}, {0.5F, "bank"}});
    expectChanges(TextRule::Modulation,  {{0.0F, "Mod on"}, {0.5F, "Mod off"}});
    expectChanges(TextRule::NoteScale,   {{0.0F, "freq"}, {0.5F, "note"}});
    expectChanges(TextRule::FreezeMode,  {{0.0F, "monoOn"}, {0.25F, "monoOff"}, {0.75F, "bistable"}});
    expectChanges(TextRule::SyncMode,    {{0.0F, "off"}, {0.25F, "BPM"}, {0.75F, "hostBPM"}});
    expectChanges(TextRule::Slope,       {{0.0F, "off"}, {0.25F, "12 dB"}, {0.75F, "24 dB"}});
    expectChanges(TextRule::Routing,     {{0.0F, "pre WET"}, {0.25F, "post WET"}, {0.75F, "post MIX"}});
    // cut to eight characters
    expectChanges(TextRule::ThresholdMode,
                  {{0.0F, "abovethrs"}, {0.25F, "belowthrs"}, {0.75F, "around"}});
    expectChanges(TextRule::Wave, {{0.0F, "sin"}, {0.16666667F, "tri"}, {0.33333334F, "sawUp"},
        {0.5F, "sawDown"}, {0.6666667F, "sqr"}, {0.8333334F, "spike"}, {1.0F, "rnd"}});
    // clang-format on
}

TEST(ValueText, NumbersFollowTheirLaws) {
    using T = TextRule;
    struct Row {
        TextRule rule;
        float v;
        const char* text;
    };
    // clang-format off
    for (const Row& row : {
        Row{T::ShownQuantity, 0.0F, "Freq"},  Row{T::ShownQuantity, 0.1F, "LFO"},
        Row{T::Percent, 0.3F, "30"},          Row{T::Percent, 1.0F, "100"},
        Row{T::SpreadDegrees, 0.0F, "-180"},  Row{T::SpreadDegrees, 0.75F, "90"},
        Row{T::WidthRatio, 0.0F, "75:25"},    Row{T::WidthRatio, 0.75F, "38:62"}, // 12.5, cut
        Row{T::LfoRateHz, 0.0F, "0.01"},      Row{T::LfoRateHz, 0.0004F, "0.02"}, // 0.015996
        Row{T::LfoRateHz, 0.066044F, "1.00"}, Row{T::LfoRateHz, 1.0F, "15.00"},
        Row{T::TempoBpm, 0.0F, "15.0"},       Row{T::TempoBpm, 1.0F, "600.0"},
        Row{T::Note, 0.0F, "8:1 "},           Row{T::Note, 1.0F, "1:64 "},
        Row{T::CutoffHz, 0.0F, "20"},         Row{T::CutoffHz, 0.5F, "632"}, // 20 sqrt(1000)
        Row{T::ReleaseMs, 0.5F, "300"},       // 3 x 1000^0.66666
        Row{T::ReleaseMs, 1.0F, "3000"},
        // Just below unity there is no minus zero, just below a percentage's middle there is one.
        Row{T::GainDb, 0.0F, "-24.0"},  Row{T::GainDb, 0.498F, "0.0"}, // -0.096 dB
        Row{T::GainDb, 0.4975F, "-0.1"},                               // -0.12 dB
        Row{T::BipolarPercent, 0.499F, "-0"}, Row{T::BipolarPercent, 0.5F, "0"},
        Row{T::BipolarPercent, 1.0F, "100"},
        // The morph names its plain types and counts tenths between them.
        Row{T::FilterMorph, 0.049F, "LPF"},   Row{T::FilterMorph, 0.05F, "L9:B1"},
        Row{T::FilterMorph, 0.26F, "L5:B5"},  Row{T::FilterMorph, 0.474F, "L1:B9"},
        Row{T::FilterMorph, 0.476F, "BPF"},   Row{T::FilterMorph, 0.524F, "BPF"},
        Row{T::FilterMorph, 0.526F, "B9:H1"}, Row{T::FilterMorph, 0.74F, "B5:H5"},
        Row{T::FilterMorph, 0.949F, "B1:H9"}, Row{T::FilterMorph, 0.951F, "HPF"},
        // 10 ms where v^0.722 = log 10 / log 2000 = 0.30294, v = 0.19126: no decimal from there
        Row{T::AttackMs, 0.191F, "10.0"}, Row{T::AttackMs, 0.192F, "10"}, // 9.977, 10.07 ms
        Row{T::AttackMs, 0.1F, "4.2"},                                    // 2000^0.18967 = 4.228
        Row{T::ExtensionFactor, 0.002F, "off"}, Row{T::ExtensionFactor, 0.003F, "x0.0"},
        Row{T::ExtensionFactor, 0.12F, "x0.2"}, Row{T::ExtensionFactor, 0.75F, "x2.5"},
        // Levels are squares of their positions; 0.0005 gives the factor 1.00000005e-6.
        Row{T::LevelDb, 0.5F, "0.0"},       Row{T::LevelDb, 0.25F, "-12.0"},
        Row{T::LevelDb, 0.0005F, "-120.0"}, Row{T::LevelDb, 0.0004F, "-oo"},
        Row{T::LevelDb, 0.4975F, "0.0"},    Row{T::LevelDb, 0.496F, "-0.1"}, // -0.087, -0.140 dB
        Row{T::ThresholdDb, 0.0F, "-48.0"}, Row{T::ThresholdDb, 0.75F, "-12.0"},
    })
        EXPECT_EQ(valueText(row.rule, row.v).view(), row.text) << row.v;
    // clang-format on
}

} // namespace
} // namespace pedl
