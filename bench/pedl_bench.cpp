// What the sound costs: the engine with each instruction set beside the plain evaluation, in one
// run; silence beside music; the dearest stretch beside the usual one; construction and memory.
//
// `pedl_bench --play SETTING SOUND SECONDS` only plays (SOUND: music or silence), for tools that
// count instructions.

#include "bench/BenchSettings.h"
#include "foundation/platform/NoDiagnostics.h"
#include "foundation/platform/NoSettings.h"
#include "foundation/platform/StandingClock.h"
#include "parameters/ParameterCatalogue.h"
#include "plugin/ZMTpedlFilterEffect.h"
#include "tests/reference/EnginePlayer.h"
#include "tests/reference/PlainPedlFilter.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <limits>
#include <malloc.h>
#include <memory>
#include <string>

namespace pedl::bench {
namespace {

using reference::PlainPlayer;
using reference::Sound;
using reference::StagedPlayer;

constexpr double kSampleRateHz = 44100.0;
constexpr int kBlockFrames = 512;
constexpr int kStretchFrames = 128; // from one control tick to the next
constexpr int kRounds = 12;         // the fastest of them counts: the rest is other programs
constexpr std::size_t kMusicFrames = 22050;
constexpr std::size_t kLongFrames = 441000;

double nanoseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<double>(std::chrono::duration_cast<std::chrono::nanoseconds>(now).count());
}

template <typename Action> double nanosecondsOf(Action&& action) {
    const double start = nanoseconds();
    action();
    return nanoseconds() - start;
}

void lower(double& fastest, double taken) {
    fastest = std::min(fastest, taken);
}

std::vector<reference::ParameterValue> programOf(const Setting& setting) {
    std::vector<reference::ParameterValue> program;
    for (int index = 0; index < kNumParams; ++index)
        program.push_back({index, kParameterRows[static_cast<std::size_t>(index)].defaultValue});
    program.insert(program.end(), setting.changes.begin(), setting.changes.end());
    return program;
}

template <typename Player> void playBlocks(Player& player, Sound& sound) {
    for (std::size_t at = 0; at < sound[0].size(); at += kBlockFrames)
        player.play(sound, at,
                    static_cast<int>(std::min<std::size_t>(kBlockFrames, sound[0].size() - at)));
}

/// A player of its own for each round, so that every round plays the same.
template <typename Player, typename... Arguments>
double nanosecondsAFrame(const Setting& setting, Sound sound, Arguments... arguments) {
    Player player(kSampleRateHz, programOf(setting), arguments...);
    const double taken = nanosecondsOf([&] { playBlocks(player, sound); });
    return taken / static_cast<double>(sound[0].size());
}

struct Cost {
    double reference = std::numeric_limits<double>::max();
    double sse2 = reference, avx2 = reference;
};

/// The three take turns, so that all meet the same weather.
Cost costOf(const Setting& setting, const Sound& sound) {
    Cost cost;
    for (int round = 0; round < kRounds; ++round) {
        lower(cost.reference, nanosecondsAFrame<PlainPlayer>(setting, sound));
        lower(cost.sse2, nanosecondsAFrame<StagedPlayer>(setting, sound, InstructionSet::Sse2));
        if (widestInstructionSet() == InstructionSet::Avx2)
            lower(cost.avx2, nanosecondsAFrame<StagedPlayer>(setting, sound, InstructionSet::Avx2));
    }
    return cost;
}

void printShare(double own, double ofReference, double aim) {
    if (own == std::numeric_limits<double>::max()) {
        std::printf("  not on this processor");
        return;
    }
    const double share = own / ofReference;
    std::printf("  %6.1f  %5.3f", own, share);
    if (aim > 0.0)
        std::printf("  %-4s %.2f", share <= aim ? "<=" : "OVER", aim);
    else
        std::printf("  %9s", "");
}

void printCost(const Setting& setting, const Cost& cost) {
    std::printf("%-28s %8.1f", setting.name, cost.reference);
    printShare(cost.sse2, cost.reference, setting.aimSse2);
    printShare(cost.avx2, cost.reference, setting.aimAvx2);
    std::printf("\n");
}

void reportFrames() {
    std::printf("\nnanoseconds a stereo frame, share of the plain evaluation's\n%-28s %8s"
                "  %6s  %5s  %9s  %6s  %5s  %9s\n",
                "", "plain", "SSE2", "share", "aim", "AVX2", "share", "aim");
    const Sound music = reference::music(kMusicFrames, kSampleRateHz, 1);
    for (const Setting& setting : benchSettings())
        printCost(setting, costOf(setting, music));
}

Sound burstThenSilence(std::size_t frames) {
    constexpr double kBurstSeconds = 0.1;
    reference::RandomChoice random(1);
    Sound sound{std::vector<double>(frames), std::vector<double>(frames)};
    const auto burst = static_cast<std::size_t>(kBurstSeconds * kSampleRateHz);
    for (std::size_t i = 0; i < std::min(burst, frames); ++i)
        for (std::vector<double>& channel : sound)
            channel[i] = random.between(-0.8, 0.8);
    return sound;
}

void reportSilence() {
    std::printf("\nten seconds of silence after a burst, share of the time of music (aim 1.05)\n");
    const Sound music = reference::music(kLongFrames, kSampleRateHz, 1);
    const Sound silence = burstThenSilence(kLongFrames);
    for (const Setting& setting : benchSettings()) {
        double ofMusic = std::numeric_limits<double>::max(), ofSilence = ofMusic;
        for (int round = 0; round < 3; ++round) {
            lower(ofMusic, nanosecondsAFrame<StagedPlayer>(setting, music));
            lower(ofSilence, nanosecondsAFrame<StagedPlayer>(setting, silence));
        }
        std::printf("%-28s %8.1f ns  %5.3f\n", setting.name, ofSilence, ofSilence / ofMusic);
    }
}

/// For each stretch the fastest of several equal passes: what is left is the stretch's own. The
/// first ones stand apart: there a new instance meets cold caches.
void reportStretches() {
    std::printf(
        "\nstretches of 128 frames: median, the dearest's share of it (aim 2), the first's\n");
    const Sound music = reference::music(kLongFrames, kSampleRateHz, 1);
    constexpr std::size_t kStretches = kLongFrames / kStretchFrames, kColdStretches = 32;
    for (const Setting& setting : benchSettings()) {
        std::vector<double> fastest(kStretches, std::numeric_limits<double>::max());
        for (int round = 0; round < 2 * kRounds; ++round) {
            StagedPlayer player(kSampleRateHz, programOf(setting));
            Sound sound = music;
            for (std::size_t i = 0; i < kStretches; ++i)
                lower(fastest[i], nanosecondsOf([&] {
                          player.play(sound, i * kStretchFrames, kStretchFrames);
                      }));
        }
        const double first = fastest.front();
        std::sort(fastest.begin() + kColdStretches, fastest.end());
        const double median = fastest[(kColdStretches + kStretches) / 2];
        std::printf("%-28s %8.1f us  %5.3f  %5.3f\n", setting.name, median / 1000.0,
                    fastest.back() / median, first / median);
    }
}

VstIntPtr hostThatKnowsNothing(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
    return opcode == audioMasterVersion ? 2400 : 0;
}

double heapMegabytes() {
    const auto heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd) / 1e6;
}

