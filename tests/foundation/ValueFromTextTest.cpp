#include "foundation/text/ValueFromText.h"

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
std::string slope(float v) {
    return v < 0.25F ? "off" : v < 0.75F ? "12 dB" : "24 dB";
}
std::string wave(float v) {
    return v < 0.9F ? "saw" : v < 1.0F ? "spike" : "rnd";
}
std::string falling(float v) {
    return format("%.0f ms", 2000.0 * (1.0 - v));
}
std::string narrow(float v) {
    return v > 0.30001F && v < 0.3006F ? "sweet spot" : v < 0.5F ? "left" : "right";
}

TEST(ValueFromText, FindsTheMiddleOfWhatShowsTheText) {
    struct Row {
        const char* typed;
        TextOfValue textAt;
        double value;
        double tolerance;
    };
    const double kilo = std::log(60.0) / std::log(1000.0); // 20 to 20000 Hz in three decades
    for (const Row& row : {
             Row{"1200", cutoff, kilo, 1e-5},
             Row{"1200 Hz", cutoff, kilo, 1e-5}, // a unit that the plug-in does not show
             Row{"20000", cutoff, 1.0, 0.0},     // the end itself, not near it
             Row{"1.2 kHz", cutoffWithUnits, kilo, 1e-3},
             Row{"1200 Hz", cutoffWithUnits, kilo, 1e-3},
             Row{"1200", cutoffWithUnits, kilo, 1e-3}, // without a unit the smaller one is meant
             Row{"6", level, std::sqrt(std::pow(10.0, 0.3) / 4.0), 1e-3},
             Row{"-100", level, std::sqrt(1e-5 / 4.0), 1e-4}, // between two steps of the search
             Row{"-oo", level, 0.0, 0.0},
             Row{"24", slope, 1.0, 0.0},
             Row{"12dB", slope, 0.5, 1e-6},
             Row{"OFF", slope, 0.0, 0.0},
             Row{"x2", [](float v) { return format("x%.1f", 3.0 * v); }, 2.0 / 3.0, 1e-3},
             Row{"spike", wave, 0.95, 1e-6},
             Row{"rnd", wave, 1.0, 0.0}, // shown at the very end alone
             Row{"500", falling, 0.75, 1e-3},
             Row{"0.5 s", falling, 0.75, 1e-3},
             Row{"sweet spot", narrow, 0.300305, 1e-6},
         }) {
        const Result<float> found = valueFromText(row.typed, "", row.textAt);
        ASSERT_TRUE(found.ok()) << row.typed << ": " << found.problem().text;
        EXPECT_NEAR(found.value(), row.value, row.tolerance) << row.typed;
    }
}

TEST(ValueFromText, TakesAUnitThatStandsBesideTheText) {
    const TextOfValue seconds = [](float v) { return format("%.3f", 10.0 * v); };
    for (const char* typed : {"2.5 s", "2500 ms", "2.5"}) {
        const Result<float> found = valueFromText(typed, "s", seconds);
        ASSERT_TRUE(found.ok()) << typed;
        EXPECT_NEAR(found.value(), 0.25, 1e-4) << typed;
    }
}

TEST(ValueFromText, RefusesWhatIsNotShownAndSaysWhatIs) {
    struct Row {
        const char* typed;
        TextOfValue textAt;
        const char* problem;
    };
    for (const Row& row : {
             Row{"30000", cutoff, "\"30000\" is outside 20 .. 20000"},
             Row{"-3", cutoff, "\"-3\" is outside 20 .. 20000"},
             Row{"18", slope, "no value reads \"18\"; it shows off, 12 dB, 24 dB"},
             Row{"loud", level, "no value reads \"loud\"; it shows -120.0 .. 12.0, -oo"},
             Row{"", slope, "the value is missing"},
             Row{"1", [](float) { return std::string(); },
                 "no value reads \"1\"; it shows no texts: set it by its index, as INDEX=0.5"},
         }) {
        const Result<float> found = valueFromText(row.typed, "", row.textAt);
        ASSERT_FALSE(found.ok()) << row.typed;
        EXPECT_EQ(found.problem().text, row.problem);
    }
}

} // namespace
} // namespace pedl
