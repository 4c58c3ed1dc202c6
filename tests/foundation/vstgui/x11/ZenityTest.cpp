// The program itself, on a screen of the test's own.

#include "tests/foundation/vstgui/FileDelegate.h"
#include "tests/foundation/vstgui/x11/EditorInHost.h"
#include "tests/support/TemporaryFolder.h"

#include <cstdlib>
#include <fstream>
#include <unistd.h>

#include <xkbcommon/xkbcommon-keysyms.h>

#include "vstgui/lib/cvstguitimer.h"
#include "vstgui/lib/platform/linux/filedialogs.h"
#include "vstgui/lib/platform/linux/x11toplevel.h"

namespace VSTGUI {
namespace {

std::string children() {
    std::ifstream list("/proc/self/task/" + std::to_string(getpid()) + "/children");
    return {std::istreambuf_iterator<char>(list), {}};
}

/// An editor that asks for a file, and the eyes and hands of its user.
class Zenity : public testing::Test {
protected:
    void SetUp() override {
        PEDL_NEEDS_DISPLAY();
        if (std::system("command -v zenity > /dev/null") != 0)
            GTEST_SKIP() << "zenity is not installed";
        unsetenv("DBUS_SESSION_BUS_ADDRESS"); // no portal
        unsetenv("XDG_RUNTIME_DIR");
        setenv("HOME", folder.path().c_str(), 1);
        childrenBefore = children();
        e = std::make_unique<EditorInHost>();
        knob = e->editor.add("knob", CRect(0, 0, 20, 20));
    }
    void TearDown() override {
        e.reset();
        delegate->forget();
        for (int turn = 0; turn < 400 && children() != childrenBefore; ++turn, usleep(5000))
            CVSTGUITimer::fireDueTimers(); // another editor's idle
        EXPECT_EQ(children(), childrenBefore) << "a program is left";
    }

    void ask(CNewFileSelector::Style style, const std::string& saveName = {}) {
        CNewFileSelector* selector = CNewFileSelector::create(&e->editor.theFrame(), style);
        selector->setTitle("A file, please");
        selector->setInitialDirectory(folder.path().c_str());
        selector->setDefaultSaveName(saveName.c_str());
        selector->setDefaultExtension(CFileExtension("Presets", "zmt"));
        EXPECT_TRUE(selector->run(delegate));
        selector->forget();
    }

    std::string property(xcb_window_t window, xcb_atom_t name) {
        const auto reply = owned(xcb_get_property_reply(
            e->host.xcb(), xcb_get_property(e->host.xcb(), 0, window, name, XCB_ATOM_ANY, 0, 64),
            nullptr));
        if (!reply)
            return {};
        const auto* const bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
        return {bytes, static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
    }
    xcb_window_t dialogOnScreen() {
        xcb_connection_t* const xcb = e->host.xcb();
        const auto tree = owned(xcb_query_tree_reply(
            xcb, xcb_query_tree(xcb, e->editor.window().screen().root), nullptr));
        for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
            const xcb_window_t window = xcb_query_tree_children(tree.get())[i];
            const auto state = owned(xcb_get_window_attributes_reply(
                xcb, xcb_get_window_attributes(xcb, window), nullptr));
            if (state && state->map_state == XCB_MAP_STATE_VIEWABLE &&
                property(window, XCB_ATOM_WM_NAME) == "A file, please")
                return window;
        }
        return XCB_NONE;
    }
    /// The host's idle until `condition` holds, with a look at how long it takes.
    bool until(const std::function<bool()>& condition) {
        using namespace std::chrono;
        for (int turn = 0; turn < 4000; ++turn, std::this_thread::sleep_for(milliseconds(5))) {
            const auto before = steady_clock::now();
            e->editor.idle();
            longest = std::max(longest, steady_clock::now() - before);
            if (condition())
                return true;
        }
        return false;
    }
    void awaitDialog() {
        EXPECT_TRUE(until([&] { return dialogOnScreen() != XCB_NONE; }));
        const uint64_t seenMs = currentTickMs() + kUnseenMs; // as slow as a person
        until([&] { return currentTickMs() >= seenMs; });
    }
    /// Until the dialog has taken a key it may not have been ready for.
    bool endsAfter(xcb_keysym_t key) {
        constexpr int kLooksPerKey = 60; // 0.3 s
        int looks = 0;
        return until([&] {
                   if (looks++ % kLooksPerKey == 0)
                       typeIntoDialog(key);
                   return delegate->ends > 0 || looks > 20 * kLooksPerKey;
               }) &&
               delegate->ends > 0;
    }

