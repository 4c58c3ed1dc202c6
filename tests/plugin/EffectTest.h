#pragma once

#include "plugin/ZMTpedlFilterEffect.h"
#include "tests/presets/Journal.h"

#include <gtest/gtest.h>
#include <memory>

namespace pedl::test {

/// An effect in the surroundings that a journal stands for.
class EffectTest : public testing::Test {
protected:
    [[nodiscard]] std::unique_ptr<ZMTpedlFilterEffect> newEffect() {
        return std::make_unique<ZMTpedlFilterEffect>(
            &Journal::host,
            EffectSurroundings{journal.clock, journal.diagnostics, journal.settings});
    }

    Journal journal;
    std::unique_ptr<ZMTpedlFilterEffect> owned = newEffect();
    ZMTpedlFilterEffect& effect = *owned;
};

} // namespace pedl::test
