#include "tests/foundation/vstgui/x11/EditorInHost.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "vstgui/lib/controls/coptionmenu.h"

namespace VSTGUI {
namespace {

long openDescriptors() {
    const std::filesystem::directory_iterator first("/proc/self/fd"), last;
    return std::distance(first, last);
}

/// Of this process: others on the machine have theirs.
long sharedSegments() {
    std::ifstream list("/proc/sysvipc/shm");
    const std::string maker = " " + std::to_string(getpid()) + " ";
    long count = 0;
    for (std::string line; std::getline(list, line);)
        count += line.find(maker) != std::string::npos;
    return count;
}

/// Everything that a view may ask of a window that is gone.
void askEverythingOf(EditorInHost& w) {
    CPoint where;
    w.editor.theFrame().getCurrentMouseLocation(where);
    w.editor.theFrame().setCursor(kCursorHand);
    w.editor.theFrame().setSize(200, 200);
    w.editor.window().clipboard().setText(Clipboard::Kind::Copied, "text");
    w.editor.idle();
    w.editor.close();
}

TEST(X11Life, WithoutADisplayOrAParentOpeningIsRefused) {
    setenv("DISPLAY", ":no-such", 1);
    TestEditor editor;
    EXPECT_FALSE(editor.open(&editor));
    editor.idle();
    editor.close();
    PEDL_NEEDS_DISPLAY();
    EXPECT_FALSE(editor.open(reinterpret_cast<void*>(uintptr_t{0x7FFFFFF})));
}

TEST(X11Life, AParentThatIsDestroyedLeavesADeadWindowThatCloses) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    ScriptedControl* const pad = w.editor.add("pad", CRect(0, 0, 100, 100));
    w.settle();
    w.host.destroyWindow();
    pad->setDirty(); // drawn by an idle that has not heard of it yet
    for (int turn = 0; turn < 3; ++turn)
        w.settle();
    EXPECT_EQ(w.editor.window().getPlatformRepresentation(), nullptr);
    askEverythingOf(w);
}

TEST(X11Life, AServerThatGoesAwayLeavesTheProgramRunning) {
    const auto server = XServer::start();
    if (!server)
        GTEST_SKIP() << "Xvfb is not installed";
    server->use();
    {
        EditorInHost w;
        ScriptedControl* const pad = w.editor.add("pad", CRect(0, 0, 100, 100));
        w.settle();
        server->kill();
        pad->invalid(); // to be drawn and sent before the loss is seen
        for (int turn = 0; turn < 3; ++turn)
            w.editor.idle();
        askEverythingOf(w);
        struct sigaction now {};
        sigaction(SIGPIPE, nullptr, &now);
        EXPECT_EQ(now.sa_handler, SIG_DFL) << "the process's signals are the host's";
    }
    sharedXServer();
}

TEST(X11Life, AListenerMayCloseTheEditorInTheMiddleOfAnEvent) {
    PEDL_NEEDS_DISPLAY();
    for (const char* event : {"down", "up", "move", "wheel 1", "enter"}) {
        SCOPED_TRACE(event);
        EditorInHost w;
        w.editor.add("pad", CRect(0, 0, 100, 100))->script[event] = [&] { w.editor.close(); };
        w.host.click(20, 20);
        w.host.click(20, 20, 4);
        w.host.moveTo(30, 20);
        EXPECT_TRUE(w.until([&] { return !w.editor.isOpen(); }));
    }
}

TEST(X11Life, ATurnEndsHoweverManyEventsWait) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    ManualClock clock;
    auto* const slow = w.editor.add("slow", CRect(0, 0, 100, 100));
    slow->script["wheel 1"] = [&] { clock.advance(15); };
    w.host.moveTo(20, 20);
    w.settle();
    w.editor.log.take();
    for (int notch = 0; notch < 3; ++notch)
        w.host.notch(4);
    w.editor.idle();
    EXPECT_EQ(w.editor.log.take(), "slow wheel 1, slow wheel 1");
    w.editor.idle();
    EXPECT_EQ(w.editor.log.take(), "slow wheel 1");
}

TEST(X11Life, AHundredEditorsLeaveNothing) {
    PEDL_NEEDS_DISPLAY();
    HostProgram host(TestEditor::kWidth, TestEditor::kHeight);
    long descriptors = 0, segments = 0;
    for (int cycle = 0; cycle < 100; ++cycle) {
        TestEditor editor;
        ASSERT_TRUE(editor.open(host.window()));
        auto* const menu = new COptionMenu(CRect(10, 10, 100, 30), &editor, 1);
        menu->addEntry("one");
        editor.theFrame().addView(menu);
        editor.theFrame().setCursor(kCursorHand);
        editor.idle();
        menu->popup();
        editor.idle();
        editor.close();
        if (cycle == 0)
            descriptors = openDescriptors(), segments = sharedSegments();
    }
    EXPECT_EQ(openDescriptors(), descriptors);
    EXPECT_LT(sharedSegments(), segments + 10); // the server takes a moment to let go of its own
}

} // namespace
} // namespace VSTGUI
