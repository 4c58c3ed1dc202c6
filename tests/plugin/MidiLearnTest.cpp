// Controllers as a host delivers them: through the record's dispatcher, in lists of events.

#include "plugin/ZMTpedlFilterEffect.h"
#include "tests/presets/Journal.h"
#include "tests/support/EventList.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace pedl {
namespace {

using test::EventList;
using test::Journal;

constexpr std::int32_t kNone = MidiMap::kNone;
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr int kControl = 0xB0; // the status of a control change on channel 1

float linkValue(int controller) {
    return (static_cast<float>(controller) + 0.5F) / 129.0F;
}

float channelValue(int channel) {
    return (static_cast<float>(channel) + 0.5F) / 18.0F;
}

class MidiLearn : public testing::Test {
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

    Journal journal;
    std::unique_ptr<ZMTpedlFilterEffect> owned = std::make_unique<ZMTpedlFilterEffect>(
        &Journal::host, EffectSurroundings{journal.clock, journal.diagnostics, journal.settings});
    ZMTpedlFilterEffect& effect = *owned;
    const MidiMap& map = owned->midiMap();
    const LearnState& learn = owned->learnState();
};

// Learning

TEST_F(MidiLearn, LinksTheTouchedControlAndMovesItWithTheSameEvent) {
    effect.startLearn();
    touch(kFilterFreqSlider, 0.3F);
    send(kControl, 74, 127);
    EXPECT_EQ(map.controllerOf(kFilterCutoffFreq), 74);
    EXPECT_EQ(map.parameterOf(74), kFilterCutoffFreq);
    EXPECT_EQ(effect.getParameter(56 + kFilterCutoffFreq), linkValue(74));
    EXPECT_EQ(effect.getParameter(kFilterCutoffFreq), 1.0F);
    EXPECT_EQ(effect.bank().value(0, kFilterCutoffFreq), 1.0F);
    EXPECT_FALSE(learn.isLearning());
    EXPECT_EQ(journal.count("view learn ended"), 1);
    EXPECT_EQ(journal.count("view activity"), 1);
    EXPECT_EQ(journal.count("view 21 1"), 1);
}

TEST_F(MidiLearn, WaitsForAControlAndTakesTheOneTouchedLast) {
    effect.startLearn();
    send(kControl, 7, 64);
    EXPECT_TRUE(learn.isLearning());
    EXPECT_EQ(map.drivenBy(7), kNone);
    touch(kGain, 0.3F);
    touch(kLFOEncoder, 0.5F); // free rate
    EXPECT_EQ(learn.target(), kLFOFreq);
    touch(kEfLEDMeter, 0.5F); // nothing to link
    send(kControl, 7, 64);
    EXPECT_EQ(map.parameterOf(7), kLFOFreq);
    EXPECT_EQ(map.controllerOf(kGain), kNone);
}

TEST_F(MidiLearn, UnlinksWhatEitherEndWasLinkedTo) {
    effect.setParameter(56 + 30, linkValue(7));
    effect.setParameter(56 + 1, linkValue(9));
    effect.startLearn();
    touch(1, 0.3F);
    send(kControl, 7, 64);
    EXPECT_EQ(map.controllerOf(1), 7);
    EXPECT_EQ(map.controllerOf(30), kNone);
    EXPECT_EQ(map.drivenBy(9), kNone);
    EXPECT_EQ(effect.getParameter(56 + 30), linkValue(999));
}

TEST_F(MidiLearn, StoppingForgetsTheTarget) {
    effect.startLearn();
    touch(kGain, 0.3F);
    effect.stopLearn();
    EXPECT_EQ(journal.count("view learn ended"), 1);
    effect.setLearnTarget(kGain); // from a user interface that was a moment late
    send(kControl, 7, 64);
    EXPECT_EQ(map.drivenBy(7), kNone);
    effect.startLearn();
    EXPECT_EQ(learn.target(), LearnState::kNoTarget);
}

TEST_F(MidiLearn, CountsNoProgramAndNoChangeWhileHooksAreOff) {
    effect.startLearn();
    effect.startForget();
    effect.setParameter(56 + kGain, linkValue(7));
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
    effect.setParameter(56 + kFilterCutoffFreq, linkValue(74));
    effect.setParameter(56 + kGain, linkValue(7));
    effect.startForget();
    touch(kCutoffEncoder, 0.25F);
    touch(kGain, 0.75F);
    EXPECT_EQ(map.controllerOf(kFilterCutoffFreq), kNone);
    EXPECT_EQ(map.drivenBy(74), kNone);
    EXPECT_EQ(map.controllerOf(kGain), 7);
    EXPECT_EQ(effect.getParameter(kGain), 0.75F);
    EXPECT_EQ(journal.count("view forget ended"), 1);
}

TEST_F(MidiLearn, AMovingControllerCountsAsAChangeOfItsParameter) {
    effect.setParameter(56 + kGain, linkValue(7));
    effect.startLearn();
    send(kControl, 7, 10);
    EXPECT_EQ(learn.target(), kGain);
    effect.stopLearn();
    effect.startForget();
    send(kControl, 7, 20);
    EXPECT_EQ(map.drivenBy(7), kNone);
    EXPECT_EQ(effect.getParameter(kGain), 20.0F / 127.0F);
}

// Values that hosts and stored data set

TEST_F(MidiLearn, LinksAndChannelAreValuesOfTheirOwnIndices) {
    struct Row {
        float sent, link;
        std::int32_t controller;
        float channel;
    };
    for (const Row row :
         {Row{linkValue(64), linkValue(64), 64, channelValue(9)},
          Row{1.5F, 1.0F, kNone, channelValue(17)}, Row{-1.0F, 0.0F, 0, channelValue(0)},
          Row{kNaN, 0.0F, 0, channelValue(0)}})
        for (const std::int32_t parameter : {0, 55}) {
            SCOPED_TRACE(testing::Message() << row.sent << " to " << parameter);
            effect.setParameter(56 + parameter, row.sent);
            EXPECT_EQ(effect.getParameter(56 + parameter), row.link);
            EXPECT_EQ(map.controllerOf(parameter), row.controller);
            effect.setParameter(kMidiChannel, row.sent);
            EXPECT_EQ(effect.getParameter(kMidiChannel), row.channel);
        }
    journal.lines.clear();
    effect.setParameter(kMidiChannel, 0.6F);
    EXPECT_EQ(journal.lines, (std::vector<std::string>{"view channel 0.583333", "view 149 0.6"}));
}

TEST_F(MidiLearn, ALinkSetToNoneIsStillFollowedUntilTheMapIsRebuilt) {
    effect.setParameter(56 + kGain, linkValue(7));
    effect.setParameter(56 + kGain, 1.0F);
    EXPECT_EQ(map.controllerOf(kGain), kNone);
    EXPECT_TRUE(moves(kControl));
    effect.midiMap().rebuild();
    EXPECT_FALSE(moves(kControl));
}

// Receiving

TEST_F(MidiLearn, FollowsControlChangesAndSystemMessagesAlike) {
    effect.setParameter(56 + kGain, linkValue(7));
    for (int status = 0x00; status <= 0xFF; ++status)
        EXPECT_EQ(moves(status), (status >= 0xB0 && status <= 0xBF) || status >= 0xF0) << status;
}

TEST_F(MidiLearn, FollowsTheSelectedChannelAlone) {
    effect.setParameter(56 + kGain, linkValue(7));
    for (int channel = 0; channel <= 17; ++channel) {
        effect.setParameter(kMidiChannel, channelValue(channel));
        for (int sent = 1; sent <= 16; ++sent)
            for (const int status : {0xB0, 0xF0})
                EXPECT_EQ(moves(status + sent - 1), channel == 17 || channel == sent)
                    << "selected " << channel << ", sent " << sent;
    }
    effect.setParameter(kMidiChannel, channelValue(0));
    journal.lines.clear();
    send(kControl, 7, 64);
    EXPECT_EQ(journal.count("view activity"), 0);
}

TEST_F(MidiLearn, ScalesSevenBitsAndClampsBrokenOnes) {
    effect.setParameter(56 + kGain, linkValue(7));
    for (int position = 0; position < 256; ++position) {
        send(kControl, 7, position);
        const float expected = position < 128 ? static_cast<float>(position) / 127.0F : 0.0F;
        EXPECT_EQ(effect.getParameter(kGain), expected) << position;
    }
}

TEST_F(MidiLearn, IgnoresChannelModeAndControllersThatDoNotExist) {
    for (int controller = 120; controller < 256; ++controller) {
        effect.setParameter(56 + kGain, linkValue(std::min(controller, 127)));
        effect.setParameter(kGain, 0.25F);
        effect.startLearn();
        effect.setLearnTarget(kFreez);
        send(kControl, controller, 127);
        EXPECT_EQ(effect.getParameter(kGain), 0.25F) << controller;
        EXPECT_TRUE(learn.isLearning()) << controller;
    }
    EXPECT_EQ(map.controllerOf(kFreez), kNone);
}

TEST_F(MidiLearn, TakesAListInOrderAndPassesOverWhatIsNoMidiEvent) {
    effect.setParameter(56 + kGain, linkValue(7));
    effect.setParameter(56 + kLFOWidth, linkValue(119));
    EventList events;
    events.addMidi(kControl, 7, 1).addNull().addMidi(kControl, 119, 127).last().byteSize = 24;
    events.addMidi(kControl, 7, 100).addMidi(kControl, 7, 50).last().type = kVstSysExType;
    events.addMidi(0x90, 7, 60).addMidi(kControl, 119, 64).last().byteSize = -1;
    EXPECT_EQ(send(events), 1);
    EXPECT_EQ(effect.getParameter(kGain), 100.0F / 127.0F);
    EXPECT_EQ(effect.getParameter(kLFOWidth), 64.0F / 127.0F);
    EXPECT_EQ(journal.count("view activity"), 4);
}

TEST_F(MidiLearn, AListWithoutEventsIsTakenAsItIs) {
    EventList events;
    EXPECT_EQ(send(events), 1);
    EXPECT_EQ(send(events, -1), 1);
    EXPECT_EQ(send(events, std::numeric_limits<VstInt32>::min()), 1);
    EXPECT_EQ(effect.processEvents(nullptr), 1);
}

} // namespace
} // namespace pedl
