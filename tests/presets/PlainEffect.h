#pragma once

#include "presets/CPresetSystemEffect.h"
#include "presets/FactoryPrograms.h"
#include "tests/presets/Journal.h"

#include <string>

namespace pedl::test {

/// The smallest effect on top of the preset system: it notes what reaches its parameters.
class PlainEffect final : public CPresetSystemEffect {
public:
    explicit PlainEffect(Journal& journal) : PlainEffect(journal, journal.settings) {}
    PlainEffect(Journal& journal, SettingsStore& settings)
        : CPresetSystemEffect(&Journal::host, journal.clock, journal.diagnostics, settings),
          journal_(journal) {
        initialiseFactoryPrograms();
    }

    using CPresetSystemEffect::editableBank;
    using CPresetSystemEffect::startPresetSystem;

    void processReplacing(float**, float**, VstInt32) override {}
    std::string nameOf(std::int32_t slot) const {
        const ProgramName name = bank().name(slot);
        return std::string(nameText(name));
    }

    void setParameter(VstInt32 index, float normalised) override {
        if (!isParameter(index))
            journal_.note("set ", index, " ", normalised);
        CPresetSystemEffect::setParameter(index, normalised);
    }
    void playStored(std::int32_t parameter) override {
        journal_.note("set ", parameter, " ", bank().value(currentSlot(), parameter));
    }
    void initialiseFactoryPrograms() final { writeFactoryPrograms(editableBank()); }
    void getLongParameterName(std::int32_t, char* text) override { *text = '\0'; }
    std::int32_t learnTarget(std::int32_t tag) override { return tag; }
    bool isNotLearnable(std::int32_t index) const override { return !isParameter(index); }
    float effectiveDryWetLevel(std::int32_t) const override { return 0.0F; }
    void applyDryWetSource(std::int32_t) override {}
    void getHintText(std::int32_t, char*) override {}

private:
    Journal& journal_;
};

} // namespace pedl::test
