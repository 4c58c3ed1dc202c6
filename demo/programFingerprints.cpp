// program-fingerprints: plays every factory program over every material and prints what a table of
// sounds is judged by: levels, movement, what the names promise, and who sounds like whom.

#include "demo/ChangeWalk.h"
#include "demo/Fingerprint.h"
#include "demo/Material.h"
#include "demo/Movement.h"
#include "demo/ProgramPlay.h"
#include "demo/Promises.h"
#include "presets/FactoryNotes.h"
#include "presets/FactoryPrograms.h"
#include "presets/ProgramBank.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace pedl::demo {

namespace {

constexpr int kMeasured = 121; // the last is one of the slots that are "Init"
constexpr int kBypass = 121;   // in the list of prints
constexpr double kSoftDb = -18.0;

struct Measured {
    std::vector<Fingerprint> prints; // by material
    std::vector<double> totalDb;
    double peakDb = -200.0;
};

struct Dry {
    std::vector<StereoSound> sounds;
    std::vector<ShortTimes> times;
    std::vector<ShortTimes> softTimes;
};

Dry dryMaterial() {
    Dry dry;
    for (const std::string& name : materialNames()) {
        dry.sounds.push_back(material(name));
        dry.times.push_back(shortTimesOf(dry.sounds.back()));
        StereoSound soft = dry.sounds.back();
        for (auto* channel : {&soft.left, &soft.right})
            for (float& sample : *channel)
                sample *= static_cast<float>(std::pow(10.0, kSoftDb / 20.0));
        dry.softTimes.push_back(shortTimesOf(soft));
    }
    return dry;
}

Measured measure(const ProgramRecord& program, const Dry& dry) {
    Measured measured;
    for (std::size_t m = 0; m < dry.sounds.size(); ++m) {
        const ShortTimes loud = shortTimesOf(playProgram(program, dry.sounds[m], {}).output);
        const ShortTimes soft =
            shortTimesOf(playProgram(program, dry.sounds[m], {.inputGainDb = kSoftDb}).output);
        measured.prints.push_back(fingerprintOf(dry.times[m], loud, soft));
        measured.totalDb.push_back(loud.totalDb);
        measured.peakDb = std::max(measured.peakDb, loud.peakDb);
    }
    return measured;
}

double stepsBetween(const Measured& one, const Measured& other) {
    double sum = 0.0;
    for (std::size_t m = 0; m < one.prints.size(); ++m)
        sum += demo::stepsBetween(one.prints[m], other.prints[m]);
    return sum / static_cast<double>(one.prints.size());
}

const char* nameOf(int index) {
    return index == kBypass ? "(bypass)" : factoryProgramName(index).data();
}

void printProgram(int slot, const std::vector<Measured>& all) {
    const ProgramRecord program = factoryProgram(slot);
    const std::string own(kFactoryNotes[static_cast<std::size_t>(slot)].material);
    const auto m =
        static_cast<std::size_t>(std::ranges::find(materialNames(), own) - materialNames().begin());
    const Measured& measured = all[static_cast<std::size_t>(slot)];
    int nearest = -1;
    double steps = 1e9;
    for (int other = 0; other <= kBypass; ++other)
        if (other != slot)
            if (const double between = stepsBetween(measured, all[static_cast<std::size_t>(other)]);
                between < steps) {
                steps = between;
                nearest = other;
            }
    const Movement movement = steadyMovement(program, -14.0, 120.0);
    std::printf(
        "%3d %-23s %-5s %+5.1f %+5.1f  %5.0f %5.0f %4.1f %5.2f  %+5.1f %+5.1f %5.2f  %5.1f %s\n",
        slot, nameOf(slot), own.c_str(), measured.totalDb[m] - all[0].totalDb[m], measured.peakDb,
        movement.lowHz, movement.highHz, movement.depthOctaves, movement.cutoffRateHz,
        movement.quietGainDb, movement.loudGainDb, movement.gainRateHz, steps, nameOf(nearest));
    for (const Promise& promise : promisesOf(slot, program))
        if (!promise.isKept)
            std::printf("        BROKEN: %s\n", promise.what.c_str());
    std::fflush(stdout);
}

void printAll(const std::vector<int>& slots) {
    const Dry dry = dryMaterial();
    std::vector<Measured> all(kBypass + 1);
    const auto measureFrom = [&](int first) {
        for (int slot = first; slot < kMeasured; slot += 2)
            all[static_cast<std::size_t>(slot)] = measure(factoryProgram(slot), dry);
    };
    std::thread other(measureFrom, 1);
    measureFrom(0);
    other.join();
    for (std::size_t m = 0; m < dry.sounds.size(); ++m) {
        all[kBypass].prints.push_back(fingerprintOf(dry.times[m], dry.times[m], dry.softTimes[m]));
        all[kBypass].totalDb.push_back(dry.times[m].totalDb);
    }
    std::printf("%3s %-23s %-5s %5s %5s  %5s %5s %4s %5s  %5s %5s %5s  %5s %s\n", "", "program",
                "on", "level", "peak", "low", "high", "oct", "Hz", "gain", "dB", "Hz", "steps",
                "nearest");
    for (const int slot : slots)
        printProgram(slot, all);
    struct Pair {
        double steps;
        int one, other;
    };
    std::vector<Pair> pairs;
    for (int one = 0; one <= kBypass; ++one)
        for (int second = one + 1; second <= kBypass; ++second)
            pairs.push_back({stepsBetween(all[static_cast<std::size_t>(one)],
                                          all[static_cast<std::size_t>(second)]),
                             one, second});
    std::ranges::sort(pairs, {}, &Pair::steps);
    std::printf("\nNearest pairs, in just audible steps:\n");
    for (std::size_t i = 0; i < 25; ++i)
        std::printf("%5.1f  %s / %s\n", pairs[i].steps, nameOf(pairs[i].one),
                    nameOf(pairs[i].other));
}

void printChanges() {
    std::vector<Change> changes = walkThroughAllChanges(kMeasured);
    const auto worst = [&](const char* what, double Change::*figure) {
        std::ranges::sort(changes, std::greater(), figure);
        std::printf("\n%zu changes; the worst %s, dB above both programs' own:\n", changes.size(),
                    what);
        for (std::size_t i = 0; i < 25; ++i)
            std::printf("%+5.1f  %s -> %s\n", changes[i].*figure, nameOf(changes[i].from),
                        nameOf(changes[i].to));
    };
    worst("bursts", &Change::burstDb);
    worst("clicks", &Change::clickDb);
}

} // namespace

} // namespace pedl::demo

int main(int count, char** words) {
    std::vector<int> slots;
    CLI::App app("Measures the factory programs.", "program-fingerprints");
    app.add_option("slots", slots, "Slots to print, all without");
    bool isWalk = false;
    app.add_flag("--walk", isWalk, "Walk through all changes between programs instead");
    CLI11_PARSE(app, count, words);
    if (isWalk) {
        pedl::demo::printChanges();
        return 0;
    }
    if (slots.empty())
        for (int slot = 0; slot <= 120; ++slot)
            slots.push_back(slot);
    pedl::demo::printAll(slots);
}
