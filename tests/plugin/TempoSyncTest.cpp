#include "plugin/TempoSync.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

constexpr float kManual = 0.5F;
constexpr float kHost = 1.0F;

/// The value in the middle of a division's step.
float divisionAt(int position) {
    return (static_cast<float>(position) + 0.5F) / 31.0F;
}

constexpr int kEightNotes = 0;
constexpr int kWholeNote = 8;
constexpr int kThreeEighths = 10;

TEST(TempoSync, RateIsTheDivisionAtTheTempo) {
    struct Row {
        float division;
        double hostTempoBpm, rateHz;
        bool isOutOfRange;
    };
    for (const Row row : {
             Row{divisionAt(kWholeNote), 120.0, 0.5, false},
             Row{divisionAt(kThreeEighths), 90.0, 1.0, false},
             Row{divisionAt(12), 97.5, 1.625, false}, // one beat
             Row{divisionAt(kWholeNote), 700.0, 2.5, false},
             Row{divisionAt(kWholeNote), 10.0, 0.0625, false},
             Row{divisionAt(kEightNotes), 15.0, 0.01, true}, // wanted: 0.0078
             Row{1.0F, 600.0, 15.0, true},                   // wanted: 160
         }) {
        SCOPED_TRACE(testing::Message() << row.rateHz << " Hz");
        TempoSync sync;
        sync.setMode(kHost);
        sync.setDivision(row.division);
        const TempoSync::Result result = sync.update({row.hostTempoBpm, std::nullopt});
        ASSERT_TRUE(result.hasRate);
        EXPECT_NEAR(result.normalisedRate, (row.rateHz - 0.01) / 14.99, 1e-7);
        EXPECT_EQ(sync.isRateOutOfRange(), row.isOutOfRange);
        EXPECT_TRUE(sync.followsHostTempo());
        EXPECT_FALSE(result.isPhaseLocked); // no position
    }
}

TEST(TempoSync, ManualTempoServesInItsModeAndWhereTheHostHasNone) {
    for (const float mode : {kManual, kHost}) {
        TempoSync sync;
        sync.setMode(mode);
        sync.setManualTempo(0.128205128F); // 90 beats per minute
        const HostTime time{mode == kManual ? std::optional(300.0) : std::nullopt, 5.0};
        const TempoSync::Result result = sync.update(time);
        EXPECT_NEAR(result.normalisedRate, (0.375 - 0.01) / 14.99, 1e-7);
        EXPECT_NEAR(sync.tempoBpm(), 90.0, 1e-5);
        EXPECT_FALSE(sync.followsHostTempo());
        EXPECT_FALSE(result.isPhaseLocked);
        EXPECT_TRUE(mode == kHost || result.phaseCycles == 0.0);
    }
}

TEST(TempoSync, FreeModeLeavesTheRateAlone) {
    TempoSync sync;
    sync.setMode(0.24F);
    const TempoSync::Result result = sync.update({120.0, 1.0});
    EXPECT_FALSE(result.hasRate || result.isPhaseLocked);
}

TEST(TempoSync, PhaseIsThePositionWithinTheCycle) {
    struct Row {
        int division;
        double positionQuarters, phaseCycles;
    };
    for (const Row row :
         {Row{kWholeNote, 0.0, 0.0}, Row{kWholeNote, 5.0, 0.25}, Row{kWholeNote, 4003.0, 0.75},
          Row{kEightNotes, 40.0, 0.25}, Row{kThreeEighths, 13.0, 2.0 / 3.0}, Row{12, 0.25, 0.25},
          Row{kWholeNote, -1.0, -0.25}}) {
        SCOPED_TRACE(testing::Message() << row.positionQuarters << " quarters");
        TempoSync sync;
        sync.setMode(kHost);
        sync.setDivision(divisionAt(row.division));
        const TempoSync::Result result = sync.update({97.5, row.positionQuarters});
        EXPECT_TRUE(result.isPhaseLocked);
        EXPECT_NEAR(result.phaseCycles, row.phaseCycles, 1e-12);
    }
}

} // namespace
} // namespace pedl
