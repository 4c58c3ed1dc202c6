#include "demo/ChangeWalk.h"

#include "demo/Levels.h"
#include "demo/Material.h"
#include "demo/ProgramPlay.h"
#include "presets/FactoryPrograms.h"

#include <algorithm>
#include <cmath>
#include <thread>

namespace pedl::demo {

namespace {

constexpr double kWalkSettleSeconds = 0.3; ///< the slowest glide of the engine takes 0.23 s
constexpr double kClickSeconds = 0.03;

struct Peaks {
    double level = 1e-6;
    double bend = 1e-6; ///< second difference: what a jump has and a tone has not
};

Peaks peaksOf(const StereoSound& sound, std::size_t from, std::size_t frames) {
    Peaks peaks;
    for (const auto* channel : {&sound.left, &sound.right})
        for (std::size_t i = std::max<std::size_t>(2, from); i < from + frames; ++i) {
            const std::vector<float>& x = *channel;
            peaks.level = std::max(peaks.level, static_cast<double>(std::abs(x[i])));
            peaks.bend = std::max(peaks.bend,
                                  static_cast<double>(std::abs(x[i] - 2.0F * x[i - 1] + x[i - 2])));
        }
    return peaks;
}

/// The pad, faded at both ends so that it can be begun again.
StereoSound loopedPad() {
    constexpr std::size_t kFadeFrames = 4800;
    StereoSound sound = pad();
    for (auto* channel : {&sound.left, &sound.right})
        for (std::size_t i = 0; i < kFadeFrames; ++i) {
            const auto part = static_cast<float>(i) / kFadeFrames;
            const float factor = part * part * (3.0F - 2.0F * part);
            (*channel)[i] *= factor;
            (*channel)[channel->size() - 1 - i] *= factor;
        }
    return sound;
}

/// From each program of `first`, `first` + 2, ... to all others and back.
void walkFrom(int first, int programs, const StereoSound& pad, const std::vector<Peaks>& own,
              std::vector<Change>& changes) {
    const auto settle = static_cast<std::size_t>(kWalkSettleSeconds * pad.sampleRateHz);
    const auto click = static_cast<std::size_t>(kClickSeconds * pad.sampleRateHz);
    for (int from = first; from < programs; from += 2) {
        ProgramWalk walk(factoryProgram(from), pad.sampleRateHz, {});
        StereoSound sound = pad;
        std::size_t frame = 0;
        const auto step = [&](int here, int there) {
            walk.change(factoryProgram(there));
            if (frame + settle > sound.lengthFrames()) {
                sound = pad;
                frame = 0;
            }
            walk.play(sound, frame, settle);
            const Peaks whole = peaksOf(sound, frame, settle);
            const Peaks start = peaksOf(sound, frame, click);
            frame += settle;
            const Peaks& a = own[static_cast<std::size_t>(here)];
            const Peaks& b = own[static_cast<std::size_t>(there)];
            changes.push_back({here, there, decibelsOf(whole.level / std::max(a.level, b.level)),
                               decibelsOf(start.bend / std::max(a.bend, b.bend))});
        };
        step(from, from);
        changes.pop_back(); // the start is no change
        for (int to = from + 1; to < programs; ++to) {
            step(from, to);
            step(to, from);
        }
    }
}

} // namespace

std::vector<Change> walkThroughAllChanges(int programs) {
    const StereoSound sound = loopedPad();
    std::vector<Peaks> own;
    for (int slot = 0; slot < programs; ++slot) {
        const StereoSound played = playProgram(factoryProgram(slot), sound, {}).output;
        own.push_back(peaksOf(played, 0, played.lengthFrames()));
    }
    std::vector<Change> changes;
    std::vector<Change> others;
    std::thread other([&] { walkFrom(1, programs, sound, own, others); });
    walkFrom(0, programs, sound, own, changes);
    other.join();
    changes.insert(changes.end(), others.begin(), others.end());
    return changes;
}

} // namespace pedl::demo
