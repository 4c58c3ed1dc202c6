// Whatever the user does, and wherever the host closes the window or selects a program meanwhile:
// edits are balanced and within their range, and the controls show what the effect holds.

#include "tests/editor/EditorWindow.h"

#include <map>
#include <random>
#include <sstream>

namespace pedl::test {
namespace {

using namespace VSTGUI;

class RandomSession : public EditorWindow {
protected:
    int below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

    /// Once, inside the next edit.
    void interfere() {
        journal.onEdit = nullptr;
        if (below(2))
            editor.close();
        else
            effect.selectProgram(below(kNumPrograms));
    }
    void act() {
        if (!editor.getFrame())
            editor.open(this);
        const CFrame& frame = *editor.getFrame();
        const CRect place = frame.getView(below(frame.getNbViews()))->getViewSize();
        const CCoord x = place.left + below(static_cast<int>(place.getWidth()) + 1);
        const CCoord y = place.top + below(static_cast<int>(place.getHeight()) + 1);
        const std::int32_t held = below(5) ? kLButton : kRButton;
        const std::int32_t modifier = below(2) ? 0 : 1 << (4 + below(3)); // Shift, Control, Alt
        const int what = below(8);
        if (what == 0)
            window().mouseDown(x, y, held | modifier | (below(4) ? 0 : kDoubleClick));
        else if (what == 1)
            window().mouseUp(x, y);
        else if (what == 2)
            window().mouseMove(x, y, held | modifier);
        else if (what == 3)
            window().wheel(x, y, static_cast<float>(below(7) - 3), modifier);
        else if (what == 4)
            window().keyDown(below(2) ? VKEY_RETURN : VKEY_RIGHT);
        else if (what == 5)
            effect.setParameter(below(kNumTags), static_cast<float>(below(1001)) / 1000.0F);
        else if (what == 6)
            journal.onEdit = [this] { interfere(); };
        else
            idle(static_cast<std::uint64_t>(below(400)));
    }
    void expectBalancedEdits() {
        std::map<std::int32_t, int> open;
        for (const std::string& line : journal.lines) {
            std::istringstream words(line);
            std::string what;
            std::int32_t index = 0;
            float value = 0.0F;
            words >> what >> index >> value;
            open[index] += what == "begin" ? 1 : what == "end" ? -1 : 0;
            EXPECT_GE(open[index], 0) << index;
            EXPECT_TRUE(what != "automate" || (value >= 0.0F && value <= 1.0F)) << line;
        }
        for (const auto& [index, count] : open)
            EXPECT_EQ(count, 0) << index;
    }

    std::mt19937 random{1};
};

TEST_F(RandomSession, LeavesEditsBalancedAndControlsTrue) {
    for (int session = 0; session < 25; ++session) {
        SCOPED_TRACE(session);
        for (int step = 0; step < 150; ++step)
            act();
        journal.onEdit = nullptr;
        editor.close();
        expectBalancedEdits();
        open();
        effect.selectProgram(session);
        for (std::int32_t tag = 0; tag < kNumParams; ++tag) {
            const CControl* const control = find(tag);
            if (!control || tag == kDry || tag == kWet)
                continue;
            EXPECT_FLOAT_EQ(control->getValue(), effect.getParameter(tag)) << tag;
        }
        EXPECT_EQ(valueOf(kDry), effect.effectiveDryWetLevel(kDry));
    }
}

} // namespace
} // namespace pedl::test
