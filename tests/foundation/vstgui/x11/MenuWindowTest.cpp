#include "tests/foundation/vstgui/x11/EditorInHost.h"

#include <cstdlib>
#include <sys/uio.h>
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
    /// In the host window's pixels.
    CPoint middleOf(int32_t entry) {
        CPoint corner;
        const auto place = owned(
            xcb_get_geometry_reply(host.xcb(), xcb_get_geometry(host.xcb(), topWindow()), nullptr));
        corner = CPoint(place->x - HostProgram::kX, place->y - HostProgram::kY);
        return corner + opened()->list()->entryArea(entry).getCenter();
    }
    /// The menu's: it lies on top of all.
    xcb_window_t topWindow() {
        xcb_connection_t* const xcb = host.xcb();
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data->root;
        const auto tree = owned(xcb_query_tree_reply(xcb, xcb_query_tree(xcb, root), nullptr));
        return xcb_query_tree_children(tree.get())[tree->children_len - 1];
    }
    void moveTo(const CPoint& where) {
        host.moveTo(static_cast<int>(where.x), static_cast<int>(where.y));
        settle();
    }

    COptionMenu* menu;
};

TEST(X11Menu, ManyNamesReachBeyondTheFramesEdgeAndTheMouseChooses) {
    PEDL_NEEDS_DISPLAY();
    MenuInHost w;
    w.open();
    const CPoint last = w.middleOf(kEntries - 1);
    EXPECT_GT(last.x, TestEditor::kWidth) << "the last column lies outside the frame";
    EXPECT_GT(w.middleOf(kRows - 1).y, TestEditor::kHeight);
    w.moveTo(last);
    EXPECT_EQ(w.opened()->list()->hovered(), kEntries - 1);
    if (const char* const folder = std::getenv("PEDL_TEST_PICTURES")) {
        EXPECT_TRUE(w.host.savePicture(std::string(folder) + "/x11-menu.png", 1100, 680));
    }
    w.host.button(1, true);
    w.host.button(1, false);
    w.settle();
    EXPECT_EQ(w.opened(), nullptr);
    EXPECT_EQ(w.menu->getLastResult(), kEntries - 1);
    EXPECT_EQ(w.editor.log.take(), "value 139");
}

TEST(X11Menu, TheKeyboardChoosesAndTheHostSeesNoneOfIt) {
    PEDL_NEEDS_DISPLAY();
    MenuInHost w;
    w.open();
    for (const xcb_keysym_t key : {XKB_KEY_Home, XKB_KEY_Right, XKB_KEY_Down, XKB_KEY_Return})
        w.host.type(key);
    w.settle();
    EXPECT_EQ(w.opened(), nullptr);
    EXPECT_EQ(w.menu->getLastResult(), kRows + 1);
    w.open();
    w.host.type(XKB_KEY_Escape);
    w.settle();
    EXPECT_EQ(w.opened(), nullptr);
    EXPECT_EQ(w.host.takeKeys(), "");
}

TEST(X11Menu, APressHeldFromTheControlChoosesWhereItIsLetGo) {
    PEDL_NEEDS_DISPLAY();
    MenuInHost w;
    w.host.moveTo(200, 110);
    w.host.button(1, true);
    w.settle();
    ASSERT_NE(w.opened(), nullptr);
    const CPoint target = w.middleOf(100);
    w.moveTo(CPoint(201, 110));
    w.moveTo(target);
    w.host.button(1, false);
    w.settle();
    EXPECT_EQ(w.menu->getLastResult(), 100);
}

TEST(X11Menu, EndsWithoutAChoice) {
    PEDL_NEEDS_DISPLAY();
    struct Row {
        const char* story;
        std::function<void(MenuInHost&)> way;
    };
    const Row rows[] = {
        {"a press on the bare screen",
         [](MenuInHost& w) {
             w.host.moveTo(1150, 700);
             w.settle();
             w.host.button(1, true);
             w.settle();
             w.host.button(1, false);
         }},
        {"a press in the frame", [](MenuInHost& w) { w.host.click(1, 1); }},
        {"another window gets the keyboard", [](MenuInHost& w) { w.host.takeFocus(); }},
        {"the host hides its window",
         [](MenuInHost& w) { xcb_unmap_window(w.host.xcb(), w.host.windowId()); }},
        {"the host destroys its window", [](MenuInHost& w) { w.host.destroyWindow(); }},
        {"the control goes", [](MenuInHost& w) { w.editor.theFrame().removeView(w.menu); }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.story);
        MenuInHost w;
        w.open();
        row.way(w);
        EXPECT_TRUE(w.until([&] { return !w.opened(); }));
        EXPECT_EQ(w.editor.log.take(), "");
    }
    MenuInHost w;
    w.open();
    w.editor.close(); // nothing must be touched afterwards
}

TEST(X11Menu, StaysOnTheScreenAndScrollsWhereThatIsTooSmall) {
    PEDL_NEEDS_DISPLAY();
    MenuInHost w;
    w.menu->setNbItemsPerColumn(-1);
    w.open();
    const auto place = owned(xcb_get_geometry_reply(
        w.host.xcb(), xcb_get_geometry(w.host.xcb(), w.topWindow()), nullptr));
    EXPECT_GE(place->y, 0);
    EXPECT_LE(place->y + place->height, 800);
    w.host.type(XKB_KEY_End);
    w.settle();
    EXPECT_GT(w.opened()->list()->firstVisibleRow(), 0);
    EXPECT_FALSE(w.opened()->list()->entryArea(kEntries - 1).isEmpty());
}

/// Makes a monitor of a part of the screen, as a desk with several has them: RandR's request 43.
void addMonitor(HostProgram& host, const char* name, int16_t x, uint16_t width) {
    static xcb_extension_t randr = {"RANDR", 0};
    struct {
        uint8_t majorOpcode, minorOpcode;
        uint16_t length;
        xcb_window_t window;
        xcb_atom_t name;
        uint8_t isPrimary, isAutomatic;
        uint16_t outputs;
        int16_t x, y;
        uint16_t width, height;
        uint32_t widthMm, heightMm;
    } request{0, 0, 0, 0, host.atom(name), 0, 0, 0, x, 0, width, 800, 100, 100};
    request.window = xcb_setup_roots_iterator(xcb_get_setup(host.xcb())).data->root;
    xcb_get_extension_data(host.xcb(), &randr);
    const xcb_protocol_request_t kind{1, &randr, 43, 1};
    iovec parts[3];
    parts[2] = {&request, sizeof(request)};
    xcb_send_request(host.xcb(), 0, parts + 2, &kind);
    host.sync();
}

TEST(X11Menu, StaysOnTheMonitorOfItsEditor) {
    const auto server = XServer::start();
    if (!server)
        GTEST_SKIP() << "Xvfb is not installed";
    server->use();
    {
        MenuInHost w;
        addMonitor(w.host, "left", 0, 800);
        addMonitor(w.host, "right", 800, 480);
        w.open();
        const auto place = owned(xcb_get_geometry_reply(
            w.host.xcb(), xcb_get_geometry(w.host.xcb(), w.topWindow()), nullptr));
        EXPECT_GE(place->x, 0);
        EXPECT_LE(place->x + place->width, 800);
    }
    sharedXServer();
}

} // namespace
} // namespace VSTGUI
