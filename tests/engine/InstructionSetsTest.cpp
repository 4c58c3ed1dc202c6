// Each class plays random settings over random stretches once with every instruction set.

#include "engine/CutoffPath.h"
#include "engine/EnvelopeFollower.h"
#include "engine/Lfo.h"
#include "engine/MultimodeFilter.h"
#include "engine/OutputLimiter.h"
#include "engine/SoftSaturator.h"
#include "tests/engine/Signals.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using namespace test;

constexpr int kStretches = 60;

/// A stretch of random length that the stages have not seen, behind it what they must not read.
struct Material {
    StereoStretch stereo;
    MonoStretch mono;
    int frames = 0;

    void draw(Random& random, double low, double high) {
        frames = random.integer(1, kStretchFrames);
        for (double& sample : stereo.at)
            sample = random.between(low, high);
        for (double& value : mono.at)
            value = random.uniform();
    }
};

void keep(const StereoStretch& stretch, int frames, Samples& output) {
    output.insert(output.end(), stretch.at, stretch.at + 2 * frames);
}

void keep(const MonoStretch& stretch, int frames, Samples& output) {
    output.insert(output.end(), stretch.at, stretch.at + frames);
}

Samples playEnvelope(InstructionSet instructions, Random& random) {
    EnvelopeFollower follower(instructions);
    follower.setMode(0.5 * random.integer(0, 2));
    follower.setHoldTime(random.between(0.0, 5.0));
    Samples output;
    Material material;
    EnvelopeOutput said;
    for (int i = 0; i < kStretches; ++i) {
        if (i % 8 == 0) {
            follower.setAttackTime(random.between(1.0, 20.0));
            follower.setAttackShape(random.uniform());
            follower.setThreshold(random.uniform());
            follower.setRange(random.uniform());
            follower.setDepthSwitch(random.integer(0, 1));
            follower.setDepthAmount(random.uniform());
            follower.setGainSwitch(random.integer(0, 1));
            follower.setGainAmount(random.uniform());
            follower.setRateSwitch(random.integer(0, 1));
            follower.setRateAmount(random.uniform());
            follower.setCutoffAmount(random.uniform());
        }
        follower.tick({.slow = 0.1, .fast = 0.5, .nudge = 1e-36}, 1.0);
        material.draw(random, -1.0, 1.0);
        follower.process(material.stereo, 0.3, 0.01, material.frames, said);
        for (const MonoStretch* stretch :
             {&said.level, &said.depth, &said.cutoffOffset, &said.rateHz, &said.gain})
            keep(*stretch, material.frames, output);
        output.push_back(follower.makeup());
    }
    return output;
}

Samples playLfo(InstructionSet instructions, Random& random) {
    Lfo lfo(1, instructions);
    Samples output;
    Material material;
    LfoOutput wave;
    for (int i = 0; i < kStretches; ++i) {
        if (i % 8 == 0) {
            lfo.setType(i % 16 == 0 ? 1.0 : random.uniform());
            lfo.setWidth(0.25 * random.integer(0, 4));
            lfo.setRate(random.uniform());
            lfo.setFilter(random.uniform());
            lfo.setRandomType(random.integer(0, 1));
            lfo.setRandomAmount(random.uniform());
            lfo.setSpread(random.uniform());
        }
        lfo.tick({.slow = 0.3, .fast = 1.0, .nudge = -1e-36});
        material.draw(random, 0.0, 1.0);
        for (double& rateHz : material.mono.at)
            rateHz *= 100.0;
        lfo.process(material.mono, material.frames, wave);
        keep(wave.raw, material.frames, output);
        keep(wave.smoothed, material.frames, output);
    }
    return output;
}

