// What it costs a host to save and to restore the whole state. The wait after a program is selected
// is left out: it is the caller's time, not work.

#include "foundation/platform/NoDiagnostics.h"
#include "foundation/platform/NoSettings.h"
#include "foundation/platform/StandingClock.h"
#include "foundation/vst24/VstOpcodes.h"
#include "plugin/ZMTpedlFilterEffect.h"

#include <benchmark/benchmark.h>
#include <cstddef>
#include <filesystem>
#include <malloc.h>
#include <memory>
#include <string>
#include <vector>

namespace {

VstIntPtr host(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
    return opcode == audioMasterVersion ? 2400 : 0;
}

/// One instance, and its fresh chunk in the host's own memory.
struct Project {
    Project() {
        void* data = nullptr;
        const VstInt32 size = effect.getChunk(&data, false);
        const auto* const bytes = static_cast<const std::byte*>(data);
        chunk.assign(bytes, bytes + size);
    }

    pedl::StandingClock clock;
    pedl::NoDiagnostics diagnostics;
    pedl::NoSettings settings;
    pedl::ZMTpedlFilterEffect effect{&host, {clock, diagnostics, settings}};
    std::vector<std::byte> chunk;
};

void getChunk(benchmark::State& state) {
    Project project;
    for ([[maybe_unused]] auto round : state) {
        void* data = nullptr;
        benchmark::DoNotOptimize(project.effect.getChunk(&data, false));
        benchmark::DoNotOptimize(data);
    }
}

void setChunk(benchmark::State& state) {
    Project project;
    const auto size = static_cast<VstInt32>(project.chunk.size());
    for ([[maybe_unused]] auto round : state)
        benchmark::DoNotOptimize(project.effect.setChunk(project.chunk.data(), size, false));
}

/// From the path to the selected program. The file is in the system's cache, as one that was just
/// picked in a dialog is.
void loadBankFile(benchmark::State& state) {
    Project project;
    const std::string path = std::filesystem::temp_directory_path() / "pedl-state-bench.zmb";
    if (project.effect.files().save(pedl::FileKind::Bank, path))
        state.SkipWithError("no bank file to load");
    for ([[maybe_unused]] auto round : state)
        benchmark::DoNotOptimize(project.effect.files().load(pedl::FileKind::Bank, path));
    std::filesystem::remove(path);
}

/// What the heap holds more with each further instance, its chunk included: a host saves sooner or
/// later.
void heldByAnInstance(benchmark::State& state) {
    const Project first; // brings the tables that all share
    std::size_t held = 0;
    for ([[maybe_unused]] auto round : state) {
        const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
        const auto next = std::make_unique<Project>();
        held = mallinfo2().uordblks + mallinfo2().hblkhd - before - next->chunk.capacity();
    }
    state.counters["bytes"] = static_cast<double>(held);
}

BENCHMARK(getChunk)->Unit(benchmark::kMicrosecond);
BENCHMARK(setChunk)->Unit(benchmark::kMicrosecond);
BENCHMARK(loadBankFile)->Unit(benchmark::kMicrosecond);
BENCHMARK(heldByAnInstance)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
