#include "host/AutomationCurve.h"

#include "tests/support/Results.h"

#include <gtest/gtest.h>

#include <sstream>

namespace pedl {
namespace {

TEST(AutomationCurve, SaysWhichLineIsWrong) {
    using Row = std::pair<const char*, const char*>;
    for (const auto& [text, problem] :
         {Row{"a,b\nc,d\n", "curve.csv:2: is not \"seconds,value\""},
          Row{"0,0.5,1\n", "curve.csv:1: is not \"seconds,value\""},
          Row{"0,nan\n", "curve.csv:1: is not \"seconds,value\""},
          Row{"# only words\n\n0,1.01\n", "curve.csv:3: the value is outside 0 .. 1"},
          Row{"-1,0\n", "curve.csv:1: the time is below 0"},
          Row{"2,0\n1,0\n", "curve.csv:2: the time goes back"},
          Row{"seconds,value\n", "curve.csv: holds no points \"seconds,value\""}}) {
        std::istringstream stream(text);
        EXPECT_EQ(test::problemOf(AutomationCurve::parse(stream, "curve.csv")), problem);
    }
}

} // namespace
} // namespace pedl