/// The whole effect, its stated waits left out. To be called first: the tables that all instances
/// share are built with the first one.
void reportInstances() {
    StandingClock clock;
    NoDiagnostics diagnostics;
    NoSettings settings;
    std::vector<std::unique_ptr<ZMTpedlFilterEffect>> effects;
    std::printf("an instance of the effect, waits left out (aims: 3 ms, 0.7 MB of its own)\n");
    for (const char* name : {"the first in the process", "the second", "the third"}) {
        const double before = heapMegabytes();
        const double taken = nanosecondsOf([&] {
            effects.push_back(std::make_unique<ZMTpedlFilterEffect>(
                hostThatKnowsNothing, EffectSurroundings{clock, diagnostics, settings}));
        });
        std::printf("%-28s %8.3f ms  %6.3f MB\n", name, taken / 1e6, heapMegabytes() - before);
    }
    for (const double rateHz : {44100.0, 96000.0, 96000.0}) {
        effects.back()->setSampleRate(static_cast<float>(rateHz));
        const double taken = nanosecondsOf([&] { effects.back()->resume(); });
        std::printf("resume at %6.0f Hz           %8.3f ms\n", rateHz, taken / 1e6);
    }
}

std::string processorName() {
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("model name"))
            return line.substr(line.find(':') + 2);
    return "unknown processor";
}

int playOnly(const std::string& name, const std::string& sound, double seconds) {
    for (const Setting& setting : benchSettings()) {
        if (setting.name != name)
            continue;
        const auto frames = static_cast<std::size_t>(seconds * kSampleRateHz);
        Sound played = sound == "silence" ? burstThenSilence(frames)
                                          : reference::music(frames, kSampleRateHz, 1);
        StagedPlayer player(kSampleRateHz, programOf(setting));
        playBlocks(player, played);
        return EXIT_SUCCESS;
    }
    std::fprintf(stderr, "pedl_bench: no setting is named \"%s\"\n", name.c_str());
    return EXIT_FAILURE;
}

} // namespace
} // namespace pedl::bench

int main(int argc, char** argv) {
    using namespace pedl::bench;
    if (argc == 5 && std::strcmp(argv[1], "--play") == 0)
        return playOnly(argv[2], argv[3], std::atof(argv[4]));
    std::printf("%s\n\n", processorName().c_str());
    reportInstances();
    reportFrames();
    reportSilence();
    reportStretches();
    return EXIT_SUCCESS;
}
