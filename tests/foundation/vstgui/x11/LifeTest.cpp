#include "tests/foundation/vstgui/x11/EditorInHost.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <sstream>
#include <unistd.h>

#include <xcb/res.h>

#include "vstgui/lib/controls/coptionmenu.h"

namespace VSTGUI {
namespace {

long residentKiB() {
    std::ifstream status("/proc/self/statm");
    long all = 0, resident = 0;
    status >> all >> resident;
    return resident * 4;
}

long openDescriptors() {
    long count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
        ++count;
    return count;
}

/// Of this process: others on the machine have theirs.
long sharedSegments() {
    std::ifstream list("/proc/sysvipc/shm");
    long count = 0;
    for (std::string line; std::getline(list, line);) {
        std::istringstream columns(line);
        long key = 0, number = 0, permissions = 0, size = 0, maker = 0;
        if (columns >> key >> number >> permissions >> size >> maker && maker == getpid())
            ++count;
    }
    return count;
}

struct ServerUse {
    uint32_t clients = 0;
    uint32_t resources = 0; // of all of them
};

ServerUse serverUse(xcb_connection_t* xcb) {
    ServerUse use;
    const auto clients =
        owned(xcb_res_query_clients_reply(xcb, xcb_res_query_clients(xcb), nullptr));
    use.clients = clients->num_clients;
    for (auto c = xcb_res_query_clients_clients_iterator(clients.get()); c.rem > 0;
         xcb_res_client_next(&c)) {
        const auto types = owned(xcb_res_query_client_resources_reply(
            xcb, xcb_res_query_client_resources(xcb, c.data->resource_base), nullptr));
        if (!types)
            continue;
        for (auto t = xcb_res_query_client_resources_types_iterator(types.get()); t.rem > 0;
             xcb_res_type_next(&t))
            use.resources += t.data->count;
    }
    return use;
}

TEST(X11Life, WithoutADisplayOrAParentOpeningIsRefused) {
    setenv("DISPLAY", ":no-such", 1);
    TestEditor editor;
    EXPECT_FALSE(editor.open(&editor));
    editor.idle();
    editor.close();
    PEDL_NEEDS_DISPLAY();
    EXPECT_FALSE(editor.open(reinterpret_cast<void*>(uintptr_t{0x7FFFFFF})));
    editor.close();
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
    CPoint where;
    w.editor.theFrame().getCurrentMouseLocation(where);
    w.editor.theFrame().setCursor(kCursorHand);
    w.editor.theFrame().setSize(200, 200);
    w.settle();
    w.editor.close();
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
        CPoint where;
        w.editor.theFrame().getCurrentMouseLocation(where);
        w.editor.theFrame().setCursor(kCursorHand);
        w.editor.window().clipboard().setText(Clipboard::Kind::Copied, "text");
        w.editor.idle();
        w.editor.close();
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
        w.host.moveTo(20, 20);
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

/// Opens, shows and closes an editor with a menu, in a window of the host's.
void runCycle(HostProgram& host) {
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
}

TEST(X11Life, AThousandEditorsLeaveNothing) {
    PEDL_NEEDS_DISPLAY();
    HostProgram host(TestEditor::kWidth, TestEditor::kHeight);
    for (int warmUp = 0; warmUp < 50; ++warmUp)
        runCycle(host);
    host.sync();
    const auto isGone = [&, clients = uint32_t{2}] { // the host and the server itself
        return serverUse(host.xcb()).clients <= clients;
    };
    for (int wait = 0; wait < 1000 && !isGone(); ++wait)
        host.sync();
    const long residentBefore = residentKiB();
    const long descriptorsBefore = openDescriptors();
    const long segmentsBefore = sharedSegments();
    const ServerUse before = serverUse(host.xcb());
    constexpr int kCycles = 1000;
    const auto start = std::chrono::steady_clock::now();
    for (int cycle = 0; cycle < kCycles; ++cycle)
        runCycle(host);
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    for (int wait = 0; wait < 1000 && !isGone(); ++wait)
        host.sync();
    malloc_trim(0);
    const ServerUse after = serverUse(host.xcb());
    const long growthKiB = residentKiB() - residentBefore;
    std::printf("%d cycles, %.2f ms each: memory %+ld KiB, descriptors %+ld, segments %+ld, "
                "clients %u to %u, server resources %u to %u\n",
                kCycles, took.count() / kCycles, growthKiB, openDescriptors() - descriptorsBefore,
                sharedSegments() - segmentsBefore, before.clients, after.clients, before.resources,
                after.resources);
#ifndef __SANITIZE_ADDRESS__ // which keeps freed memory back
    EXPECT_LT(growthKiB, 2048);
#endif
    EXPECT_EQ(openDescriptors(), descriptorsBefore);
    EXPECT_EQ(sharedSegments(), segmentsBefore);
    EXPECT_EQ(after.clients, before.clients);
    EXPECT_EQ(after.resources, before.resources);
}

TEST(X11Life, TwoEditorsDoNotDisturbEachOther) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost first;
    auto second = std::make_unique<EditorInHost>(); // on top of the first
    first.editor.add("one", CRect(0, 0, 100, 100));
    second->editor.add("two", CRect(0, 0, 100, 100));
    second->settle();
    first.settle();
    EXPECT_NE(second->logAfter([&] { second->host.click(20, 20); }).find("two down"),
              std::string::npos);
    EXPECT_EQ(first.editor.log.take().find("one down"), std::string::npos);
    second.reset();
    first.settle();
    EXPECT_NE(first.logAfter([&] { first.host.click(20, 20); }).find("one down"),
              std::string::npos);
}

} // namespace
} // namespace VSTGUI
