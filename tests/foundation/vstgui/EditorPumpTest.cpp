// Editors beside each other: on one thread, where each has its turn, and on two at the same time.
// What is at stake there shows under the thread sanitizer too.

#include <thread>

#include "tests/foundation/vstgui/FileDelegate.h"
#include "vstgui/lib/controls/ctextlabel.h"
#include "vstgui/lib/cvstguitimer.h"
#include "vstgui/lib/platform/common/filedialogbackend.h"
#include "vstgui/lib/platform/offscreen/manualclock.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"
#include "vstgui/plugin-bindings/aeffguieditor.h"

namespace VSTGUI {
namespace {

constexpr int32_t kTimerMs = 50;

/// A running timer and how often it fired, always on the thread that made it.
class Ticking : public CBaseObject {
public:
    Ticking() { timer_->start(); }
    ~Ticking() override { timer_->forget(); }
    CMessageResult notify(CBaseObject* /*sender*/, IdStringPtr /*message*/) override {
        EXPECT_EQ(std::this_thread::get_id(), thread_);
        ++count_;
        if (inMessage)
            inMessage();
        return kMessageNotified;
    }
    int take() { return std::exchange(count_, 0); }

    std::function<void()> inMessage;

private:
    const std::thread::id thread_ = std::this_thread::get_id();
    int count_ = 0;
    CVSTGUITimer* timer_ = new CVSTGUITimer(this, kTimerMs);
};

/// An editor with a text and a timer of its own.
class SmallEditor : public AEffGUIEditor {
public:
    SmallEditor() : AEffGUIEditor(nullptr) {}
    void show() {
        AEffGUIEditor::open(this);
        ticking = std::make_unique<Ticking>();
        frame = new CFrame(CRect(0, 0, 80, 20), this, this);
        frame->addView(new CTextLabel(CRect(0, 0, 80, 20), "Cut-off"));
    }
    void close() override {
        ticking.reset();
        std::exchange(frame, nullptr)->close();
        AEffGUIEditor::close();
    }

    std::unique_ptr<Ticking> ticking;
};

/// Ends at the third look.
struct QuickDialog : FileDialogBackend {
    bool start(const FileDialogRequest& /*request*/) override { return true; }
    State poll(std::vector<std::string>& /*paths*/) override {
        return ++looks < 3 ? State::Open : State::Ended;
    }
    int looks = 0;
};

class Editors : public testing::Test {
protected:
    Editors() {
        setPlatformFrameFactory(OffscreenFrame::create);
        setFileDialogFactory([](int32_t) -> std::unique_ptr<FileDialogBackend> {
            return std::make_unique<QuickDialog>();
        });
    }
    ~Editors() override {
        setFileDialogFactory(nullptr);
        setPlatformFrameFactory(nullptr);
        EXPECT_FALSE(CVSTGUITimer::isAnyRunning());
    }
    void idleLater(SmallEditor& editor) {
        clock.advance(kTimerMs);
        editor.idle();
    }
    static FileDelegate* askForFile(SmallEditor& editor) {
        auto* const delegate = new FileDelegate;
        CNewFileSelector* const selector = CNewFileSelector::create(editor.getFrame());
        EXPECT_TRUE(selector->run(delegate));
        selector->forget();
        return delegate;
    }

    ManualClock clock;
};

TEST_F(Editors, EachServesItsOwnTimersAndDialogsAlone) {
    SmallEditor first, second;
    first.show();
    second.show();
    FileDelegate* const delegate = askForFile(first); // between calls, the second's being the last
    for (int turn = 0; turn < 5; ++turn)
        idleLater(second);
    EXPECT_EQ(second.ticking->take(), 5);
    EXPECT_EQ(first.ticking->take(), 0);
    EXPECT_EQ(delegate->ends, 0);
    std::unique_ptr<Ticking> inside;
    first.ticking->inMessage = [&] {
        second.idle(); // a host that has its other editors' turn come in the middle of this one's
        if (!inside)
            inside = std::make_unique<Ticking>();
    };
    for (int turn = 0; turn < 5; ++turn)
        idleLater(first);
    EXPECT_EQ(first.ticking->take(), 5);
    EXPECT_EQ(inside->take(), 4);
    EXPECT_EQ(delegate->ends, 1);
    idleLater(second);
    EXPECT_EQ(inside->take(), 0);
    inside.reset();
    delegate->forget();
    first.close();
    second.close();
}

TEST_F(Editors, ATimerStartedBetweenCallsIsTheLastOnesAndOutlivesIt) {
    auto first = std::make_unique<SmallEditor>();
    SmallEditor second;
    first->idle();
    Ticking between;
    idleLater(second);
    EXPECT_EQ(between.take(), 0);
    idleLater(*first);
    EXPECT_EQ(between.take(), 1);
    first.reset();
    idleLater(second);
    EXPECT_EQ(between.take(), 1);
}

TEST_F(Editors, ATimerWaitsForAnEditorOfItsThread) {
    SmallEditor foreign;
    std::thread([&] {
        Ticking here; // no editor has been called on this thread
        std::thread([&] { idleLater(foreign); }).join();
        EXPECT_EQ(here.take(), 0);
        SmallEditor own;
        idleLater(own);
        EXPECT_EQ(here.take(), 1);
    }).join();
}

class Threads : public Editors {};

TEST_F(Threads, TwoEditorsOpenDrawAskAndCloseAtTheSameTime) {
    constexpr int kRounds = 2000;
    const auto live = [&](int rounds) {
        for (int round = 0; round < rounds && !HasFailure(); ++round) {
            SmallEditor editor;
            editor.show();
            FileDelegate* const delegate = askForFile(editor);
            for (int turn = 0; turn < 3 + round % 2; ++turn)
                idleLater(editor);
            EXPECT_EQ(editor.ticking->take(), 3 + round % 2);
            EXPECT_EQ(delegate->ends, round % 2) << "closed a turn too early, or with the answer";
            editor.close();
            delegate->forget();
        }
    };
    std::thread other(live, kRounds);
    live(kRounds);
    other.join();
}

} // namespace
} // namespace VSTGUI