    void typeIntoDialog(xcb_keysym_t key) {
        xcb_set_input_focus(e->host.xcb(), XCB_INPUT_FOCUS_PARENT, dialogOnScreen(),
                            XCB_CURRENT_TIME);
        e->host.type(key);
    }

    const pedl::test::TemporaryFolder folder;
    std::string childrenBefore;
    std::unique_ptr<EditorInHost> e;
    ScriptedControl* knob = nullptr;
    FileDelegate* delegate = new FileDelegate;
    std::chrono::steady_clock::duration longest{};
};

TEST(Dialogs, BelongToTheWindowThatTheWindowManagerKnows) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost e;
    const X11Connection& connection = e.editor.window().connection();
    const auto editor = static_cast<xcb_window_t>(
        reinterpret_cast<uintptr_t>(e.editor.window().getPlatformRepresentation()));
    EXPECT_EQ(topLevelAround(connection, editor), e.host.windowId());

    const xcb_window_t decoration = e.host.cover(0, 0, 500, 400);
    xcb_reparent_window(e.host.xcb(), e.host.windowId(), decoration, 4, 20);
    e.host.sync();
    EXPECT_EQ(topLevelAround(connection, editor), decoration) << "nothing better to be seen";
    const xcb_atom_t mark = e.host.atom("WM_STATE");
    const uint32_t normal[] = {1, 0};
    xcb_change_property(e.host.xcb(), XCB_PROP_MODE_REPLACE, e.host.windowId(), mark, mark, 32, 2,
                        normal);
    e.host.sync();
    EXPECT_EQ(topLevelAround(connection, editor), e.host.windowId());
    EXPECT_EQ(topLevelAround(connection, 0x7777777), 0x7777777) << "no such window";
}

TEST_F(Zenity, ShowsItselfWhileTheEditorDraws) {
    ask(CNewFileSelector::kSelectFile);
    awaitDialog();
    EXPECT_EQ(e->logAfter([&] { knob->invalid(); }), "knob draw");
    EXPECT_TRUE(endsAfter(XKB_KEY_Escape));
    EXPECT_TRUE(delegate->paths.empty());
    EXPECT_TRUE(until([&] { return dialogOnScreen() == XCB_NONE; }));
    EXPECT_LT(longest, std::chrono::milliseconds(50)) << "the host's idle was held";
    RecordProperty("longestIdleMicroseconds",
                   static_cast<int>(longest / std::chrono::microseconds(1)));
}

TEST_F(Zenity, ReturnsTheNameToSaveUnder) {
    ask(CNewFileSelector::kSelectSaveFile, "it's \"\u00fcber\" lead");
    awaitDialog();
    EXPECT_TRUE(endsAfter(XKB_KEY_Return));
    EXPECT_EQ(delegate->paths, std::vector<std::string>{folder / "it's \"\u00fcber\" lead.zmt"});
}

TEST_F(Zenity, GoesWithTheEditor) {
    ask(CNewFileSelector::kSelectFile);
    awaitDialog();
    const auto before = std::chrono::steady_clock::now();
    e->editor.close();
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(50));
    EXPECT_EQ(delegate->ends, 0);
}

} // namespace
} // namespace VSTGUI
