#pragma once

#include "demo/ModulationTrace.h"
#include "demo/StereoSound.h"
#include "presets/ProgramRecord.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace pedl::demo {

/// Under what a program is played.
struct PlayConditions {
    double inputGainDb = 0.0; ///< on the material
    double tempoBpm = 120.0;  ///< of the host
    std::uint32_t seed = 1;   ///< of the random waves
};

struct PlayedProgram {
    StereoSound output;
    ModulationTrace trace; ///< a point after each block of `kBlockFrames`
};

/// Plays a sound through a program from the song's start, in an effect of its own, without a
/// command or a file.
PlayedProgram playProgram(const ProgramRecord& program, const StereoSound& input,
                          const PlayConditions& conditions);

/// The effect with its surroundings while somebody changes programs in it.
class ProgramWalk {
public:
    /// Begins with `program`, settled.
    ProgramWalk(const ProgramRecord& program, int sampleRateHz, const PlayConditions& conditions);
    ~ProgramWalk();
    ProgramWalk(const ProgramWalk&) = delete;
    ProgramWalk& operator=(const ProgramWalk&) = delete;

    void change(const ProgramRecord& program);

    /// Processes in place from `fromFrame`, block by block.
    void play(StereoSound& sound, std::size_t fromFrame, std::size_t frames,
              ModulationTrace* trace = nullptr);

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace pedl::demo