Samples playCutoff(InstructionSet instructions, Random& random) {
    CutoffPath path(instructions);
    Samples output;
    Material material, offset;
    CutoffStretch cutoff;
    for (int i = 0; i < kStretches; ++i) {
        path.setBase(random.uniform());
        path.tick({.slow = 0.3, .fast = 1.0, .nudge = 1e-36});
        offset.draw(random, 0.0, 1.0);
        material.draw(random, -1.0, 1.0);
        const double amount = i % 4 == 0 ? 0.0 : random.between(0.0, 0.5);
        path.process(amount, material.mono, material.stereo, offset.mono, 0.05, material.frames,
                     cutoff);
        keep(cutoff.hz, material.frames, output);
        output.push_back(cutoff.isConstant ? 1.0 : 0.0);
    }
    return output;
}

Samples playFilter(InstructionSet instructions, Random& random) {
    MultimodeFilter filter(random.integer(0, 1) == 0 ? 44100.0 : 96000.0, instructions);
    Samples output;
    Material material, cutoff;
    CutoffStretch cutoffHz;
    for (int i = 0; i < kStretches; ++i) {
        if (i % 12 == 0) {
            filter.setType(0.25 * random.integer(0, 4));
            filter.setResonance(random.uniform());
            filter.setSlope(random.integer(0, 1) == 1);
            filter.setSaturation(random.between(0.001, 2.0));
        }
        if (i % 20 == 0)
            filter.reset(); // nothing moves from here on: the shortest way through
        material.draw(random, -1.0, 1.0);
        cutoff.draw(random, 10.0, 21000.0);
        cutoffHz.isConstant = i % 12 > 5;
        for (int k = 0; k < 2 * kStretchFrames; ++k)
            cutoffHz.hz.at[k] = cutoffHz.isConstant ? 300.0 * (1 + k % 2) : cutoff.stereo.at[k];
        filter.process(material.stereo, cutoffHz, material.frames);
        keep(material.stereo, material.frames, output);
    }
    return output;
}

Samples playLimiter(InstructionSet instructions, Random& random) {
    OutputLimiter limiter(instructions);
    Samples output;
    Material material;
    for (int i = 0; i < kStretches; ++i) {
        limiter.setLevel(random.between(0.0891, 2.8));
        material.draw(random, -3.0, 3.0);
        limiter.process(material.stereo, material.frames);
        keep(material.stereo, material.frames, output);
        output.push_back(limiter.gain());
    }
    return output;
}

Samples playSaturator(InstructionSet instructions, Random& random) {
    SoftSaturator saturator(instructions);
    Samples output;
    Material material;
    for (int i = 0; i < kStretches; ++i) {
        saturator.setDrive(random.uniform());
        material.draw(random, -3.0, 3.0);
        saturator.process(material.stereo, true, material.frames);
        keep(material.stereo, material.frames, output);
        output.push_back(saturator.readMeter());
    }
    return output;
}

struct Part {
    const char* name;
    Samples (*play)(InstructionSet, Random&);
};

class EveryInstructionSet : public testing::TestWithParam<Part> {};

TEST_P(EveryInstructionSet, GivesTheSameBits) {
    if (widestInstructionSet() == InstructionSet::Sse2)
        GTEST_SKIP() << "this processor has one set alone";
    for (std::uint32_t seed = 0; seed < 100; ++seed) {
        Random first(seed), second(seed);
        const Samples narrow = GetParam().play(InstructionSet::Sse2, first);
        const Samples wide = GetParam().play(InstructionSet::Avx2, second);
        ASSERT_EQ(narrow, wide) << "seed " << seed;
    }
}

INSTANTIATE_TEST_SUITE_P(Engine, EveryInstructionSet,
                         testing::Values(Part{"EnvelopeFollower", playEnvelope},
                                         Part{"Lfo", playLfo}, Part{"CutoffPath", playCutoff},
                                         Part{"MultimodeFilter", playFilter},
                                         Part{"OutputLimiter", playLimiter},
                                         Part{"SoftSaturator", playSaturator}),
                         [](const auto& part) { return std::string(part.param.name); });

} // namespace
} // namespace pedl
