// What a host call leaves behind when memory fails in it. This program's allocations fail where a
// test says so.

#include "foundation/platform/NoSettings.h"
#include "foundation/platform/StandingClock.h"
#include "plugin/ZMTpedlFilterEffect.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <new>
#include <vector>

namespace {

constexpr long kNever = std::numeric_limits<long>::max();
long allocationsLeft = kNever;

} // namespace

void* operator new(std::size_t bytes) {
    if (allocationsLeft-- <= 0)
        throw std::bad_alloc();
    if (void* const block = std::malloc(bytes))
        return block;
    throw std::bad_alloc();
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
    return allocationsLeft-- <= 0 ? nullptr : std::malloc(bytes);
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

namespace pedl {
namespace {

struct LastLine final : DiagnosticStream {
    void line(std::string_view text) override {
        ++lines;
        isOfFailure = text.starts_with("ZMT pedlFilter:host call ");
    }
    int lines = 0;
    bool isOfFailure = false;
};

struct Instance {
    StandingClock clock;
    LastLine diagnostics;
    NoSettings settings;
    ZMTpedlFilterEffect effect{&Instance::host, {clock, diagnostics, settings}};

    inline static VstIntPtr rateHz = 44100;
    static VstIntPtr host(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
        return opcode == audioMasterGetSampleRate ? rateHz : 0;
    }
    VstIntPtr call(VstInt32 opcode, VstIntPtr value, void* ptr) {
        AEffect* const record = effect.getAeffect();
        return record->dispatcher(record, opcode, 0, value, ptr, 0.0F);
    }
    std::array<float, 512> played() {
        std::array<float, 512> samples{};
        samples[0] = 1.0F;
        float* channels[] = {samples.data(), samples.data()};
        effect.processReplacing(channels, channels, 512);
        return samples;
    }
    std::vector<std::byte> bankBytes() { return effect.stored(FileKind::Bank); }
};

/// Lets the first allocation of the call fail, then the second, until it needs no more than there
/// are; after each failure the instance is compared with a twin that never saw the call.
template <typename Call> void failEachAllocation(VstIntPtr no, Call call) {
    for (long fails = 0;; ++fails) {
        SCOPED_TRACE(testing::Message() << "allocation " << fails);
        Instance instance;
        Instance twin;
        Instance::rateHz = 50000 + fails; // no table of it is there yet
        const int linesBefore = instance.diagnostics.lines;
        allocationsLeft = fails;
        const VstIntPtr answer = call(instance);
        const bool hasFailed = allocationsLeft < 0;
        allocationsLeft = kNever;
        Instance::rateHz = 44100;
        if (!hasFailed)
            return;
        EXPECT_EQ(answer, no);
        EXPECT_EQ(instance.diagnostics.lines, linesBefore + 1);
        EXPECT_TRUE(instance.diagnostics.isOfFailure);
        EXPECT_EQ(instance.effect.getSampleRate(), twin.effect.getSampleRate());
        EXPECT_EQ(instance.bankBytes(), twin.bankBytes());
        EXPECT_EQ(instance.played(), twin.played());
        ASSERT_LT(fails, 100);
    }
}

TEST(FailingMemory, ResumeAtANewRateLeavesTheOldOne) {
    failEachAllocation(
        0, [](Instance& instance) { return instance.call(effMainsChanged, 1, nullptr); });
}

TEST(FailingMemory, AChunkIsTakenWholeWhateverItHasToRepair) {
    Instance source;
    std::vector<std::byte> chunk;
    {
        void* data = nullptr;
        const auto size = static_cast<std::size_t>(source.call(effGetChunk, 0, &data));
        const auto* const bytes = static_cast<const std::byte*>(data);
        chunk.assign(bytes, bytes + size);
    }
    std::fill(chunk.begin() + 49 + 168 + 24, chunk.begin() + 49 + 168 + 28, std::byte{0xFF}); // NaN
    Instance instance;
    allocationsLeft = 0;
    const VstIntPtr answer =
        instance.call(effSetChunk, static_cast<VstIntPtr>(chunk.size()), chunk.data());
    allocationsLeft = kNever;
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(instance.effect.getParameter(kPower), 0.0F);
}

} // namespace
} // namespace pedl
