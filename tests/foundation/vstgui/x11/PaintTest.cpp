#include "tests/foundation/vstgui/x11/EditorInHost.h"

#include "vstgui/lib/cdrawcontext.h"
#include <sched.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <sys/wait.h>
#include <unistd.h>

namespace VSTGUI {
namespace {

/// One colour, and a count of its drawings.
class Patch : public CView {
public:
    Patch(CFrame& frame, const CRect& r, CColor c) : CView(r), color(c) { frame.addView(this); }
    void draw(CDrawContext* context) override {
        ++drawings;
        context->setFillColor(color);
        context->drawRect(CRect(-999, -999, 999, 999), kDrawFilled); // its place is all it gets
        setDirty(false);
    }
    CColor color;
    int drawings = 0;
    CLASS_METHODS_NOCOPY(Patch, CView)

protected:
    ~Patch() override = default;
};

/// Runs the same on each kind of server and of the host's window.
struct Kind {
    const char* story;
    std::vector<std::string> options;
    uint8_t depth;
};

class X11Paint : public testing::TestWithParam<Kind> {};

TEST_P(X11Paint, OnlyWhatChangedIsDrawnAndWhatWasCoveredComesBack) {
    const auto server = XServer::start(GetParam().options);
    if (!server)
        GTEST_SKIP() << "Xvfb is not installed";
    server->use();
    {
        EditorInHost w(GetParam().depth);
        CFrame& frame = w.editor.theFrame();
        auto* const red = new Patch(frame, CRect(0, 0, 100, 300), CColor(200, 10, 20, 255));
        auto* const blue = new Patch(frame, CRect(300, 100, 400, 300), CColor(10, 20, 200, 255));
        w.settle();
        EXPECT_EQ(w.host.pixelAt(50, 50), 0xC80A14U);
        EXPECT_EQ(w.host.pixelAt(399, 299), 0x0A14C8U);
        EXPECT_EQ(w.host.pixelAt(200, 50), 0x000000U);
        blue->color = CColor(1, 2, 3, 255);
        blue->setDirty();
        w.settle();
        EXPECT_EQ(w.host.pixelAt(350, 200), 0x010203U);

        const xcb_window_t cover = w.host.cover(20, 20, 50, 50);
        EXPECT_EQ(w.host.pixelAt(50, 50), 0x00FF00U);
        w.host.uncover(cover);
        w.settle();
        EXPECT_EQ(w.host.pixelAt(50, 50), 0xC80A14U);
        EXPECT_EQ(red->drawings, 1) << "copied, not drawn anew, and not with the other";
        xcb_connection_t* const xcb = w.editor.window().connection().xcb();
        const uint64_t sentBytes = xcb_total_written(xcb);
        w.editor.idle();
        EXPECT_EQ(xcb_total_written(xcb), sentBytes) << "nothing to do, nothing to send";

        frame.setScaleFactor(1.5);
        w.settle();
        EXPECT_EQ(w.host.pixelAt(140, 60), 0xC80A14U);
        EXPECT_EQ(w.host.pixelAt(160, 60), 0x000000U);
    }
    sharedXServer();
}

INSTANTIATE_TEST_SUITE_P(, X11Paint,
                         testing::Values(Kind{"Shared", {}, 24}, Kind{"SharedAlpha", {}, 32},
                                         Kind{"Pieces", {"-extension", "MIT-SHM"}, 24}),
                         [](const auto& kind) { return kind.param.story; });

TEST(X11Screen, OfAnotherDepthIsDrawnOnToo) {
    for (const uint8_t depth : {uint8_t{30}, uint8_t{16}}) {
        SCOPED_TRACE(int{depth});
        const auto server =
            XServer::start({"-screen", "0", "640x480x" + std::to_string(int{depth})});
        if (!server)
            GTEST_SKIP() << "Xvfb is not installed";
        server->use();
        EditorInHost w(depth);
        new Patch(w.editor.theFrame(), CRect(0, 0, 300, 300), CColor(255, 255, 255, 255));
        w.settle();
        const uint32_t white = w.host.pixelAt(50, 50);
        EXPECT_NE(white, 0U);
        EXPECT_EQ(white, w.host.pixelAt(60, 60));
        EXPECT_NE(white, w.host.pixelAt(350, 50)) << "nothing is drawn there";
    }
    sharedXServer();
}

constexpr int kRightPicture = 0, kWrongPicture = 1, kNotAllowed = 2;

/// Draws for a server outside the editor's container, where the number of the editor's segment is
/// that of another program's.
int pictureForServerOutside() {
    if (unshare(CLONE_NEWIPC) != 0)
        return kNotAllowed;
    const auto server = XServer::start();
    const int others = shmget(IPC_PRIVATE, std::size_t{1} << 20, IPC_CREAT | 0600);
    if (!server || others < 0 || unshare(CLONE_NEWIPC) != 0)
        return kNotAllowed;
    server->use();
    EditorInHost w;
    new Patch(w.editor.theFrame(), CRect(0, 0, 100, 100), CColor(1, 2, 3, 255));
    w.settle();
    return w.host.pixelAt(50, 50) == 0x010203U ? kRightPicture : kWrongPicture;
}

TEST(X11PaintInContainer, ShowsItsOwnPicture) {
    const pid_t child = fork();
    if (child == 0)
        _exit(pictureForServerOutside());
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == kNotAllowed)
        GTEST_SKIP() << "needs Xvfb and the right to leave a namespace";
    EXPECT_EQ(WEXITSTATUS(status), kRightPicture);
}

} // namespace
} // namespace VSTGUI
