#include "plugin/MixKnob.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

struct StepRow {
    const char* story;
    DryWetPair pair;
    double step;
    DryWetPair expected;
};

void expectPair(DryWetPair actual, DryWetPair expected) {
    EXPECT_NEAR(actual.dry, expected.dry, 1e-6);
    EXPECT_NEAR(actual.wet, expected.wet, 1e-6);
}

TEST(MixKnob, StepsTheMixWithAConstantProduct) {
    for (const StepRow& row : {
             StepRow{"dry leads down", {0.8, 0.4}, 0.1, {0.7, 0.457143}},
             StepRow{"dry leads up", {0.8, 0.4}, -0.1, {0.9, 0.355556}},
             StepRow{"faint wet rises evenly", {0.8, 0.1}, 0.1, {0.7, 0.2}},
             StepRow{"dry reaches its end, wet stays", {0.05, 0.02}, 0.1, {0.0005, 0.02}},
             StepRow{"dry comes back from nothing", {0.0, -0.1}, 0.1, {0.1, 0.0005}},
             StepRow{"wet leads up", {0.4, 0.8}, 0.1, {0.355556, 0.9}},
             StepRow{"wet leads down", {0.4, 0.8}, -0.1, {0.457143, 0.7}},
             StepRow{"equal levels: wet leads", {0.5, 0.5}, 0.1, {0.416667, 0.6}},
             StepRow{"faint dry falls evenly", {0.1, 0.8}, 0.05, {0.05, 0.85}},
             StepRow{"faint dry ends at its floor", {0.1, 0.8}, 0.2, {0.0005, 1.0}},
             StepRow{"wet reaches its end, dry stays", {0.02, 0.05}, -0.1, {0.02, 0.0005}},
             StepRow{"beyond the end", {0.25, 1.0}, 0.25, {0.2, 1.25}},
         }) {
        SCOPED_TRACE(row.story);
        expectPair(steppedMix(row.pair, row.pair, row.step), row.expected);
    }
}

TEST(MixKnob, TheLevelsInForceTellWhichOneLeads) {
    const DryWetPair remembered{1.3, 1.2};
    expectPair(steppedMix(remembered, {1.0, 1.0}, -0.1), {1.3 * 1.2 / 1.1, 1.1});
    expectPair(steppedMix(remembered, {1.0, 0.9}, -0.1), {1.4, 1.2 * 1.3 / 1.4});
    expectPair(steppedMix({0.3, 0.0}, {0.3, 0.3}, 0.1), {0.2, 0.1});
    expectPair(steppedMix({0.0, 0.4}, {0.3, 0.2}, 0.1), {0.1, 0.3});
}

TEST(MixKnob, StepsBothLevelsInTheirRatio) {
    for (const StepRow& row : {
             StepRow{"up", {0.4, 0.8}, 0.1, {0.45, 0.9}},
             StepRow{"down to the floor", {0.4, 0.05}, -0.1, {0.004, 0.0005}},
             StepRow{"wet beyond its end, dry not yet", {0.6, 0.95}, 0.1, {0.663158, 1.05}},
             StepRow{"both beyond their ends", {1.2, 0.95}, 0.1, {1.2, 0.95}},
             StepRow{"both beyond their ends, back", {1.2, 1.2}, -0.1, {1.1, 1.1}},
             StepRow{"no dry to scale", {0.0, 0.5}, 0.1, {0.1, 0.6}},
             StepRow{"no wet to scale by", {0.4, 0.0}, 0.1, {0.4, 0.1}},
         }) {
        SCOPED_TRACE(row.story);
        expectPair(steppedLevels(row.pair, row.step), row.expected);
    }
}

TEST(MixKnob, FollowsOthersButNotItself) {
    MixKnob knob;
    knob.follow({0.2, 0.3});
    EXPECT_EQ(knob.pair(), (DryWetPair{0.2, 0.3}));
    knob.beginMove();
    knob.follow({0.9, 0.9});
    EXPECT_EQ(knob.pair(), (DryWetPair{0.2, 0.3}));
    knob.endMove();
    knob.follow({0.9, 0.9});
    EXPECT_EQ(knob.pair(), (DryWetPair{0.9, 0.9}));
}

TEST(MixKnob, StepsThereAndBackMeetWhereTheyBegan) {
    MixKnob knob;
    knob.setPair({0.4, 0.8});
    for (int i = 0; i < 8; ++i)
        (void)knob.turn(0.1, {0.4, 0.8});
    expectPair(knob.pair(), {0.4 * 0.8 / 1.6, 1.6});
    for (int i = 0; i < 8; ++i)
        (void)knob.turn(-0.1, {0.2, 1.0});
    expectPair(knob.pair(), {0.4, 0.8});
}

} // namespace
} // namespace pedl
