#include "host/HostServices.h"

#include "foundation/vst24/VstOpcodes.h"

#include <gtest/gtest.h>

#include <cstring>

namespace pedl {
namespace {

VstIntPtr ask(HostServices& host, VstInt32 opcode, void* ptr = nullptr, VstInt32 index = 0,
              float opt = 0.0F) {
    AEffect record{};
    record.resvd1 = reinterpret_cast<VstIntPtr>(&host);
    return HostServices::callback(&record, opcode, index, 0, ptr, opt);
}

const VstTimeInfo& timeOf(HostServices& host) {
    return *reinterpret_cast<const VstTimeInfo*>(ask(host, audioMasterGetTime));
}

TEST(HostServices, AnswersWhatThePlugInAsksOfItsOwnHost) {
    HostServices host;
    host.sampleRateHz = 96000.0;
    host.blockFrames = 64;
    host.processLevel = kVstProcessLevelOffline;
    char yes[] = "sendVstTimeInfo";
    char unknown[] = "levitate";
    EXPECT_EQ(ask(host, audioMasterVersion), 2400);
    EXPECT_EQ(ask(host, audioMasterGetSampleRate), 96000);
    EXPECT_EQ(ask(host, audioMasterGetBlockSize), 64);
    EXPECT_EQ(ask(host, audioMasterGetCurrentProcessLevel), 4);
    EXPECT_EQ(ask(host, audioMasterCanDo, yes), 1);
    EXPECT_EQ(ask(host, audioMasterCanDo, unknown), 0);
    EXPECT_EQ(ask(host, audioMasterProcessEvents, yes), 1);
    for (const VstInt32 unasked : {audioMasterIdle, audioMasterCurrentId, audioMasterWantMidi,
                                   audioMasterIOChanged, audioMasterGetDirectory})
        EXPECT_EQ(ask(host, unasked), 0) << unasked;
    EXPECT_EQ(ask(host, 12345), 0);
    EXPECT_EQ(ask(host, -1), 0);
}

TEST(HostServices, AnswersAPlugInThatNamesNoInstance) {
    char text[64];
    std::memset(text, '#', sizeof text);
    EXPECT_EQ(HostServices::callback(nullptr, audioMasterVersion, 0, 0, nullptr, 0), 2400);
    EXPECT_EQ(HostServices::callback(nullptr, audioMasterGetProductString, 0, 0, text, 0), 1);
    EXPECT_STREQ(text, "zmt-pedlfilter");
    EXPECT_EQ(text[sizeof "zmt-pedlfilter"], '#') << "one terminator, no padding";
    EXPECT_EQ(HostServices::callback(nullptr, audioMasterGetVendorString, 0, 0, nullptr, 0), 0);
    EXPECT_EQ(HostServices::callback(nullptr, audioMasterGetTime, 0, 0x600, nullptr, 0), 0);
}

TEST(HostServices, TheSongsPlaceFollowsFromTempoAndFrames) {
    HostServices host;
    host.sampleRateHz = 48000.0;
    host.transport = {90.0, 3, 4, true};
    EXPECT_EQ(timeOf(host).flags & kVstTransportChanged, kVstTransportChanged);
    host.advance(48000 * 5); // 5 s at 90 beats a minute: 7.5 quarters, in the third bar of 3
    const VstTimeInfo& time = timeOf(host);
    EXPECT_DOUBLE_EQ(time.samplePos, 240000.0);
    EXPECT_DOUBLE_EQ(time.sampleRate, 48000.0);
    EXPECT_DOUBLE_EQ(time.tempo, 90.0);
    EXPECT_DOUBLE_EQ(time.ppqPos, 7.5);
    EXPECT_DOUBLE_EQ(time.barStartPos, 6.0);
    EXPECT_EQ(time.timeSigNumerator, 3);
    EXPECT_EQ(time.smpteOffset, 5 * 25 * 80);
    EXPECT_EQ(time.samplesToNextClock, 0) << "7.5 quarters are 180 clocks exactly";
    EXPECT_EQ(time.flags & (kVstPpqPosValid | kVstTempoValid | kVstTransportPlaying),
              kVstPpqPosValid | kVstTempoValid | kVstTransportPlaying);
    EXPECT_EQ(time.flags & kVstTransportChanged, 0);
}

TEST(HostServices, RecordsAutomationWithItsPlaceAndCountsWhatItCannotKeep) {
    HostServices host;
    host.advance(512);
    ask(host, audioMasterBeginEdit, nullptr, 7);
    ask(host, audioMasterAutomate, nullptr, 7, 0.75F);
    ask(host, audioMasterEndEdit, nullptr, 7);
    ask(host, audioMasterUpdateDisplay);
    ASSERT_EQ(host.records().size(), 1U);
    EXPECT_EQ(host.records()[0].index, 7);
    EXPECT_EQ(host.records()[0].normalised, 0.75F);
    EXPECT_EQ(host.records()[0].positionFrames, 512);
    EXPECT_EQ(host.beginEdits() + host.endEdits() + host.displayUpdates(), 3U);

    for (std::size_t i = 0; i < HostServices::kMostRecords; ++i)
        ask(host, audioMasterAutomate);
    EXPECT_EQ(host.records().size(), HostServices::kMostRecords);
    EXPECT_EQ(host.recordsSeen(), HostServices::kMostRecords + 1);
}

} // namespace
} // namespace pedl
