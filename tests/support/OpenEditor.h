#pragma once

#include "editor/ZMTpedlFilterEditor.h"
#include "foundation/platform/NoDiagnostics.h"
#include "foundation/platform/StandingClock.h"
#include "foundation/vst24/VstOpcodes.h"
#include "tests/support/MemorySettings.h"
#include "vstgui/lib/platform/offscreen/manualclock.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace pedl::test {

/// What hosts hear of edits, all instances together: which are open, and what was set outside one.
class EditLog {
public:
    EditLog() { current = this; }
    ~EditLog() { current = nullptr; }
    EditLog(const EditLog&) = delete;
    EditLog& operator=(const EditLog&) = delete;

    static VstIntPtr VSTCALLBACK host(AEffect* effect, VstInt32 opcode, VstInt32 index,
                                      VstIntPtr /*value*/, void* /*ptr*/, float opt) {
        constexpr VstInt32 kVstVersion = 2400;
        if (opcode == audioMasterVersion)
            return kVstVersion;
        if (current)
            current->note({effect, index}, opcode, opt);
        return 0;
    }

    /// Whether every edit that was begun has ended, and no more.
    [[nodiscard]] bool isBalanced() const {
        for (const auto& [parameter, open] : openEdits_)
            if (open != 0)
                return false;
        return true;
    }
    [[nodiscard]] int valuesOutsideRange() const { return valuesOutsideRange_; }
    [[nodiscard]] int edits() const { return edits_; }

private:
    using Parameter = std::pair<AEffect*, VstInt32>;

    void note(const Parameter& parameter, VstInt32 opcode, float value) {
        if (opcode == audioMasterBeginEdit)
            ++openEdits_[parameter], ++edits_;
        else if (opcode == audioMasterEndEdit)
            --openEdits_[parameter];
        else if (opcode == audioMasterAutomate && !(value >= 0.0F && value <= 1.0F))
            ++valuesOutsideRange_;
    }

    static inline EditLog* current = nullptr;
    std::map<Parameter, int> openEdits_;
    int valuesOutsideRange_ = 0;
    int edits_ = 0;
};

/// An effect and its editor, open in a window without a display at a scale; the test is mouse,
/// keyboard and the host's idle, which comes every 20 ms.
class OpenEditor {
public:
    OpenEditor(VSTGUI::ManualClock& clock, SettingsStore& settings, double scale = 1.0,
               DocumentOpener* opener = nullptr)
        : effect(EditLog::host, {time_, diagnostics_, settings}), editor(&effect, {opener, ""}),
          clock_(clock), scale_(scale) {
        open();
    }

    void open() {
        VSTGUI::setPlatformFrameFactory(VSTGUI::OffscreenFrame::create);
        ASSERT_TRUE(editor.open(this));
        VSTGUI::setPlatformFrameFactory(nullptr);
        editor.getFrame()->setScaleFactor(scale_);
        idle();
    }

    void idle(int times = 2) { // what one idle finds, the next one shows
        for (; times > 0 && editor.getFrame(); --times) {
            clock_.advance(20);
            editor.idle();
        }
    }

    VSTGUI::OffscreenFrame& window() { return VSTGUI::OffscreenFrame::of(*editor.getFrame()); }

    /// The control with this tag that takes part in the window now, the topmost first.
    VSTGUI::CControl* control(std::int32_t tag) {
        VSTGUI::CFrame& frame = *editor.getFrame();
        for (std::int32_t i = frame.getNbViews() - 1; i >= 0; --i)
            if (auto* const found = dynamic_cast<VSTGUI::CControl*>(frame.getView(i)))
                if (found->getTag() == tag)
                    return found;
        return nullptr;
    }
    /// The middle of it; far outside where it is not in the window.
    VSTGUI::CPoint middleOf(std::int32_t tag) {
        const VSTGUI::CControl* const found = control(tag);
        EXPECT_NE(found, nullptr) << tag;
        return found ? found->getViewSize().getCenter() : VSTGUI::CPoint(-99, -99);
    }

    void click(std::int32_t tag, std::int32_t buttons = VSTGUI::kLButton) {
        const VSTGUI::CPoint where = middleOf(tag);
        click(where, buttons);
    }
    void click(const VSTGUI::CPoint& where, std::int32_t buttons = VSTGUI::kLButton) {
        window().mouseDown(where.x, where.y, buttons);
        if (editor.getFrame())
            window().mouseUp(where.x, where.y);
        idle();
    }
    void drag(std::int32_t tag, double right, double up) {
        const VSTGUI::CPoint from = middleOf(tag);
        window().mouseDown(from.x, from.y, VSTGUI::kLButton);
        window().mouseMove(from.x + right, from.y - up, VSTGUI::kLButton);
        window().mouseUp(from.x + right, from.y - up);
        idle();
    }

private:
    StandingClock time_;
    NoDiagnostics diagnostics_;

public:
    ZMTpedlFilterEffect effect;
    ZMTpedlFilterEditor editor;

private:
    VSTGUI::ManualClock& clock_;
    const double scale_;
};

} // namespace pedl::test
