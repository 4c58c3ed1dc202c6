#include "demo/Promises.h"

#include "demo/Fingerprint.h"
#include "demo/Material.h"
#include "demo/Movement.h"
#include "demo/ProgramPlay.h"
#include "foundation/text/FormattedText.h"
#include "parameters/ParameterIndex.h"
#include "presets/FactoryNotes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace pedl::demo {

namespace {

/// One program on its way to being judged.
struct Case {
    int slot;
    const ProgramRecord& program;
    StereoSound dry;
    PlayedProgram loud;
    PlayedProgram soft;
    Movement noise; ///< under steady noise
    ShortTimes dryTimes;
    ShortTimes wetTimes;

    std::vector<Promise> promises;

    void expect(const char* what, double figure, double least, double most) {
        promises.push_back({formatted("%s %.2f", what, figure), figure >= least && figure <= most});
    }
};

constexpr double kNoLimit = 1e9;
constexpr double kSoftDb = -18.0;

double cutoffAnswer(const Case& c) {
    return quantile(cutoffOf(c.loud.trace), 0.8) - quantile(cutoffOf(c.soft.trace), 0.8);
}

/// Mean of a few thirds of octaves, against the dry sound's.
double bandsAgainstDry(const Case& c, std::size_t from, std::size_t to) {
    double wet = 0.0;
    double dry = 0.0;
    for (std::size_t band = from; band < to; ++band) {
        wet += std::pow(10.0, c.wetTimes.bandDb[band] / 10.0);
        dry += std::pow(10.0, c.dryTimes.bandDb[band] / 10.0);
    }
    return 10.0 * std::log10(wet / dry);
}
constexpr std::size_t kBottomEnd = 5; ///< of the bands below 125 Hz

constexpr std::size_t kTopBegin = 14; ///< of the bands above 1 kHz

/// How much of the whole lies above 1 kHz, against the dry sound.
double topAgainstDry(const Case& c) {
    return bandsAgainstDry(c, kTopBegin, kBands) - bandsAgainstDry(c, 0, kBands);
}

void opens(Case& c) {
    c.expect("louder opens, octaves", cutoffAnswer(c), 1.0, 5.0);
    c.expect("cut-off in rest, Hz", quantile(cutoffOf(c.soft.trace), 0.05), octave(150.0),
             octave(650.0));
}
void closes(Case& c) {
    c.expect("louder closes, octaves",
             quantile(cutoffOf(c.loud.trace), 0.2) - quantile(cutoffOf(c.soft.trace), 0.2), -6.0,
             -1.0);
}
void wah(Case& c) {
    c.expect("wah, octaves", spreadOf(cutoffOf(c.loud.trace)), 0.9, 3.2);
}
void ducks(Case& c) {
    const double gain = quantile(gainOf(c.loud.trace), 0.3) - quantile(gainOf(c.soft.trace), 0.3);
    const double cutoff =
        quantile(cutoffOf(c.loud.trace), 0.3) - quantile(cutoffOf(c.soft.trace), 0.3);
    c.expect("louder quieter, dB", gain, -30.0, -3.0);
    c.expect("louder darker, octaves", cutoff, -5.0, 0.01);
}
void sweeps(Case& c) {
    c.expect("sweep, octaves", c.noise.depthOctaves, c.slot == 84 ? 0.9 : 2.0,
             c.slot == 84 ? 1.1 : 6.0);
    c.expect("rising share", risingShare(cutoffOf(c.loud.trace)), 0.4, 0.6);
}
void falls(Case& c) {
    c.expect("rising share", risingShare(cutoffOf(c.loud.trace)), 0.0, 0.3);
}
void rises(Case& c) {
    c.expect("rising share", risingShare(cutoffOf(c.loud.trace)), 0.7, 1.0);
}
void byChance(Case& c) {
    PlayConditions other;
    other.seed = 2;
    const ModulationTrace trace = playProgram(c.program, c.dry, other).trace;
    double sum = 0.0;
    for (std::size_t i = 0; i < trace.size(); ++i) {
        const double octaves = octave(trace[i].cutoffLeftHz) - octave(c.loud.trace[i].cutoffLeftHz);
        const double db = decibel(trace[i].gainLeft) - decibel(c.loud.trace[i].gainLeft);
        sum += octaves * octaves + db * db / 100.0;
    }
    c.expect("another time, octaves apart", std::sqrt(sum / static_cast<double>(trace.size())), 0.4,
             kNoLimit);
}
void fasterWhenLoud(Case& c) {
    c.expect("louder faster, times", crossings(c.loud.trace) / crossings(c.soft.trace), 1.4, 100.0);
}
void deeperWhenLoud(Case& c) {
    c.expect("louder deeper, octaves",
             spreadOf(cutoffOf(c.loud.trace)) - spreadOf(cutoffOf(c.soft.trace)), 0.7, 6.0);
}
void deeperWhenSoft(Case& c) {
    const StereoSound noise = steadyNoise(-8.0);
    const double loud = spreadOf(cutoffOf(playProgram(c.program, noise, {}).trace));
    const double soft =
        spreadOf(cutoffOf(playProgram(c.program, noise, {.inputGainDb = -30.0}).trace));
    c.expect("softer deeper, octaves", soft - loud, 0.7, 6.0);
}
void trembles(Case& c) {
    c.expect("level moves, dB", c.noise.loudGainDb - c.noise.quietGainDb, 6.0, 30.0);
    c.expect("filter moves, octaves", c.noise.depthOctaves, 0.0, 0.02);
}
void gates(Case& c) {
    const Curve gain = gainOf(c.loud.trace);
    const double high = quantile(gain, 0.9);
    const double low = quantile(gain, 0.1);
    const auto between = std::ranges::count_if(gain, [&](double g) {
        return g > low + 0.15 * (high - low) && g < high - 0.15 * (high - low);
    });
    c.expect("two levels apart, dB", high - low, 15.0, 70.0);
    c.expect("time between them", static_cast<double>(between) / static_cast<double>(gain.size()),
             0.0, 0.3);
}
void isWide(Case& c) {
    c.expect("width from mono, dB",
             shortTimesOf(playProgram(c.program, steadyNoise(-14.0), {}).output).widthDb, -16.0,
             6.0);
}
void leadsLeft(Case& c) {
    // The lag at which the right channel's gain is most like the left one's.
    const ModulationTrace trace = playProgram(c.program, steadyNoise(-14.0), {}).trace;
    const Curve left = gainOf(trace);
    const Curve right = rightGainOf(trace);
    double best = -kNoLimit;
    int bestLag = 0;
    for (int lag = -1000; lag <= 1000; lag += 10) {
        double sum = 0.0;
        for (std::ptrdiff_t i = 1000; i < std::ssize(left) - 1000; ++i)
            sum += left[static_cast<std::size_t>(i)] * right[static_cast<std::size_t>(i + lag)];
        if (sum > best) {
            best = sum;
            bestLag = lag;
        }
    }
    c.expect("right behind left, s", bestLag * kBlockFrames / 48000.0, 0.1, 1.5);
}
void moves(Case& c) {
    c.expect("filter moves, octaves", spreadOf(cutoffOf(c.loud.trace)), 0.5, 10.0);
}
void isShallow(Case& c) {
    c.expect("filter moves, octaves", c.noise.depthOctaves, 0.3, 2.2);
}
void bothMove(Case& c) {
    c.expect("filter moves, octaves", c.noise.depthOctaves, 0.7, 10.0);
    c.expect("level moves, dB", c.noise.loudGainDb - c.noise.quietGainDb, 4.0, 60.0);
}
void bottomGone(Case& c) {
    c.expect("bottom against dry, dB", bandsAgainstDry(c, 0, kBottomEnd), -200.0, -18.0);
}
void bottomStays(Case& c) {
    c.expect("bottom against dry, dB", bandsAgainstDry(c, 0, kBottomEnd), -8.0, 10.0);
}
void isDark(Case& c) {
    c.expect("top against dry, dB", topAgainstDry(c), -200.0, -9.0);
}
void isBright(Case& c) {
    c.expect("top against dry, dB", topAgainstDry(c), -0.5, 60.0);
}
void isDriven(Case& c) {
    c.expect("crest against dry, dB", c.wetTimes.crestDb - c.dryTimes.crestDb, -30.0, -2.0);
}
void isFlat(Case& c) {
    double worst = 0.0;
    const double level = c.wetTimes.totalDb - c.dryTimes.totalDb;
    const double loudest = *std::ranges::max_element(c.dryTimes.bandDb);
    for (std::size_t band = 0; band < kBands; ++band)
        if (c.dryTimes.bandDb[band] > loudest - 30.0)
            worst = std::max(worst,
                             std::abs(c.wetTimes.bandDb[band] - c.dryTimes.bandDb[band] - level));
    c.expect("colour against dry, dB", worst, 0.0, 3.0);
    const double answer = shortTimesOf(c.loud.output).totalDb - shortTimesOf(c.soft.output).totalDb;
    c.expect("18 dB become, dB", answer, 3.0, 15.0);
}
void isStill(Case& c) {
    c.expect("filter moves, octaves", spreadOf(cutoffOf(c.loud.trace)), 0.0, 0.001);
    c.expect("level moves, dB", spreadOf(gainOf(c.loud.trace)), 0.0, 0.001);
}
void isFast(Case& c) {
    c.expect("rate, Hz", std::max(c.noise.gainRateHz, c.noise.cutoffRateHz), 7.0, 15.0);
}
void followsTempo(Case& c) {
    const Movement slow = steadyMovement(c.program, -14.0, 90.0);
    const Movement fast = steadyMovement(c.program, -14.0, 135.0);
    const bool byCutoff = slow.depthOctaves > 0.15;
    const double ratio = byCutoff ? fast.cutoffRateHz / slow.cutoffRateHz
                                  : fast.gainRateHz / std::max(0.01, slow.gainRateHz);
    c.expect("135 against 90 bpm", ratio, 1.44, 1.56);
}

using Check = void (*)(Case&);
struct Group {
    Check check;
    std::vector<int> slots;
};

/// Which slot promises what.
const std::vector<Group>& groups() {
    static const std::vector<Group> all{
        {opens, {8, 11, 88, 94}},
        {closes, {3}},
        {wah, {4, 29, 30, 46, 68, 76, 87, 92, 96, 98}},
        {ducks, {5, 28, 47}},
        {sweeps, {13, 14, 23, 84, 91}},
        {falls, {7, 45}},
        {rises, {44, 60}},
        {byChance, {15, 16, 17, 18, 43, 57, 115, 116}},
        {fasterWhenLoud, {19, 58}},
        {deeperWhenLoud, {61}},
        {deeperWhenSoft, {20, 33}},
        {trembles, {24, 35, 66, 75, 90}},
        {gates, {31, 36, 73, 77, 85, 104, 57}},
        {isFast, {73, 59, 75}},
        {isWide, {22, 34, 42, 70, 90, 52, 53, 100}},
        {leadsLeft, {42}},
        {isShallow, {25, 26, 27, 32}},
        {bothMove, {37, 39, 49, 50, 83, 101, 107}},
        {bottomGone, {38, 74, 77, 111}},
        {bottomStays, {40, 99, 48, 65, 78, 81, 97, 69, 82, 95}},
        {isDark, {54, 55, 86, 103, 106, 116}},
        {isBright, {62, 63, 64, 67, 71, 79, 80, 93}},
        {isDriven, {21, 102, 108}},
        {isFlat, {113, 114}},
        {isStill, {117, 118, 119}},
        {moves, {41, 52, 53, 59, 72, 89, 100, 6, 10, 51, 105, 109, 110, 9, 12}},
    };
    return all;
}

} // namespace

std::vector<Promise> promisesOf(int slot, const ProgramRecord& program) {
    const StereoSound dry =
        material(std::string(kFactoryNotes[static_cast<std::size_t>(slot)].material));
    Case c{slot,
           program,
           dry,
           playProgram(program, dry, {}),
           playProgram(program, dry, {.inputGainDb = kSoftDb}),
           steadyMovement(program, -14.0, 120.0),
           shortTimesOf(dry),
           {},
           {}};
    c.wetTimes = shortTimesOf(c.loud.output);
    for (const Group& group : groups())
        if (std::ranges::find(group.slots, slot) != group.slots.end())
            group.check(c);
    if (program.normalised[kLFOSyncMode] > 0.25F)
        followsTempo(c);
    return std::move(c.promises);
}

} // namespace pedl::demo
