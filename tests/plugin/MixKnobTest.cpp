#include "plugin/MixKnob.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

void expectPair(DryWetPair actual, DryWetPair expected) {
    EXPECT_NEAR(actual.dry, expected.dry, 1e-6);
    EXPECT_NEAR(actual.wet, expected.wet, 1e-6);
}

TEST(MixKnob, StepsTheMixWithAConstantProduct) {
    struct Row {
        const char* story;
        DryWetPair pair, inForce;
        double step;
        DryWetPair expected;
    };
    // clang-format off
    for (const Row& row : {
        Row{"dry leads down",                 {0.8, 0.4},   {0.8, 0.4},   0.1,  {0.7, 0.457143}},
        Row{"faint wet rises evenly",         {0.8, 0.1},   {0.8, 0.1},   0.1,  {0.7, 0.2}},
        Row{"dry reaches its end, wet stays", {0.05, 0.02}, {0.05, 0.02}, 0.1,  {0.0005, 0.02}},
        Row{"dry comes back from nothing",    {0.0, -0.1},  {0.0, -0.1},  0.1,  {0.1, 0.0005}},
        Row{"wet leads up",                   {0.4, 0.8},   {0.4, 0.8},   0.1,  {0.355556, 0.9}},
        Row{"equal levels: wet leads",        {0.5, 0.5},   {0.5, 0.5},   0.1,  {0.416667, 0.6}},
        Row{"faint dry falls evenly",         {0.1, 0.8},   {0.1, 0.8},   0.05, {0.05, 0.85}},
        Row{"faint dry ends at its floor",    {0.1, 0.8},   {0.1, 0.8},   0.2,  {0.0005, 1.0}},
        Row{"beyond the end",                 {0.25, 1.0},  {0.25, 1.0},  0.25, {0.2, 1.25}},
        // The levels in force tell which one leads.
        Row{"equal in force, wet leads",      {1.3, 1.2},   {1.0, 1.0},   -0.1, {1.3 * 1.2 / 1.1, 1.1}},
        Row{"louder in force, dry leads",     {1.3, 1.2},   {1.0, 0.9},   -0.1, {1.4, 1.2 * 1.3 / 1.4}},
        Row{"no wet remembered",              {0.3, 0.0},   {0.3, 0.3},   0.1,  {0.2, 0.1}},
    }) {
        // clang-format on
        SCOPED_TRACE(row.story);
        expectPair(steppedMix(row.pair, row.inForce, row.step), row.expected);
    }
}

TEST(MixKnob, StepsBothLevelsInTheirRatio) {
    struct Row {
        const char* story;
        DryWetPair pair;
        double step;
        DryWetPair expected;
    };
    for (const Row& row : {
             Row{"up", {0.4, 0.8}, 0.1, {0.45, 0.9}},
             Row{"down to the floor", {0.4, 0.05}, -0.1, {0.004, 0.0005}},
             Row{"wet beyond its end, dry not yet", {0.6, 0.95}, 0.1, {0.663158, 1.05}},
             Row{"both beyond their ends", {1.2, 0.95}, 0.1, {1.2, 0.95}},
             Row{"both beyond their ends, back", {1.2, 1.2}, -0.1, {1.1, 1.1}},
             Row{"no dry to scale", {0.0, 0.5}, 0.1, {0.1, 0.6}},
             Row{"no wet to scale by", {0.4, 0.0}, 0.1, {0.4, 0.1}},
         }) {
        SCOPED_TRACE(row.story);
        expectPair(steppedLevels(row.pair, row.step), row.expected);
    }
}

} // namespace
} // namespace pedl
