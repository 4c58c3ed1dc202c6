#include "host/HostServices.h"

#include "foundation/vst24/VstOpcodes.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

const VstTimeInfo& timeOf(HostServices& host) {
    AEffect record{};
    record.resvd1 = reinterpret_cast<VstIntPtr>(&host);
    return *reinterpret_cast<const VstTimeInfo*>(
        HostServices::callback(&record, audioMasterGetTime, 0, 0, nullptr, 0.0F));
}

TEST(HostServices, TheSongsPlaceFollowsFromTempoAndFrames) {
    EXPECT_EQ(HostServices::callback(nullptr, audioMasterGetTime, 0, 0, nullptr, 0), 0);
    HostServices host;
    host.sampleRateHz = 48000.0;
    // 7 quarters have gone by in 4 s; there a bar of 6/8 begins, in the tempo of 60.
    host.transport = {60.0, 6, 8, true, 4.0, 7.0, 7.0};
    EXPECT_NE(timeOf(host).flags & kVstTransportChanged, 0);
    host.advance(48000 * 3);
    host.advance(48000 * 5); // 4 s on
    const VstTimeInfo& time = timeOf(host);
    EXPECT_DOUBLE_EQ(time.samplePos, 384000.0);
    EXPECT_DOUBLE_EQ(time.ppqPos, 11.0);
    EXPECT_DOUBLE_EQ(time.barStartPos, 10.0);
    EXPECT_EQ(time.timeSigDenominator, 8);
    EXPECT_EQ(time.smpteOffset, 8 * 25 * 80);
    EXPECT_EQ(time.samplesToNextClock, 0) << "11 quarters are 264 clocks exactly";
    constexpr VstInt32 kKnown = kVstPpqPosValid | kVstTempoValid | kVstTransportPlaying;
    EXPECT_EQ(time.flags & (kKnown | kVstTransportChanged), kKnown);
}

} // namespace
} // namespace pedl
