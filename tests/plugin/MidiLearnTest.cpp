// Controllers as a host delivers them: through the record's dispatcher, in lists of events.

#include "tests/plugin/EffectTest.h"
#include "tests/support/EventList.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace pedl {
namespace {

using test::EventList;

constexpr std::int32_t kNone = MidiMap::kNone;
constexpr int kControl = 0xB0; // the status of a control change on channel 1

class MidiLearn : public test::EffectTest {
protected:
    MidiLearn() { effect.setView(&journal.view); }

    VstIntPtr send(EventList& events, VstInt32 extraEvents = 0) {
        AEffect* const record = effect.getAeffect();
        return record->dispatcher(record, effProcessEvents, 0, 0, events.list(extraEvents), 0.0F);
    }

    void send(int status, int controller, int position) {
        EventList events;
        events.addMidi(status, controller, position);
        EXPECT_EQ(send(events), 1);
    }

    void touch(std::int32_t tag, float normalised) { effect.setParameter(tag, normalised); }

    /// Whether controller 7 moves the gain when it comes with this status.
    bool moves(int status) {
        effect.setParameter(kGain, 0.25F);
        send(status, 7, 127);
        return effect.getParameter(kGain) == 1.0F;
    }

    const MidiMap& map = owned->midiMap();
    const LearnState& learn = owned->learnState();
};

// Learning

TEST_F(MidiLearn, LinksTheTouchedControlAloneAndMovesItWithTheSameEvent) {
    effect.midiMap().link(kWet, 74);
    effect.midiMap().link(kFilterCutoffFreq, 9);
    effect.startLearn();
    touch(kFilterFreqSlider, 0.3F);
    send(kControl, 74, 127);
    EXPECT_EQ(map.parameterOf(74), kFilterCutoffFreq);
    EXPECT_EQ(map.controllerOf(kWet), kNone);
    EXPECT_EQ(map.drivenBy(9), kNone);
    EXPECT_EQ(effect.getParameter(56 + kFilterCutoffFreq), 74.5F / 129.0F);
    EXPECT_EQ(effect.getParameter(kFilterCutoffFreq), 1.0F);
    EXPECT_EQ(effect.bank().value(0, kFilterCutoffFreq), 1.0F);
    EXPECT_FALSE(learn.isLearning());
    for (const char* line : {"view learn ended", "view activity", "view 21 1"})
        EXPECT_EQ(journal.count(line), 1) << line;
}

TEST_F(MidiLearn, WaitsForAControlAndTakesTheOneTouchedLast) {
    effect.startLearn();
    send(kControl, 7, 64);
    EXPECT_TRUE(learn.isLearning());
    touch(kGain, 0.3F);
    for (const float syncMode : {1.0F, 0.0F}) { // the host's tempo, then free
        touch(kLFOSyncMode, syncMode);
        touch(kLFOEncoder, 0.5F);
        EXPECT_EQ(learn.target(), syncMode > 0.0F ? kTempoSetup : kLFOFreq);
    }
    touch(kEfLEDMeter, 0.5F); // nothing to link
    send(kControl, 7, 64);
    EXPECT_EQ(map.parameterOf(7), kLFOFreq);
    EXPECT_EQ(map.controllerOf(kGain), kNone);
    effect.startLearn();
    touch(kGain, 0.3F);
    effect.stopLearn();
    EXPECT_EQ(journal.count("view learn ended"), 2);
    effect.setLearnTarget(kGain); // from a user interface that was a moment late
    EXPECT_FALSE(learn.isLearning());
    effect.startLearn();
    EXPECT_EQ(learn.target(), LearnState::kNoTarget);
}

TEST_F(MidiLearn, CountsNoProgramAndNoChangeWhileHooksAreOff) {
    effect.startLearn();
    effect.startForget();
    effect.midiMap().link(kGain, 7);
    effect.selectProgram(1);
    effect.enableLearnHooks(false);
    touch(kGain, 0.3F);
    EXPECT_EQ(learn.target(), LearnState::kNoTarget);
    EXPECT_EQ(map.controllerOf(kGain), 7);
    effect.resume();
    touch(kGain, 0.3F);
    EXPECT_EQ(learn.target(), kGain);
    EXPECT_EQ(map.controllerOf(kGain), kNone);
}

TEST_F(MidiLearn, ForgettingTakesOneLinkAwayAndKeepsTheChange) {
    effect.midiMap().link(kFilterCutoffFreq, 74);
    effect.midiMap().link(kGain, 7);
    effect.startForget();
    touch(kCutoffEncoder, 0.25F);
    touch(kGain, 0.75F);
    EXPECT_EQ(map.drivenBy(74), kNone);
    EXPECT_EQ(map.controllerOf(kGain), 7);
    EXPECT_EQ(effect.getParameter(kGain), 0.75F);
    EXPECT_EQ(journal.count("view forget ended"), 1);
    effect.startForget();
    send(kControl, 7, 20); // a moving controller counts as a change
    EXPECT_EQ(map.drivenBy(7), kNone);
    EXPECT_EQ(effect.getParameter(kGain), 20.0F / 127.0F);
}

// Receiving

TEST_F(MidiLearn, FollowsControlChangesAndSystemMessagesOfItsChannel) {
    effect.midiMap().link(kGain, 7);
    for (int channel = 0; channel <= 17; ++channel) {
        effect.setParameter(kMidiChannel, (static_cast<float>(channel) + 0.5F) / 18.0F);
        journal.lines.clear();
        for (int status = 0x00; status <= 0xFF; ++status) {
            const bool isSelected = channel == 17 || status % 16 == channel - 1;
            EXPECT_EQ(moves(status),
                      isSelected && ((status >= 0xB0 && status <= 0xBF) || status >= 0xF0))
                << "selected " << channel << ", status " << status;
        }
        EXPECT_EQ(journal.count("view activity"), channel == 17 ? 32 : channel == 0 ? 0 : 2);
    }
}

TEST_F(MidiLearn, ScalesSevenBitsAndIgnoresWhatNoControllerSends) {
    effect.midiMap().link(kGain, 7);
    for (int position = 0; position < 256; ++position) {
        send(kControl, 7, position);
        const float expected = position < 128 ? static_cast<float>(position) / 127.0F : 0.0F;
        EXPECT_EQ(effect.getParameter(kGain), expected) << position;
    }
    for (int controller = 120; controller < 256; ++controller) { // channel mode and beyond
        effect.midiMap().link(kGain, std::min(controller, 127));
        effect.setParameter(kGain, 0.25F);
        effect.startLearn();
        effect.setLearnTarget(kFreez);
        send(kControl, controller, 127);
        EXPECT_EQ(effect.getParameter(kGain), 0.25F) << controller;
        EXPECT_TRUE(learn.isLearning()) << controller;
    }
}

TEST_F(MidiLearn, TakesAListInOrderAndPassesOverWhatIsNoMidiEvent) {
    effect.midiMap().link(kGain, 7);
    effect.midiMap().link(kLFOWidth, 119);
    EventList events;
    events.addMidi(kControl, 7, 1).addNull().addMidi(kControl, 119, 127).last().byteSize = 24;
    events.addMidi(kControl, 7, 100).addMidi(kControl, 7, 50).last().type = kVstSysExType;
    events.addMidi(0x90, 7, 60).addMidi(kControl, 119, 64).last().byteSize = -1;
    EXPECT_EQ(send(events), 1);
    EXPECT_EQ(effect.getParameter(kGain), 100.0F / 127.0F);
    EXPECT_EQ(effect.getParameter(kLFOWidth), 64.0F / 127.0F);
    EXPECT_EQ(journal.count("view activity"), 4);
    EventList none;
    for (const VstInt32 count : {0, -1, std::numeric_limits<VstInt32>::min()})
        EXPECT_EQ(send(none, count), 1) << count;
    EXPECT_EQ(effect.processEvents(nullptr), 1);
}

} // namespace
} // namespace pedl
