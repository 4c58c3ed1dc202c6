#include "foundation/text/ValueFromText.h"

#include "tests/support/Results.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

namespace pedl {
namespace {

std::string format(const char* pattern, double number) {
    char text[64];
    std::snprintf(text, sizeof text, pattern, number);
    return text;
}

std::string cutoff(float v) {
    return format("%.0f", 20.0 * std::pow(1000.0, v));
}
std::string cutoffWithUnits(float v) {
    const double hertz = 20.0 * std::pow(1000.0, v);
    return hertz < 1000.0 ? format("%.1f Hz", hertz) : format("%.2f kHz", hertz / 1000.0);
}
std::string level(float v) {
    return v < 0.0005F ? "-oo" : format("%.1f", 20.0 * std::log10(4.0 * v * v));
}
std::string words(float v) {
    return v < 0.25F ? "1:4" : v < 0.5F ? "hostBPM" : v < 0.75F ? "Mod on" : "Mod off";
}
std::string slope(float v) {
    return v < 0.25F ? "off" : v < 0.75F ? "12 dB" : "24 dB";
}
std::string falling(float v) {
    return format("x%.0f", 2000.0 * (1.0 - v));
}
std::string narrow(float v) {
    return v > 0.30001F && v < 0.3006F ? "sweet spot" : v < 1.0F ? "left" : "right";
}

TEST(ValueFromText, FindsTheMiddleOfWhatShowsTheText) {
    struct Row {
        const char* typed;
        const char* unit; // that stands beside the texts
        TextOfValue textAt;
        double value;
        double tolerance;
    };
    const double kilo = std::log(60.0) / std::log(1000.0); // 20 to 20000 Hz in three decades
    for (const Row& row : {
             Row{"1200 Hz", "Hz", cutoff, kilo, 1e-5}, // a unit that the texts leave out
             Row{"20 kHz", "Hz", cutoff, 1.0, 0.0},
             Row{"1.2k", "", cutoff, kilo, 1e-5}, // a thousand, of whatever it is
             Row{"20000", "", cutoff, 1.0, 0.0},  // the end itself, not near it
             Row{"1.2 kHz", "", cutoffWithUnits, kilo, 1e-3},
             Row{"1200", "", cutoffWithUnits, kilo, 1e-3}, // the smaller of its units is meant
             Row{"1.2 kHz", "Hz", cutoff, kilo, 1e-5},
             Row{"0.5 s", "ms", falling, 0.75, 1e-3},
             Row{"500x", "ms", falling, 0.75, 1e-3},
             Row{"-inf", "dB", level, 0.0, 0.0},
             Row{"1/4", "", words, 0.0, 0.0},
             Row{"host", "", words, 0.375, 1e-6},
             Row{"on", "", words, 0.625, 1e-6},
             Row{"-100", "", level, std::sqrt(1e-5 / 4.0), 1e-4}, // between two steps of the search
             Row{"-oo", "", level, 0.0, 0.0},
             Row{"24", "", slope, 1.0, 0.0},
             Row{"12DB", "", slope, 0.5, 1e-6},
             Row{"500", "", falling, 0.75, 1e-3},
             Row{"right", "", narrow, 1.0, 0.0}, // shown at the very end alone
             Row{"sweet spot", "", narrow, 0.300305, 1e-6},
         }) {
        const float found = test::valueOf(valueFromText(row.typed, row.unit, row.textAt));
        EXPECT_NEAR(found, row.value, row.tolerance) << row.typed;
    }
}

TEST(ValueFromText, RefusesWhatIsNotShownAndSaysWhatIs) {
    const auto refusal = [](const char* typed, const TextOfValue& textAt, const char* unit = "") {
        return test::problemOf(valueFromText(typed, unit, textAt));
    };
    for (const char* const typed : {"440 furlongs", "440 ms", "about 440", "440 dB"})
        EXPECT_EQ(refusal(typed, cutoff, "Hz"),
                  '"' + std::string(typed) + "\" is not understood; it shows 20 .. 20000 Hz");
    EXPECT_EQ(refusal("440 Hz", cutoff), "\"440 Hz\" is not understood; it shows 20 .. 20000");
    EXPECT_EQ(refusal("mod", words),
              "no value reads \"mod\"; it shows 1:4, hostBPM, Mod on, Mod off");
    EXPECT_EQ(refusal("30000", cutoff), "\"30000\" is outside 20 .. 20000");
    EXPECT_EQ(refusal("18", slope), "no value reads \"18\"; it shows off, 12 dB, 24 dB");
    EXPECT_EQ(refusal("loud", level), "no value reads \"loud\"; it shows -120.0 .. 12.0, -oo");
    EXPECT_EQ(refusal("", slope), "the value is missing");
    EXPECT_EQ(
        refusal("Q?", [](float v) { return std::string(1, char('a' + int(v * 25.0F))) + '!'; }),
        "no value reads \"Q?\"; among others it shows q!, a!, b!, c!, d!, e!, f!, g!");
    EXPECT_EQ(refusal("1", [](float) { return std::string(); }),
              "no value reads \"1\"; it shows no texts: set it by its index, as INDEX=0.5");
}

} // namespace
} // namespace pedl
