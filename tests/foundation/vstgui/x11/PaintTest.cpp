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
    Patch(const CRect& r, CColor c) : CView(r), color(c) {}
    void draw(CDrawContext* context) override {
        ++drawings;
        context->setFillColor(color);
        context->drawRect(getViewSize(), kDrawFilled);
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
        auto* const red = new Patch(CRect(0, 0, 100, 300), CColor(200, 10, 20, 255));
        auto* const blue = new Patch(CRect(300, 100, 400, 300), CColor(10, 20, 200, 255));
        w.editor.theFrame().addView(red);
        w.editor.theFrame().addView(blue);
        w.settle();
        EXPECT_EQ(w.host.pixelAt(50, 50), 0xC80A14U);
        EXPECT_EQ(w.host.pixelAt(399, 299), 0x0A14C8U);
        EXPECT_EQ(w.host.pixelAt(200, 50), 0x000000U);

        const int before = red->drawings;
        blue->color = CColor(1, 2, 3, 255);
        blue->setDirty();
        w.settle();
        EXPECT_EQ(w.host.pixelAt(350, 200), 0x010203U);
        EXPECT_EQ(red->drawings, before) << "the other was not drawn";

        const xcb_window_t cover = w.host.cover(20, 20, 50, 50);
        EXPECT_EQ(w.host.pixelAt(50, 50), 0x00FF00U);
        w.host.uncover(cover);
        w.settle();
        EXPECT_EQ(w.host.pixelAt(50, 50), 0xC80A14U);
        EXPECT_EQ(red->drawings, before) << "copied, not drawn anew";

        w.editor.theFrame().setScaleFactor(1.5);
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
        const HostProgram host(TestEditor::kWidth, TestEditor::kHeight, depth);
        TestEditor editor;
        ASSERT_TRUE(editor.open(host.window()));
        editor.theFrame().addView(new Patch(CRect(0, 0, 300, 300), CColor(255, 255, 255, 255)));
        editor.idle();
        owned(xcb_get_input_focus_reply(editor.window().connection().xcb(),
                                        xcb_get_input_focus(editor.window().connection().xcb()),
                                        nullptr));
        const uint32_t white = host.pixelAt(50, 50);
        EXPECT_NE(white, 0U);
        EXPECT_EQ(white, host.pixelAt(60, 60));
        EXPECT_NE(white, host.pixelAt(350, 50)) << "nothing is drawn there";
    }
    sharedXServer();
}

/// Makes the window larger from within its drawing.
class GrowingPatch : public Patch {
public:
    using Patch::Patch;
    void draw(CDrawContext* context) override {
        if (drawings == 0)
            getFrame()->setSize(TestEditor::kWidth, TestEditor::kHeight + 10);
        Patch::draw(context);
    }
};

TEST(X11Resize, AViewMayResizeTheWindowWhileItDraws) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    w.editor.theFrame().addView(new GrowingPatch(CRect(0, 0, 100, 100), CColor(1, 2, 3, 255)));
    w.settle();
    w.settle();
    EXPECT_EQ(w.host.pixelAt(50, 50), 0x010203U);
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
    w.editor.theFrame().addView(new Patch(CRect(0, 0, 100, 100), CColor(1, 2, 3, 255)));
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

TEST(X11Idle, AnEmptyTurnDrawsAndSendsNothing) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    auto* const patch = new Patch(CRect(0, 0, 100, 100), CColor(1, 2, 3, 255));
    w.editor.theFrame().addView(patch);
    w.settle();
    xcb_connection_t* const xcb = w.editor.window().connection().xcb();
    const uint64_t sentBytes = xcb_total_written(xcb);
    const int drawings = patch->drawings;
    constexpr int kTurns = 20000;
    const auto start = std::chrono::steady_clock::now();
    for (int turn = 0; turn < kTurns; ++turn)
        w.editor.idle();
    const std::chrono::duration<double, std::micro> took = std::chrono::steady_clock::now() - start;
    std::printf("an idle turn takes %.2f microseconds\n", took.count() / kTurns);
    EXPECT_EQ(xcb_total_written(xcb), sentBytes);
    EXPECT_EQ(patch->drawings, drawings);
}

} // namespace
} // namespace VSTGUI
