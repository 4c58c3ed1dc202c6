// Other makers' libraries, as Debian packages them: the host has to get along with all of them.

#include "host/Plugin.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace pedl {
namespace {

constexpr VstInt32 kBlockFrames = 256;
constexpr int kBlocks = 80; // some 0.4 s

struct Heard {
    bool isFinite = true;
    std::set<float> values; // of the first output, some of them
};

Heard listen(Plugin& plugin) {
    std::minstd_rand random; // the same in every run
    std::vector<std::vector<float>> channels(
        static_cast<std::size_t>(plugin.record().numInputs + plugin.record().numOutputs),
        std::vector<float>(kBlockFrames));
    std::vector<float*> pointers;
    for (auto& channel : channels)
        pointers.push_back(channel.data());
    float** const outputs = pointers.data() + plugin.record().numInputs;
    Heard heard;
    plugin.services().transport.isPlaying = true;
    plugin.resume();
    for (int block = 0; block < kBlocks; ++block) {
        for (auto& channel : channels)
            for (float& sample : channel)
                sample = std::uniform_real_distribution<float>(-0.5F, 0.5F)(random);
        plugin.process(pointers.data(), outputs, kBlockFrames);
        for (const auto& channel : channels)
            for (const float sample : channel)
                heard.isFinite = heard.isFinite && std::isfinite(sample);
        heard.values.insert(outputs[0][kBlockFrames / 2]);
    }
    plugin.suspend();
    return heard;
}

TEST(ForeignPlugins, AreLoadedQueriedAndRunWithoutAHitch) {
    std::error_code error;
    const std::filesystem::directory_iterator folder("/usr/lib/vst", error);
    if (error)
        GTEST_SKIP() << "no /usr/lib/vst: install dpf-plugins-vst and zynaddsubfx-vst";
#if defined(__SANITIZE_ADDRESS__)
    const __lsan::ScopedDisabler leaksOfOthers; // some never free their record
#endif
    int effects = 0;
    int alive = 0;
    for (const auto& entry : folder) {
        if (entry.path().extension() != ".so")
            continue;
        SCOPED_TRACE(entry.path());
        auto loaded = Plugin::load(entry.path(), {48000.0, kBlockFrames});
        ASSERT_TRUE(loaded.ok()) << loaded.problem().text;
        Plugin& plugin = *loaded.value();
        EXPECT_NE(plugin.name() + plugin.product(), "");
        for (VstInt32 index = 0; index < plugin.numParameters(); ++index) {
            (void)plugin.displayText(index);
            EXPECT_TRUE(std::isfinite(plugin.parameter(index))) << plugin.parameterName(index);
        }
        EXPECT_FALSE(plugin.tellsTextsOfOtherValues()) << "only our own effect does";
        if (plugin.record().numInputs == 0 || plugin.record().numOutputs == 0)
            continue; // an instrument: silent without notes
        ++effects;
        const Heard heard = listen(plugin);
        EXPECT_TRUE(heard.isFinite);
        // Not every effect answers noise at its defaults (gates, side chains), but most do.
        alive += heard.values.size() > kBlocks / 2 ? 1 : 0;
    }
    EXPECT_GE(effects, 5);
    EXPECT_GE(alive, effects - 2) << "effects whose output stands still";
}

} // namespace
} // namespace pedl
