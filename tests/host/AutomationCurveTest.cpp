#include "host/AutomationCurve.h"

#include "tests/support/Results.h"

#include <gtest/gtest.h>

#include <sstream>

namespace pedl {
namespace {

Result<AutomationCurve> parse(const std::string& text) {
    std::istringstream stream(text);
    return AutomationCurve::parse(stream, "curve.csv");
}

TEST(AutomationCurve, JoinsItsPointsAndHoldsItsEnds) {
    const AutomationCurve curve = test::valueOf(
        parse("\xEF\xBB\xBFseconds,value\r\n# rise\r\n 1 , 0.2\r\n\r\n2,0.6\r\n2,1.0\r\n4,0\r\n"));
    using Row = std::pair<double, float>;
    for (const auto& [seconds, value] : {Row{0.0, 0.2F}, Row{1.0, 0.2F}, Row{1.5, 0.4F},
                                         Row{2.0, 1.0F}, Row{3.0, 0.5F}, Row{99.0, 0.0F}})
        EXPECT_FLOAT_EQ(curve.valueAt(seconds), value) << seconds << " s";
}

TEST(AutomationCurve, SaysWhichLineIsWrong) {
    using Row = std::pair<const char*, const char*>;
    for (const auto& [text, problem] :
         {Row{"a,b\nc,d\n", "curve.csv:2: is not \"seconds,value\""},
          Row{"0,0.5,1\n", "curve.csv:1: is not \"seconds,value\""},
          Row{"0,nan\n", "curve.csv:1: is not \"seconds,value\""},
          Row{"# only words\n\n0,1.01\n", "curve.csv:3: the value is outside 0 .. 1"},
          Row{"-1,0\n", "curve.csv:1: the time is below 0"},
          Row{"2,0\n1,0\n", "curve.csv:2: the time goes back"},
          Row{"seconds,value\n", "curve.csv: holds no points \"seconds,value\""}})
        EXPECT_EQ(test::problemOf(parse(text)), problem);
}

} // namespace
} // namespace pedl
