#include "plugin/ZMTpedlFilterEffect.h"

#include "foundation/vst24/VendorCalls.h"
#include "presets/FactoryPrograms.h"
#include "tests/plugin/EffectTest.h"
#include "tests/support/OddNumbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace pedl {
namespace {

using test::kInfinity;
using test::kNaN;
using Lines = std::vector<std::string>;

constexpr float kResetMarker = -1000.0F;

VstTimeInfo timeInfo(VstInt32 flags, double tempoBpm, double positionQuarters) {
    VstTimeInfo info{};
    info.flags = flags;
    info.tempo = tempoBpm;
    info.ppqPos = positionQuarters;
    return info;
}

class Effect : public test::EffectTest {
protected:
    std::string displayOf(VstInt32 index, std::optional<float> requested = std::nullopt) {
        char text[64] = "";
        if (requested) {
            std::memcpy(text, "1EAD", 4);
            std::memcpy(text + 4, &*requested, sizeof *requested);
        }
        effect.getParameterDisplay(index, text);
        return text;
    }

    void process() {
        std::array<float, 16> samples{};
        float* channels[] = {samples.data(), samples.data()};
        effect.processReplacing(channels, channels, 16);
    }
};

// Construction

TEST_F(Effect, StartsTheFirstProgramTwiceAndThenSaysSo) {
    EXPECT_EQ(journal.lines, (Lines{"time 512", "wait 100", "update display", "begin 0", "end 0",
                                    "time 512", "wait 100", "update display", "begin 0", "end 0",
                                    "line ZMT pedlFilter:start effect"}));
    EXPECT_EQ(effect.getParameter(kDryWetMix), 0.5F);
    owned.reset();
    EXPECT_EQ(journal.lines.back(), "line ZMT pedlFilter:stop effect");
}

// Identity

TEST_F(Effect, AnswersWhoItIs) {
    EXPECT_EQ(effect.getAeffect()->uniqueID, 0x5A4D7046);
    EXPECT_EQ(effect.getAeffect()->flags,
              effFlagsCanReplacing | effFlagsProgramChunks | effFlagsCanDoubleReplacing);
    EXPECT_EQ(effect.getVendorVersion(), 1000);
    char text[kVstMaxVendorStrLen];
    EXPECT_TRUE(effect.getProductString(text));
    EXPECT_STREQ(text, "ZMT pedlFilter");
    EXPECT_TRUE(effect.getVendorString(text));
    EXPECT_STREQ(text, "zmt-sonics.example");
    VstPinProperties pin{};
    EXPECT_TRUE(effect.getOutputProperties(0, &pin));
    EXPECT_STREQ(pin.label, "ZMT pedlFilter 1 Out");
    EXPECT_TRUE(effect.getInputProperties(1, &pin));
    EXPECT_STREQ(pin.label, "ZMT pedlFilter 2 In");
    EXPECT_EQ(pin.flags, 3);
    for (const VstInt32 index : {-1, 2})
        EXPECT_FALSE(effect.getInputProperties(index, &pin) ||
                     effect.getOutputProperties(index, &pin));
}

TEST_F(Effect, AnswersWhatItCanDo) {
    const auto answer = [this](std::string text) { return effect.canDo(text.data()); };
    for (const char* text : {"offline", "plugAsChannelInsert", "plugAsSend", "mixDryWet", "1in1out",
                             "1in2out", "2in2out"})
        EXPECT_EQ(answer(text), 1) << text;
    for (const char* text : {"", "receiveVstTimeInfo", "receiveVstEvents", "2in1out", "bypass"})
        EXPECT_EQ(answer(text), 0) << text;
    for (const VstIntPtr hosts : {-1, 0, 1, 2}) {
        journal.canDo = hosts;
        EXPECT_EQ(answer("receiveVstMidiEvent"), hosts == 1 ? 1 : 0) << hosts;
    }
}

TEST_F(Effect, TakesMonoAndStereoArrangements) {
    for (const VstInt32 inputs : {0, 1, 2, 6})
        for (const VstInt32 outputs : {0, 1, 2, 6}) {
            SCOPED_TRACE(testing::Message() << inputs << " in, " << outputs << " out");
            const bool isMono = inputs == 1 && (outputs == 1 || outputs == 2);
            VstSpeakerArrangement input{}, output{};
            input.numChannels = inputs;
            output.numChannels = outputs;
            EXPECT_EQ(effect.setSpeakerArrangement(&input, &output),
                      isMono || (inputs == 2 && outputs == 2));
            EXPECT_EQ(effect.isInputStereo(), !isMono);
            EXPECT_EQ(effect.isOutputStereo(), !isMono || outputs == 2);
        }
}

TEST_F(Effect, HostSeesOneProgramWhicheverSlotThePrivateCallSelects) {
    EXPECT_EQ(effect.vendorSpecific(kVendorCallId, kVendorCallSelectSlot, nullptr, 12.0F), 1);
    effect.setProgram(5);
    for (const float slot : {-1.0F, 140.0F, kNaN, kInfinity})
        EXPECT_EQ(effect.vendorSpecific(kVendorCallId, kVendorCallSelectSlot, nullptr, slot), 0);
    EXPECT_EQ(effect.vendorSpecific(kVendorCallId, 0, nullptr, 3.0F), 0);
    EXPECT_EQ(effect.vendorSpecific(7, kVendorCallSelectSlot, nullptr, 3.0F), 0);
    EXPECT_EQ(effect.currentSlot(), 12);
    EXPECT_EQ(effect.getProgram(), 0);
}

// Texts

TEST_F(Effect, DisplaysTheHeldValueOrTheOneAskedFor) {
    EXPECT_EQ(displayOf(kFilterCutoffFreq), "1002");
    EXPECT_EQ(displayOf(kFilterCutoffFreq, 1.7F), "20000");
    EXPECT_EQ(displayOf(kFilterCutoffFreq, -2.0F), "20");
    EXPECT_EQ(displayOf(kDry, 1.0F), "12.0");
    EXPECT_EQ(displayOf(kDisplayParameterMode), "Freq");
    EXPECT_EQ(displayOf(kSynchroTempoFromHost, 0.5F), "");
    EXPECT_EQ(effect.getParameter(kFilterCutoffFreq), 0.566642F);
}

TEST_F(Effect, PropertiesCarryNamesCutToTheirFields) {
    VstParameterProperties properties{};
    EXPECT_TRUE(effect.getParameterProperties(kModulationOnOff, &properties));
    EXPECT_STREQ(properties.label, "All Modu");
    EXPECT_STREQ(properties.shortLabel, "AllMod");
    EXPECT_EQ(properties.flags, kVstParameterIsSwitch | kVstParameterUsesFloatStep);
    EXPECT_TRUE(effect.getParameterProperties(kFilterCutoffFreq, &properties));
    EXPECT_STREQ(properties.label, "Filter C");
    EXPECT_EQ(properties.flags, kVstParameterUsesFloatStep);
    EXPECT_EQ(properties.largeStepFloat, 0.002F);
    EXPECT_FALSE(effect.getParameterProperties(56, &properties));
}

// Values

TEST_F(Effect, TakesValuesIntoTheirRange) {
    using Row = std::pair<float, float>;
    for (const auto& [sent, held] : {Row{0.3F, 0.3F}, Row{-0.1F, 0.0F}, Row{1.5F, 1.0F},
                                     Row{kNaN, 0.0F}, Row{kInfinity, 1.0F}, Row{-kInfinity, 0.0F}})
        for (std::int32_t index = 0; index < kNumParams; ++index) {
            if (index == kDryWetGlobal)
                continue; // changes where levels go
            effect.setParameter(index, sent);
            EXPECT_EQ(effect.getParameter(index), held) << index << " set to " << sent;
            EXPECT_EQ(effect.bank().value(0, index), held);
        }
}

TEST_F(Effect, TellsTheViewOfAChangeAndOfWhatHangsOnIt) {
    struct Row {
        VstInt32 index;
        float value;
        Lines lines;
    };
    effect.setView(&journal.view);
    // clang-format off
    for (const Row& row : {
        Row{kLFOWidth, 0.25F, {"view 6 0.25"}},
        Row{kGain, 0.25F, {"view 128 0.25", "view 1 0.25"}},
        Row{kFilterCutoffFreq, 0.25F, {"view 121 0.25", "view 21 0.25"}},
        Row{kFilterFreqSlider, 0.75F,
            {"begin 21", "view 121 0.75", "view 21 0.75", "automate 21 0.75", "end 21",
             "view 121 0.75"}},
        Row{kDisplayParameterMode, 0.7F, {"view 7 0", "view 124 0.7"}},
        Row{kDry, 0.25F, {"view 47 0.25", "view 47 0.25"}},
    }) {
        // clang-format on
        SCOPED_TRACE(row.index);
        journal.lines.clear();
        effect.setParameter(row.index, row.value);
        EXPECT_EQ(journal.lines, row.lines);
    }
    EXPECT_EQ(effect.getParameter(kDisplayParameterMode), 1.0F);
    EXPECT_EQ(effect.getParameter(kInverseInputLink), 0.25F);
    journal.lines.clear();
    effect.suspend();
    EXPECT_EQ(journal.lines, Lines{"view suspended"});
}

TEST_F(Effect, SelectingAProgramReachesTheViewAndWritesNothingBack) {
    effect.setView(&journal.view);
    effect.selectProgram(1);
    EXPECT_EQ(journal.count("view 21 0.233267"), 1);
    EXPECT_EQ(effect.getParameter(kFilterCutoffFreq), 0.233267F);
    EXPECT_EQ(effect.bank().record(1).normalised, factoryProgram(1).normalised);
}

// Dry and wet

TEST_F(Effect, LevelsAreTheProgramsUntilTheBankTakesOverAndEveryProgramHoldsTheBanks) {
    effect.setParameter(kWet, 1.0F);
    effect.setParameter(kDryWetGlobal, 1.0F);
    EXPECT_EQ(effect.effectiveDryWetLevel(kWet), 0.5F);
    effect.setParameter(kWet, 0.25F);
    EXPECT_EQ(displayOf(kWet), "-12.0");
    EXPECT_EQ(effect.effectiveDryWetLevel(kGain), 0.0F);
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
        EXPECT_EQ(effect.bank().value(slot, kWetGlobal), 0.25F);
    effect.selectProgram(1); // its own levels come while the bank's are still in force
    EXPECT_EQ(effect.getParameter(kDryWetGlobal), 0.0F);
    EXPECT_EQ(effect.getParameter(kWet), 0.5F);
    effect.setParameter(kWet, 0.75F);
    EXPECT_EQ(effect.bank().value(3, kWetGlobal), 0.25F);
    EXPECT_EQ(effect.effectiveDryWetLevel(kWet), 0.75F);
}

TEST_F(Effect, MixKnobMovesBothLevelsInOneGesture) {
    journal.lines.clear();
    effect.setParameter(kDryWetMix, 0.375F); // a step of a quarter towards wet
    EXPECT_EQ(journal.lines,
              (Lines{"begin 47", "automate 47 0.333333", "automate 50 0.75", "end 47"}));
    EXPECT_NEAR(effect.getParameter(kDry), 0.5 * 0.5 / 0.75, 1e-6);
    EXPECT_EQ(effect.getParameter(kWet), 0.75F);
    EXPECT_EQ(effect.bank().value(0, kWet), 0.75F);
    effect.setParameter(kDryWetMix, kResetMarker);
    EXPECT_EQ(effect.getParameter(kDry), 0.5F);
    EXPECT_EQ(effect.getParameter(kWet), 0.5F);
    EXPECT_EQ(effect.getParameter(kDryWetMix), 0.5F);
}

TEST_F(Effect, MixKnobRunsBeyondTheEndsAndComesBack) {
    effect.setParameter(kDryWetAltVol, 64.0F);
    for (int i = 0; i < 4; ++i)
        effect.setParameter(kDryWetMix, 0.375F); // both levels up: 0.75, 1, 1.25, then held
    EXPECT_EQ(effect.getParameter(kDry), 1.0F);
    EXPECT_EQ(journal.count("automate 47 1"), 3); // a host hears no more than there is
    EXPECT_EQ(journal.count("automate 50 1"), 3);
    effect.setParameter(kDryWetMix, 0.625F);
    EXPECT_EQ(effect.getParameter(kDry), 1.0F);
    effect.setParameter(kDryWetMix, 0.625F);
    EXPECT_NEAR(effect.getParameter(kDry), 0.75, 1e-6);
    EXPECT_EQ(effect.getParameter(kWet), 0.75F);
    effect.setParameter(kDryWetAltVol, 0.0F);
    effect.setParameter(kDry, 0.2F); // an edit elsewhere: the knob starts from there
    effect.setParameter(kDryWetMix, 0.475F);
    EXPECT_NEAR(effect.getParameter(kWet), 0.8, 1e-6);
    EXPECT_NEAR(effect.getParameter(kDry), 0.2 * 0.75 / 0.8, 1e-6);
}

TEST_F(Effect, InverseLinkKeepsTheOutputLevel) {
    effect.setParameter(kInverseInputLink, 0.45F); // a tenth up: 4.8 dB
    EXPECT_NEAR(effect.getParameter(kGain), 0.6, 1e-6);
    EXPECT_NEAR(effect.getParameter(kDry), 0.379289, 1e-5); // 0.5 / 10^(2.4 / 20)
    EXPECT_NEAR(effect.getParameter(kWet), 0.379289, 1e-5);
    effect.setParameter(kInverseInputLink, 0.0F); // as far as the gain goes: 0.4, or 19.2 dB
    EXPECT_EQ(effect.getParameter(kGain), 1.0F);
    EXPECT_NEAR(effect.getParameter(kWet), 0.379289 / 3.019952, 1e-5); // 10^(9.6 / 20)
    effect.setParameter(kInverseInputLink, kResetMarker);
    for (const VstInt32 index : {kGain, kDry, kWet})
        EXPECT_EQ(effect.getParameter(index), 0.5F);
}

TEST_F(Effect, RelativeControlsSurviveAnyNumber) {
    for (const float value : {kNaN, kInfinity, -kInfinity, 3e38F, -3e38F, 0.5F})
        for (const VstInt32 tag : {kDryWetMix, kInverseInputLink, kDryWetAltVol, kDryWetMix}) {
            effect.setParameter(tag, value);
            for (const VstInt32 index : {kGain, kDry, kWet})
                EXPECT_EQ(std::clamp(effect.getParameter(index), 0.0F, 1.0F),
                          effect.getParameter(index));
        }
}

// Tempo

TEST_F(Effect, FollowsTheHostsTempoAndStoresTheRateForItselfAlone) {
    VstTimeInfo time = timeInfo(kVstTempoValid | kVstPpqPosValid, 240.0, 0.0);
    journal.times = {&time};
    effect.setParameter(kLFOSyncMode, 1.0F);
    effect.setParameter(kLFOSynchroRate, 0.290323F); // 1:2
    EXPECT_EQ(effect.getParameter(kLFOFreq), static_cast<float>((2.0 - 0.01) / 14.99));
    EXPECT_EQ(effect.bank().value(0, kLFOFreq), 0.066044F);
    EXPECT_TRUE(effect.followsHostTempo());
    for (const float end : {0.0F, 1.0F}) { // eight notes of 16 s, wanted 0.0078 Hz; 160 Hz
        time.tempo = end == 0.0F ? 5.0 : 700.0;
        effect.setParameter(kLFOSynchroRate, end);
        EXPECT_EQ(effect.getParameter(kSynchroTempoFromHost), end == 0.0F ? 15.0F : 600.0F);
        EXPECT_EQ(effect.getParameter(kLFOFreq), end);
        EXPECT_EQ(effect.getParameter(kLFOFreqOverflow), 1.0F);
    }
    effect.resume();
    EXPECT_EQ(effect.getParameter(kLFOFreqOverflow), 0.0F);
    EXPECT_EQ(effect.getParameter(kSynchroTempoFromHost), 120.0F);
    EXPECT_FALSE(effect.followsHostTempo());
}

TEST_F(Effect, AsksOnceMoreWhereTheHostFillsOnlyWhatTheMaskNames) {
    VstTimeInfo position = timeInfo(kVstPpqPosValid, 0.0, 3.0);
    VstTimeInfo both = timeInfo(kVstPpqPosValid | kVstTempoValid, 90.0, 3.0);
    VstTimeInfo broken = timeInfo(kVstPpqPosValid | kVstTempoValid, kNaN, HUGE_VAL);
    struct Row {
        float mode;
        std::vector<VstTimeInfo*> times;
        Lines lines;
        double tempoBpm;
    };
    for (const Row& row : {Row{1.0F, {}, {"time 512"}, 120.0},
                           Row{1.0F, {&position, &both}, {"time 512", "time 1536"}, 90.0},
                           Row{1.0F, {&position, nullptr}, {"time 512", "time 1536"}, 120.0},
                           Row{1.0F, {&broken}, {"time 512", "time 1536"}, 120.0},
                           Row{0.5F, {&position}, {"time 512"}, 120.0}}) {
        effect.resume();
        effect.setParameter(kLFOSyncMode, row.mode);
        journal.times = row.times;
        journal.lines.clear();
        process();
        EXPECT_EQ(journal.lines, row.lines);
        EXPECT_NEAR(effect.getParameter(kSynchroTempoFromHost), row.tempoBpm, 1e-4);
        EXPECT_EQ(effect.followsHostTempo(), row.tempoBpm == 90.0);
        EXPECT_EQ(effect.getParameter(kLFOFreq) == 0.066044F, row.times.empty()) << "stays free";
    }
}

TEST_F(Effect, ItsChunkCarriesTheWholeStateToAnotherInstance) {
    for (VstInt32 index = 0; index < 2 * kNumParams; ++index)
        effect.setParameter(index, static_cast<float>(index) / 128.0F);
    void* data = nullptr;
    const VstInt32 size = effect.getChunk(&data, true); // asked for one program, gives all
    EXPECT_EQ(std::string(static_cast<const char*>(data), 13),
              std::string("\0\0\0\2FpMZFpMZ8", 13));
    const auto other = newEffect();
    AEffect* const record = other->getAeffect();
    for (const VstIntPtr more : {VstIntPtr{1} << 32, VstIntPtr{0}})
        EXPECT_EQ(record->dispatcher(record, effSetChunk, 0, size + more, data, 0.0F),
                  more > 0 ? -1 : 0);
    for (VstInt32 index = 0; index < 2 * kNumParams; ++index)
        EXPECT_EQ(other->getParameter(index), effect.getParameter(index)) << index;
}

// Audio

TEST_F(Effect, ResumeAsksForTheRateAndKeepsItsOwnWhereTheHostHasNone) {
    effect.setSampleRate(96000.0F);
    for (const float none : {0.0F, -48000.0F, kNaN, kInfinity})
        effect.setSampleRate(none);
    effect.resume();
    EXPECT_EQ(effect.getSampleRate(), 96000.0F);
    journal.sampleRateHz = 48000;
    effect.resume();
    EXPECT_EQ(effect.getSampleRate(), 48000.0F);
    for (const VstInt32 frames : {0, -1, std::numeric_limits<VstInt32>::min()}) {
        effect.processReplacing(nullptr, nullptr, frames); // nothing to play: touches no buffer
        effect.processDoubleReplacing(nullptr, nullptr, frames);
    }
}

} // namespace
} // namespace pedl
