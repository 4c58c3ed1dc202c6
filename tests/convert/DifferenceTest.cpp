#include "convert/Difference.h"

#include "parameters/ParameterIndex.h"
#include "tests/support/Results.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pedl {
namespace {

using Lines = std::vector<std::string>;

TEST(Difference, IsToldInTheTextsThatThePlugInShows) {
    const Document from = factoryDocument();
    Document to = from;
    ProgramRecord& program = to.programs[1];
    program.normalised[kPower] = 1.0F;
    program.normalised[kFreez] = -0.0F;
    program.normalised[kFilterFreqMin] = 0.25F;
    program.normalised[kFilterReso] = std::nextafter(program.normalised[kFilterReso], 1.0F);
    to.programs[139].name = toProgramName("End");
    to.currentSlot = 139;
    to.links.channel = 3;
    to.links.linkValue[kGain] = linkValueOf(64);
    to.links.linkValue[kDry] = 1.0F;
    EXPECT_EQ(test::valueOf(differences(from, to)),
              (Lines{
                  "current program: 0 \"Default\" -> 139 \"End\"",
                  "1 \"Auto Wah\"  Bypass: process -> bypass",
                  "1 \"Auto Wah\"  Freez: off (0) -> off (-0.0)",
                  "1 \"Auto Wah\"  Filter Q: 50 (0.5) -> 50 (0.50000006)",
                  "1 \"Auto Wah\"  Parameter 22: 0 -> 0.25",
                  "139 \"Init\"  name: \"Init\" -> \"End\"",
                  "MIDI channel: OMNI -> Ch 3",
                  "MIDI link of Gain: none -> sustain cc#64",
                  "MIDI link of Dry: none (7.748062) -> none (1)",
              }));
}

} // namespace
} // namespace pedl
