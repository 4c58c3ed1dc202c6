// Other makers' libraries, as Debian packages them: the host has to get along with all of them.

#include "host/Plugin.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace pedl {
namespace {

constexpr VstInt32 kBlockFrames = 256;
constexpr int kBlocks = 80; // some 0.4 s

std::vector<std::filesystem::path> librariesIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> libraries;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error))
        if (entry.path().extension() == ".so")
            libraries.push_back(entry.path());
    std::sort(libraries.begin(), libraries.end());
    return libraries;
}

/// Different at every frame, the same in every run.
float noise(std::uint32_t& state) {
    state = state * 1664525U + 1013904223U;
    return static_cast<float>(static_cast<std::int32_t>(state)) / 4294967296.0F;
}

struct Heard {
    bool isFinite = true;
    std::set<float> values; // of the first output, some of them
};

Heard listen(Plugin& plugin) {
    const auto inputs = static_cast<std::size_t>(plugin.record().numInputs);
    const auto outputs = static_cast<std::size_t>(plugin.record().numOutputs);
    std::vector<std::vector<float>> in(inputs, std::vector<float>(kBlockFrames));
    std::vector<std::vector<float>> out(outputs, std::vector<float>(kBlockFrames));
    std::vector<float*> inPointers, outPointers;
    for (auto& channel : in)
        inPointers.push_back(channel.data());
    for (auto& channel : out)
        outPointers.push_back(channel.data());

    Heard heard;
    std::uint32_t state = 1;
    plugin.services().transport.isPlaying = true;
    plugin.resume();
    for (int block = 0; block < kBlocks; ++block) {
        for (auto& channel : in)
            for (float& sample : channel)
                sample = noise(state);
        plugin.process(inPointers.data(), outPointers.data(), kBlockFrames);
        for (const auto& channel : out)
            for (const float sample : channel)
                heard.isFinite = heard.isFinite && std::isfinite(sample);
        heard.values.insert(out[0][kBlockFrames / 2]);
    }
    plugin.suspend();
    return heard;
}

TEST(ForeignPlugins, AreLoadedQueriedAndRunWithoutAHitch) {
    const std::vector<std::filesystem::path> libraries = librariesIn("/usr/lib/vst");
    if (libraries.empty())
        GTEST_SKIP() << "no libraries in /usr/lib/vst: install dpf-plugins-vst and zynaddsubfx-vst";
#if defined(__SANITIZE_ADDRESS__)
    const __lsan::ScopedDisabler leaksOfOthers; // some never free their record
#endif
    int effects = 0;
    int alive = 0;
    for (const auto& library : libraries) {
        SCOPED_TRACE(library.string());
        Result<std::unique_ptr<Plugin>> loaded = Plugin::load(library, {48000.0, kBlockFrames});
        ASSERT_TRUE(loaded.ok()) << loaded.problem().text;
        Plugin& plugin = *loaded.value();
        EXPECT_NE(plugin.name() + plugin.product(), "");
        for (VstInt32 index = 0; index < plugin.numParameters(); ++index) {
            const float value = plugin.parameter(index);
            (void)plugin.displayText(index);
            (void)plugin.parameterName(index);
            EXPECT_TRUE(std::isfinite(value)) << plugin.parameterName(index);
        }
        EXPECT_FALSE(plugin.tellsTextsOfOtherValues()) << "only our own effect does";
        if (plugin.record().numInputs == 0 || plugin.record().numOutputs == 0)
            continue; // an instrument: silent without notes
        ++effects;
        const Heard heard = listen(plugin);
        EXPECT_TRUE(heard.isFinite);
        // Not every effect answers noise at its defaults (gates, side chains), but most do.
        if (heard.values.size() > kBlocks / 2)
            ++alive;
    }
    EXPECT_GE(effects, 5);
    EXPECT_GE(alive, effects - 2) << "effects whose output stands still";
}

} // namespace
} // namespace pedl
