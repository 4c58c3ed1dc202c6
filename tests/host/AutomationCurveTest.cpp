#include "host/AutomationCurve.h"

#include <gtest/gtest.h>

#include <sstream>

namespace pedl {
namespace {

Result<AutomationCurve> parse(const std::string& text) {
    std::istringstream stream(text);
    return AutomationCurve::parse(stream, "curve.csv");
}

TEST(AutomationCurve, JoinsItsPointsAndHoldsItsEnds) {
    const Result<AutomationCurve> curve =
        parse("\xEF\xBB\xBFseconds,value\r\n# rise\r\n 1 , 0.2\r\n\r\n2,0.6\r\n2,1.0\r\n4,0\r\n");
    ASSERT_TRUE(curve.ok()) << curve.problem().text;
    using Row = std::pair<double, float>;
    for (const auto& [seconds, value] : {Row{0.0, 0.2F}, Row{1.0, 0.2F}, Row{1.5, 0.4F},
                                         Row{2.0, 1.0F}, Row{3.0, 0.5F}, Row{99.0, 0.0F}})
        EXPECT_FLOAT_EQ(curve.value().valueAt(seconds), value) << seconds << " s";
}

TEST(AutomationCurve, SaysWhichLineIsWrong) {
    const std::string form = " is not \"seconds,value\"";
    using Row = std::pair<const char*, std::string>;
    for (const auto& [text, problem] :
         {Row{"0,0.5\nsoon,0.5\n", "curve.csv:2:" + form}, Row{"a,b\nc,d\n", "curve.csv:2:" + form},
          Row{"0;0.5\n", "curve.csv:1:" + form}, Row{"0,0.5,1\n", "curve.csv:1:" + form},
          Row{"x,0.5\n", "curve.csv:1:" + form}, Row{"0,nan\n", "curve.csv:1:" + form},
          Row{"# only words\n\n0,1.01\n", "curve.csv:3: the value is outside 0 .. 1"},
          Row{"-1,0\n", "curve.csv:1: the time is below 0"},
          Row{"2,0\n1,0\n", "curve.csv:2: the time goes back"},
          Row{"seconds,value\n", "curve.csv: holds no points \"seconds,value\""}}) {
        const Result<AutomationCurve> curve = parse(text);
        ASSERT_FALSE(curve.ok()) << text;
        EXPECT_EQ(curve.problem().text, problem);
    }
}

} // namespace
} // namespace pedl
