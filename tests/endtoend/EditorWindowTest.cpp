// The built library's editor in a host's window, under a real mouse and a real keyboard.

#include "tests/foundation/vstgui/x11/HostProgram.h"
#include "tests/foundation/vstgui/x11/XServer.h"
#include "tests/support/PluginLibrary.h"
#include "tests/support/StereoBuffer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <optional>
#include <thread>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace pedl::test {

namespace {

using Place = std::pair<int, int>;

constexpr int kWidth = 521;
constexpr int kHeight = 544;
constexpr VstInt32 kGain = 1;
constexpr Place kGainKnob{62, 360};
constexpr Place kFace{20, 225};
constexpr Place kName{240, 536};
constexpr Place kMenuArrow{316, 535};
constexpr Place kBesideTheWindow{-60, -60};
constexpr VstInt32 kReturnKey = 4; // as hosts number the keys

/// A host with instances beside each other in one window, and a hand that moves by jumps. It lets
/// the editors idle in `settle` alone.
class EditorWindow : public testing::Test {
protected:
    void SetUp() override {
        if (!VSTGUI::sharedXServer())
            GTEST_SKIP() << "Xvfb is not installed";
        program.emplace(2 * kWidth, kHeight);
        show(0);
    }
    ~EditorWindow() override { settle(); }

