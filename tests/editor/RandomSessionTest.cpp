// Whatever the user does, and wherever the host closes the window or changes something meanwhile:
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

    void act() {
        if (!editor.getFrame())
            editor.open(this);
        const CFrame& frame = *editor.getFrame();
        const CRect place = frame.getView(below(frame.getNbViews()))->getViewSize();
        const CCoord x = place.left + below(static_cast<int>(place.getWidth()) + 1);
        const CCoord y = place.top + below(static_cast<int>(place.getHeight()) + 1);
        const std::array modifiers{0, 0, +kShift, +kControl, +kAlt};
        const std::int32_t modifier = modifiers.at(static_cast<std::size_t>(below(5)));
        switch (below(9)) {
        case 0:
            held = below(5) ? kLButton : kRButton;
            window().mouseDown(x, y, held | modifier | (below(4) ? 0 : kDoubleClick));
            break;
        case 1:
            window().mouseUp(x, y, std::exchange(held, 0) & 0);
            break;
        case 2:
            window().mouseMove(x, y, held | modifier);
            break;
        case 3:
            window().wheel(x, y, static_cast<float>(below(7) - 3), modifier);
            break;
        case 4:
            window().keyDown(
                static_cast<VstVirtualKey>(below(2) ? VKEY_LEFT + below(4) : VKEY_RETURN));
            break;
        case 5:
            effect.setParameter(below(kNumTags), static_cast<float>(below(1001)) / 1000.0F);
            break;
        case 6:
            journal.onEdit = [this, closes = below(2)] { // once, inside the next edit
                journal.onEdit = nullptr;
                if (closes)
                    editor.close();
                else
                    effect.selectProgram(below(kNumPrograms));
            };
            break;
        default:
            idle(static_cast<std::uint64_t>(below(400)));
        }
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
    void expectTrueControls() {
        for (std::int32_t tag = 0; tag < kNumParams; ++tag) {
            const CControl* const control = find(tag);
            if (!control || control->isTypeOf("CSplashScreenMyView"))
                continue;
            const bool isLevel = tag == kDry || tag == kWet;
            const float stored = effect.getParameter(tag);
            EXPECT_FLOAT_EQ(control->getValue(),
                            isLevel ? effect.effectiveDryWetLevel(tag) : stored)
                << tag;
        }
    }

    std::mt19937 random{1};
    std::int32_t held = 0;
};

TEST_F(RandomSession, LeavesEditsBalancedAndControlsTrue) {
    for (int session = 0; session < 25; ++session) {
        SCOPED_TRACE(session);
        for (int step = 0; step < 150; ++step)
            act();
        journal.onEdit = nullptr;
        editor.close();
        expectBalancedEdits();
        held = 0;
        open();
        effect.selectProgram(session);
        expectTrueControls();
    }
}

} // namespace
} // namespace pedl::test
