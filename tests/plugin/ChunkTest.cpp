// The chunk of the whole effect, through the record as a host keeps it. What damaged and old ones
// do is told in tests/presets/StoredDataTest.cpp.

#include "plugin/ZMTpedlFilterEffect.h"

#include "presets/FactoryPrograms.h"
#include "tests/presets/Journal.h"
#include "tests/support/StoredBytes.h"

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <memory>
#include <random>

namespace pedl {
namespace {

using test::Journal;
using test::StoredBytes;
using Bytes = std::vector<std::byte>;
using Lines = std::vector<std::string>;

class Chunk : public testing::Test {
protected:
    Journal journal;
    std::unique_ptr<ZMTpedlFilterEffect> owned = newEffect();
    ZMTpedlFilterEffect& effect = *owned;

    [[nodiscard]] std::unique_ptr<ZMTpedlFilterEffect> newEffect() {
        return std::make_unique<ZMTpedlFilterEffect>(
            &Journal::host,
            EffectSurroundings{journal.clock, journal.diagnostics, journal.settings});
    }

    static Bytes get(ZMTpedlFilterEffect& from, VstInt32 isPreset = 0) {
        AEffect* const record = from.getAeffect();
        void* data = nullptr;
        const VstIntPtr size = record->dispatcher(record, effGetChunk, isPreset, 0, &data, 0.0F);
        return {static_cast<std::byte*>(data), static_cast<std::byte*>(data) + size};
    }
    static VstIntPtr set(ZMTpedlFilterEffect& to, Bytes bytes, VstIntPtr more = 0) {
        AEffect* const record = to.getAeffect();
        return record->dispatcher(record, effSetChunk, 1,
                                  static_cast<VstIntPtr>(bytes.size()) + more, bytes.data(), 0.0F);
    }
};

TEST_F(Chunk, CarriesTheWholeStateToAnotherInstance) {
    std::mt19937 random(20261124);
    for (int slot = 0; slot < 5; ++slot) {
        effect.selectProgram(static_cast<std::int32_t>(random() % 140));
        for (int change = 0; change < 20; ++change)
            effect.setParameter(static_cast<VstInt32>(random() % 56),
                                static_cast<float>(random() % 1000) / 999.0F);
        effect.renameCurrentProgram("Mine");
    }
    for (const VstInt32 parameter : {1, 21, 55})
        effect.setParameter(56 + parameter, static_cast<float>(parameter) / 60.0F);
    effect.setParameter(kMidiChannel, 0.3F);
    const Bytes saved = get(effect, 1); // asked for one program, gives all
    const unsigned start[] = {0, 0, 0, 2, 'F', 'p', 'M', 'Z', 'F', 'p', 'M', 'Z', 56, 0, 0, 0, 1};
    EXPECT_EQ(saved.size(), 276241U);
    EXPECT_TRUE(
        std::equal(std::begin(start), std::end(start), saved.begin(),
                   [](unsigned expected, std::byte byte) { return std::byte(expected) == byte; }));
    const auto other = newEffect();
    ASSERT_NE(get(*other), saved);
    EXPECT_EQ(set(*other, saved), 0);
    EXPECT_EQ(get(*other), saved);
    for (VstInt32 index = 0; index < 2 * kNumParams; ++index)
        EXPECT_EQ(other->getParameter(index), effect.getParameter(index)) << index;
    for (const VstIntPtr more : {VstIntPtr{1} << 32, VstIntPtr{1} << 62, VstIntPtr{-300000}})
        EXPECT_EQ(set(*other, saved, more), -1) << "a size that no chunk has";
}

TEST_F(Chunk, LoadingTellsTheViewAndThenSelectsTheProgram) {
    effect.setView(&journal.view);
    StoredBytes bytes = StoredBytes().word(0x02000000).id().header({.records = 4, .slot = 140});
    bytes.programHead(9, "Nine").programHead(0, "First").value(0, 1, 1.5F).link(0, -1.0F, 1.0F);
    journal.lines.clear();
    EXPECT_EQ(set(effect, bytes.bytes()), 0);
    std::erase_if(journal.lines, [](const std::string& line) {
        return line.starts_with("view ") && std::isdigit(line[5]) != 0;
    });
    EXPECT_EQ(
        journal.lines,
        (Lines{"line Invalid parameter 0 value -1.000000 on load of MIDI", "view channel 0.972222",
               "line Invalid parameter 1 value 1.500000 on load of preset 0 First",
               "view menu entry 0", "view menu entry 9", "view shows 0", "time 512", "wait 100",
               "update display", "begin 0", "end 0"}));
    EXPECT_EQ(effect.getParameter(1), 1.0F);
}

} // namespace
} // namespace pedl
