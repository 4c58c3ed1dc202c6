#include "tests/foundation/vstgui/x11/EditorInHost.h"

#include "vstgui/lib/platform/linux/x11toplevel.h"

namespace VSTGUI {
namespace {

TEST(X11TopLevel, IsTheWindowThatTheWindowManagerKnows) {
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

} // namespace
} // namespace VSTGUI
