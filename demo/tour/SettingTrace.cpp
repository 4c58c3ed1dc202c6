#include "demo/tour/SettingTrace.h"

#include "foundation/platform/NoDiagnostics.h"
#include "foundation/platform/NoSettings.h"
#include "foundation/platform/StandingClock.h"
#include "foundation/text/NameMatch.h"
#include "foundation/text/ValueFromText.h"
#include "host/AutomationCurve.h"
#include "host/HostServices.h"
#include "parameters/ParameterCatalogue.h"
#include "plugin/ZMTpedlFilterEffect.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace pedl::demo {

namespace {

/// What the command's reading of its file and ours may differ by: nothing that is heard.
constexpr float kSameSound = 1e-5F;

template <typename Value> Value valueOf(Result<Value> result) {
    if (!result.ok())
        throw std::runtime_error(result.problem().text);
    return std::move(result.value());
}

// Settings, as the command understands them

struct Assignment {
    int index;
    std::string value;
};

/// "NAME=VALUE" with the parameter found.
Assignment assignmentFrom(const std::string& text) {
    std::vector<NamedItem> parameters;
    for (int index = 0; index < kNumParams; ++index)
        parameters.push_back({index, {std::string(shortParameterName(index))}});
    const std::size_t equals = text.find('=');
    return {valueOf(findByName(text.substr(0, equals), parameters, "parameter")),
            text.substr(equals + 1)};
}

void selectProgram(ZMTpedlFilterEffect& effect, const std::string& name) {
    std::vector<NamedItem> programs;
    for (int slot = 0; slot < kNumPrograms; ++slot)
        programs.push_back({slot, {effect.bank().name(slot).data()}});
    effect.selectProgram(valueOf(findByName(name, programs, "program")));
}

Result<float> valueReading(int index, std::string_view text) {
    return valueFromText(text, parameterUnit(index), [index](float normalised) {
        return std::string(parameterText(index, normalised).view());
    });
}

void assign(ZMTpedlFilterEffect& effect, const std::string& text) {
    const Assignment assignment = assignmentFrom(text);
    effect.setParameter(assignment.index,
                        valueOf(valueReading(assignment.index, assignment.value)));
}

struct Automation {
    int index;
    AutomationCurve curve;
};

std::vector<Automation> automationsOf(const DemoSetting& setting,
                                      const std::filesystem::path& curves) {
    std::vector<Automation> automations;
    for (const std::string& text : setting.automations) {
        const Assignment assignment = assignmentFrom(text);
        automations.push_back(
            {assignment.index,
             valueOf(AutomationCurve::load(curves / assignment.value, [&](std::string_view shown) {
                 return valueReading(assignment.index, shown);
             }))});
    }
    return automations;
}

// One run

struct Run {
    StereoSound output;
    ModulationTrace trace;
};

ModulationPoint pointAt(double seconds, const ModulationState& state) {
    return {seconds, state.cutoffLeftHz, state.cutoffRightHz, state.gainLeft, state.gainRight};
}

Run play(const DemoSetting& setting, const std::vector<Automation>& automations,
         const StereoSound& input, std::uint32_t calendarSeconds) {
    StandingClock clock(calendarSeconds);
    NoDiagnostics diagnostics;
    NoSettings settings;
    HostServices services;
    services.sampleRateHz = input.sampleRateHz;
    services.blockFrames = kBlockFrames;
    services.transport.isPlaying = true;
    if (setting.tempoBpm)
        services.transport.tempoBpm = *setting.tempoBpm;
    const HostServices::Active active(services);

    ZMTpedlFilterEffect effect(HostServices::callback, {clock, diagnostics, settings});
    selectProgram(effect, setting.program);
    for (const std::string& text : setting.sets)
        assign(effect, text);
    const auto follow = [&](double seconds) {
        for (const Automation& automation : automations)
            effect.setParameter(automation.index, automation.curve.valueAt(seconds));
    };
    follow(0.0); // before the switch-on: nothing glides from another value at the start
    effect.resume();

    Run run;
    run.output = input; // processed in place, block by block
    for (std::size_t frame = 0; frame < input.lengthFrames();) {
        const auto frames = std::min<std::size_t>(kBlockFrames, input.lengthFrames() - frame);
        const double seconds = static_cast<double>(frame) / input.sampleRateHz;
        follow(seconds);
        float* channels[] = {run.output.left.data() + frame, run.output.right.data() + frame};
        effect.processReplacing(channels, channels, static_cast<VstInt32>(frames));
        services.advance(static_cast<VstInt32>(frames));
        frame += frames;
        run.trace.push_back(
            pointAt(static_cast<double>(frame) / input.sampleRateHz, effect.modulation()));
    }
    return run;
}

/// The largest difference between two sounds over the length of the shorter one.
float differenceOf(const StereoSound& one, const StereoSound& other) {
    float difference = 0.0F;
    for (std::size_t i = 0; i < std::min(one.lengthFrames(), other.lengthFrames()); ++i)
        difference = std::max({difference, std::abs(one.left[i] - other.left[i]),
                               std::abs(one.right[i] - other.right[i])});
    return difference;
}

} // namespace

ModulationTrace traceModulation(const DemoSetting& setting, const std::filesystem::path& curves,
                                const StereoSound& input, const StereoSound& rendered,
                                const Rendering& rendering) {
    const std::vector<Automation> automations = automationsOf(setting, curves);
    float nearest = 1e9F;
    for (std::uint32_t second = rendering.calendarFrom; second <= rendering.calendarTo; ++second) {
        Run run = play(setting, automations, input, second);
        const float difference = differenceOf(run.output, rendered);
        if (difference <= kSameSound)
            return std::move(run.trace);
        nearest = std::min(nearest, difference);
    }
    throw std::runtime_error(setting.name + ": played again, the effect's sound differs by " +
                             std::to_string(nearest) + " from the rendered one; no trace is drawn");
}

} // namespace pedl::demo
