#include "controls/CInvisibleDoNothingControl.h"

#include <gtest/gtest.h>

#include "tests/foundation/vstgui/ToolkitWindow.h"

namespace pedl {
namespace {

using namespace VSTGUI;

TEST(ClickArea, TellsOfAnyButtonAndOpensNoEdit) {
    ToolkitWindow editor;
    editor.theFrame().addView(new CInvisibleDoNothingControl(CRect(10, 10, 50, 30), &editor, 2));
    editor.click(20, 20);
    editor.click(20, 20, kRButton);
    EXPECT_EQ(editor.log.take(), "value, modifier click, value");
    editor.onValue = [&] { editor.theFrame().removeAll(); }; // the control itself goes
    editor.click(20, 20);
    EXPECT_EQ(editor.log.take(), "value");
}

} // namespace
} // namespace pedl
