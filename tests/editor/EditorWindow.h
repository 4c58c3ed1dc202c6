#pragma once

#include "editor/ZMTpedlFilterEditor.h"
#include "tests/plugin/EffectTest.h"
#include "vstgui/lib/platform/offscreen/manualclock.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"

#include <cmath>
#include <string>

namespace pedl::test {

/// Opens nothing, and remembers what it was to open.
struct RememberingOpener : DocumentOpener {
    bool open(const std::string& target) override {
        opened.push_back(target);
        return true;
    }
    std::vector<std::string> opened;
};

/// An effect with its window open, and a hand for the mouse. The journal starts empty.
class EditorWindow : public EffectTest {
protected:
    EditorWindow() {
        VSTGUI::setPlatformFrameFactory(VSTGUI::OffscreenFrame::create);
        clock.advance(10000); // long after any touch
        effect.resume();
        open();
    }
    ~EditorWindow() override {
        editor.close();
        VSTGUI::setPlatformFrameFactory(nullptr);
    }

    void open() {
        EXPECT_TRUE(editor.open(this));
        journal.lines.clear();
    }
    void idle(std::uint64_t afterMs = 20) {
        clock.advance(afterMs);
        editor.idle();
    }
    VSTGUI::OffscreenFrame& window() { return VSTGUI::OffscreenFrame::of(*editor.getFrame()); }

    /// The control in the frame, null when it is not there.
    template <typename Control = VSTGUI::CControl> Control* find(std::int32_t tag) {
        VSTGUI::CFrame& frame = *editor.getFrame();
        for (std::int32_t i = 0; i < frame.getNbViews(); ++i)
            if (auto* const control = dynamic_cast<Control*>(frame.getView(i)))
                if (control->getTag() == tag)
                    return control;
        return nullptr;
    }
    template <typename Control = VSTGUI::CControl> float valueOf(std::int32_t tag) {
        const Control* const control = find<Control>(tag);
        return control ? control->getValue() : std::nanf("");
    }
    template <typename Control = VSTGUI::CControl> VSTGUI::CPoint middleOf(std::int32_t tag) {
        const VSTGUI::CRect place = find<Control>(tag)->getViewSize();
        return {std::floor((place.left + place.right) / 2),
                std::floor((place.top + place.bottom) / 2)};
    }
    /// Which of the views that take turns are to be seen.
    std::string shownDigits() {
        std::string tags;
        for (const std::int32_t tag : {+kLFOFreq, +kLFOSynchroRate, +kTempoSetup,
                                       +kFilterCutoffFreq, +kSynchroTempoFromHost})
            if (const auto* const digits = find(tag); digits && digits->isVisible())
                tags += std::to_string(tag) + " ";
        return tags;
    }

    void hover(VSTGUI::CPoint where, std::int32_t modifiers = 0) {
        window().mouseMove(where.x, where.y, modifiers);
    }
    void click(VSTGUI::CPoint where, std::int32_t buttons = VSTGUI::kLButton) {
        window().mouseDown(where.x, where.y, buttons);
        if (editor.getFrame())
            window().mouseUp(where.x, where.y);
    }
    /// What host, clock and stream have heard since the last call.
    std::string heard() {
        std::string all;
        for (const std::string& line : journal.lines)
            if (!line.starts_with("time"))
                all += (all.empty() ? "" : ", ") + line;
        journal.lines.clear();
        return all;
    }

    VSTGUI::ManualClock clock;
    RememberingOpener opener;
    ZMTpedlFilterEditor editor{&effect, {&opener, ""}};
};

} // namespace pedl::test
