#pragma once

#include "controls/CEcncoderKnob03.h"
#include "editor/Panel.h"

namespace pedl {

/// What an event of the two encoders changes. Each change is an edit that the host may record.
///
/// Thread: the editor's.
class EncoderSteps {
public:
    explicit EncoderSteps(Panel& panel) : panel_(panel) {}

    enum class Moved { Nothing, Rate, Division, Tempo };

    /// Moves what the sync mode and Alt say.
    Moved turnLfo(CEcncoderKnob03& encoder);
    void turnCutoff(CEcncoderKnob03& encoder);

private:
    void stepRate(CEcncoderKnob03& encoder);
    void stepDivision(float increment, bool isFromWheel);
    void stepTempo(CEcncoderKnob03& encoder);
    void automate(std::int32_t parameter, float value) const;

    Panel& panel_;
};

} // namespace pedl