    void show(std::size_t index) {
        panes[index] = xcb_generate_id(program->xcb());
        xcb_create_window(program->xcb(), XCB_COPY_FROM_PARENT, panes[index], program->windowId(),
                          static_cast<std::int16_t>(index * kWidth), 0, kWidth, kHeight, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(program->xcb(), panes[index]);
        program->sync();
        effects[index].emplace(library, 48000.0F, 64);
        ASSERT_TRUE(open(index));
    }
    bool open(std::size_t index) {
        const bool isOpen = dispatch(effect(index), effEditOpen, 0, 0,
                                     reinterpret_cast<void*>(std::uintptr_t{panes[index]})) == 1;
        settle();
        return isOpen;
    }
    void settle() {
        for (int turn = 0; turn < 6; ++turn) {
            if (program)
                program->serve();
            for (auto& shown : effects)
                if (shown)
                    dispatch(shown->get(), effEditIdle);
            std::this_thread::sleep_for(std::chrono::milliseconds(3)); // for the server
        }
    }
    bool until(const std::function<bool()>& condition) {
        for (int turn = 0; turn < 100 && !condition(); ++turn)
            settle();
        return condition();
    }

    AEffect* effect(std::size_t index = 0) { return effects[index]->get(); }
    float gain() { return effect()->getParameter(effect(), kGain); }
    std::string name(std::size_t index = 0) {
        std::array<char, kVstMaxProgNameLen + 1> text{};
        dispatch(effect(index), effGetProgramName, 0, 0, text.data());
        return text.data();
    }
    bool usesKey(VstInt32 character, VstInt32 virtualKey) {
        return dispatch(effect(), effEditKeyDown, character, virtualKey) == 1;
    }
    void click(Place where, std::size_t index = 0) {
        program->click(where.first + static_cast<int>(index) * kWidth, where.second);
    }
    void dragTo(Place from, Place to) {
        program->moveTo(from.first, from.second);
        settle();
        program->button(1, true);
        settle();
        program->moveTo(to.first, to.second);
    }
    /// Windows that lie over all others.
    std::size_t popups() const {
        xcb_connection_t* const xcb = program->xcb();
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data->root;
        return childrenOf(root) - 1; // the host's own
    }
    std::size_t childrenOf(xcb_window_t window) const {
        const auto tree = VSTGUI::owned(
            xcb_query_tree_reply(program->xcb(), xcb_query_tree(program->xcb(), window), nullptr));
        return tree ? tree->children_len : 0;
    }

    RecordingHost host;
    const PluginLibrary library{PEDL_PLUGIN_PATH};
    std::optional<VSTGUI::HostProgram> program;
    std::array<xcb_window_t, 2> panes{};
    std::array<std::optional<RunningEffect>, 2> effects;
};

} // namespace

TEST_F(EditorWindow, ADragIsOneEditHoweverItEnds) {
    const std::vector<std::pair<const char*, std::function<void()>>> ends{
        {"let go far outside", [&] { program->moveTo(kGainKnob.first, -70); }},
        {"not seen until much later", [&] { program->button(1, false), click(kFace); }},
        {"the editor is closed", [&] { dispatch(effect(), effEditClose); }},
        {"the host's window goes",
         [&] { xcb_destroy_window(program->xcb(), panes[0]), program->sync(), settle(); }},
        {"the instance ends", [&] { effects[0].reset(); }},
    };
    for (const auto& [story, end] : ends) {
        SCOPED_TRACE(story);
        show(0);
        const float before = gain();
        dragTo(kGainKnob, {kGainKnob.first, kGainKnob.second + 50});
        settle();
        EXPECT_NEAR(gain(), before - 50.0F / 250.0F, 0.001F);
        EXPECT_EQ(host.calls(audioMasterBeginEdit), host.calls(audioMasterEndEdit) + 1);
        end();
        program->button(1, false);
        settle();
        EXPECT_EQ(host.calls(audioMasterBeginEdit), host.calls(audioMasterEndEdit));
    }
}

TEST_F(EditorWindow, TheNameFieldHasTheKeyboardAndTheHostAllOtherKeys) {
    const std::string space = "press space, release space";
    EXPECT_FALSE(usesKey('a', 0));
    click(kFace);
    settle();
    program->type(" ");
    settle();
    EXPECT_EQ(program->takeKeys(), space);
    click(kName);
    settle();
    program->type("one two");
    settle();
    EXPECT_TRUE(usesKey('3', 0)) << "some hosts keep the keyboard and tell of the keys";
    EXPECT_TRUE(usesKey(0, kReturnKey));
    EXPECT_EQ(name(), "one two3");
    EXPECT_EQ(program->takeKeys(), "");
    program->type(" ");
    settle();
    EXPECT_EQ(program->takeKeys(), space);
}

TEST_F(EditorWindow, EachOfTwoHasItsOwnKeyboard) {
    show(1);
    const std::string untouched = name();
    click(kName, 1);
    settle();
    program->type("right");
    settle();
    click(kName, 0); // the field loses the keyboard, which keeps its text
    EXPECT_TRUE(until([&] { return name(1) == "right"; }));
    program->type("left");
    program->type(XKB_KEY_Return);
    EXPECT_TRUE(until([&] { return name(0) == "left"; }));
    EXPECT_EQ(name(1), "right");
    dispatch(effect(0), effEditClose);
    click(kName, 1);
    settle();
    program->type(XKB_KEY_Escape);
    settle();
    EXPECT_EQ(name(1), "right");
}

TEST_F(EditorWindow, TheMenuGoesWithAClickBesideItOrAChoiceOrTheInstance) {
    const std::size_t others = popups();
    const auto openMenu = [&] {
        click(kMenuArrow);
        return until([&] { return popups() > others; });
    };
    const std::string before = name();
    ASSERT_TRUE(openMenu());
    click(kBesideTheWindow);
    EXPECT_TRUE(until([&] { return popups() == others; })) << "the click was over before the idle";
    EXPECT_EQ(name(), before);

    dragTo(kMenuArrow, {kMenuArrow.first + 300, kMenuArrow.second + 50});
    settle();
    program->button(1, false);
    EXPECT_TRUE(until([&] { return popups() == others && name() != before; }));

    ASSERT_TRUE(openMenu());
    effects[0].reset(); // without closing the editor
    program->sync();
    EXPECT_EQ(popups(), others);
    EXPECT_EQ(childrenOf(panes[0]), 0U);
}

TEST_F(EditorWindow, SoundGoesOnWhenTheServerIsGone) {
    const auto server = VSTGUI::XServer::start();
    server->use();
    effects[0].reset();
    program.emplace(2 * kWidth, kHeight);
    show(0);
    dragTo(kGainKnob, {kGainKnob.first, kGainKnob.second + 50});
    settle();
    server->kill();
    program.reset();
    settle();
    EXPECT_EQ(host.calls(audioMasterBeginEdit), host.calls(audioMasterEndEdit));
    auto sound = noise<float>(64, 1);
    const auto dry = sound;
    effect()->processReplacing(effect(), sound.from(0).data(), sound.from(0).data(), 64);
    EXPECT_TRUE(sound.isFinite() && !(sound == dry));
    settle();
    dispatch(effect(), effEditClose);
    EXPECT_FALSE(open(0));
    VSTGUI::sharedXServer()->use();
}

} // namespace pedl::test
