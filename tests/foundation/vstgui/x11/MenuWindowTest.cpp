#include "tests/foundation/vstgui/x11/EditorInHost.h"

#include <xcb/randr.h>
#include <xcb/xcbext.h>
#include <xkbcommon/xkbcommon.h>

#include "vstgui/lib/controls/coptionmenu.h"
#include "vstgui/lib/platform/linux/x11menu.h"

namespace VSTGUI {
namespace {

constexpr int kEntries = 140;
constexpr int kRows = 28;

/// An editor with a menu of 140 names in five columns, wider than the editor.
class MenuInHost : public EditorInHost {
public:
    MenuInHost()
        : menu(new COptionMenu(CRect(150, 100, 250, 120), &editor, 1, nullptr, nullptr,
                               kPopupStyle | kCheckStyle)) {
        for (int i = 0; i < kEntries; ++i)
            menu->addEntry((std::to_string(i + 1) + ": A name of a sound").c_str());
        menu->setNbItemsPerColumn(kRows);
        menu->setValue(2);
        editor.theFrame().addView(menu);
        settle();
    }
    void open() {
        host.click(200, 110);
        settle();
        ASSERT_NE(opened(), nullptr);
    }
    X11Menu* opened() { return editor.window().openMenu(); }
    xcb_window_t root() { return editor.window().screen().root; }
    /// On the screen; the menu's window lies on top of all.
    CRect place() {
        xcb_connection_t* const xcb = host.xcb();
        const auto tree = owned(xcb_query_tree_reply(xcb, xcb_query_tree(xcb, root()), nullptr));
        const xcb_window_t top = xcb_query_tree_children(tree.get())[tree->children_len - 1];
        const auto g = owned(xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, top), nullptr));
        return {CPoint(g->x, g->y), CPoint(g->width, g->height)};
    }
    /// In the host window's pixels.
    CPoint middleOf(int32_t entry) {
        return place().getTopLeft() - CPoint(HostProgram::kX, HostProgram::kY) +
               opened()->list()->entryArea(entry).getCenter();
    }
    COptionMenu* menu;
};

/// Makes a monitor of a part of the screen, as a desk with several has them. Not by the library's
/// own function, which leaves a part of its request as it finds it.
void addMonitor(HostProgram& host, xcb_window_t root, const char* name, int16_t x, uint16_t width) {
    struct {
        xcb_randr_set_monitor_request_t request;
        xcb_randr_monitor_info_t monitor;
    } sent{{0, 0, 0, root}, {host.atom(name), 0, 0, 0, x, 0, width, 800, 100, 100}};
    const xcb_protocol_request_t kind{1, &xcb_randr_id, XCB_RANDR_SET_MONITOR, 1};
    iovec parts[3] = {{}, {}, {&sent, sizeof(sent)}};
    xcb_send_request(host.xcb(), 0, parts + 2, &kind);
    host.sync();
}

TEST(X11Menu, ReachesBeyondTheFrameButNotBeyondItsMonitor) {
    const auto server = XServer::start();
    if (!server)
        GTEST_SKIP() << "Xvfb is not installed";
    server->use();
    {
        MenuInHost w;
        addMonitor(w.host, w.root(), "left", 0, 900);
        addMonitor(w.host, w.root(), "right", 900, 380);
        w.open();
        EXPECT_GE(w.place().left, 0);
        EXPECT_LE(w.place().right, 900);
        const CPoint last = w.middleOf(kEntries - 1);
        EXPECT_GT(last.x, TestEditor::kWidth);
        w.host.click(static_cast<int>(last.x), static_cast<int>(last.y));
        w.settle();
        EXPECT_EQ(w.opened(), nullptr);
        EXPECT_EQ(w.editor.log.take(), "value 139");
    }
    sharedXServer();
}

TEST(X11Menu, TheKeyboardChoosesAndTheHostSeesNoneOfIt) {
    PEDL_NEEDS_DISPLAY();
    MenuInHost w;
    w.open();
    for (const xcb_keysym_t key : {XKB_KEY_Home, XKB_KEY_Right, XKB_KEY_Down, XKB_KEY_Return})
        w.host.type(key);
    w.settle();
    EXPECT_EQ(w.menu->getLastResult(), kRows + 1);
    EXPECT_EQ(w.host.takeKeys(), "");
}

TEST(X11Menu, EndsWithoutAChoice) {
    PEDL_NEEDS_DISPLAY();
    const std::map<std::string, std::function<void(MenuInHost&)>> ways{
        {"a click on the bare screen, over before the editor looks",
         [](MenuInHost& w) { w.host.click(1150, 700); }},
        {"another window gets the keyboard", [](MenuInHost& w) { w.host.takeFocus(); }},
        {"the host hides its window",
         [](MenuInHost& w) { xcb_unmap_window(w.host.xcb(), w.host.windowId()); }},
        {"the host destroys its window", [](MenuInHost& w) { w.host.destroyWindow(); }},
    };
    for (const auto& [story, way] : ways) {
        SCOPED_TRACE(story);
        MenuInHost w;
        w.open();
        way(w);
        EXPECT_TRUE(w.until([&] { return !w.opened(); }));
        EXPECT_EQ(w.editor.log.take(), "");
    }
    MenuInHost w;
    w.open();
    w.editor.close(); // nothing must be touched afterwards
}

} // namespace
} // namespace VSTGUI
