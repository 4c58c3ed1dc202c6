#include <gtest/gtest.h>

#include "tests/foundation/vstgui/ToolkitWindow.h"
#include "vstgui/lib/controls/ctextedit.h"
#include "vstgui/lib/platform/common/clipboard.h"
#include "vstgui/lib/platform/common/pixmansurface.h"

namespace VSTGUI {
namespace {

const CRect kField(20, 10, 120, 30);
constexpr int32_t kCtrl = MODIFIER_CONTROL;
constexpr int32_t kBig = MODIFIER_SHIFT;

class CountingField : public CTextEdit {
public:
    using CTextEdit::CTextEdit;
    void looseFocus() override {
        ++closings;
        CTextEdit::looseFocus();
    }
    int closings = 0;
    CLASS_METHODS(CountingField, CTextEdit)
};

/// A window with one text field.
class FieldWindow : public ToolkitWindow {
public:
    explicit FieldWindow(UTF8StringPtr text) : field(new CountingField(kField, this, 1, text)) {
        field->setHoriAlign(kLeftText);
        theFrame().addView(field);
        window().turn();
    }

    void open() {
        window().mouseDown(30, 20, kLButton);
        window().mouseUp(30, 20);
        window().turn();
        log.take();
    }
    bool isOpenForWriting() { return window().overlay() != nullptr; }
    void press(VstVirtualKey key, int32_t modifiers = 0) { window().keyDown(key, modifiers); }

    /// Ends the writing and says what the field holds.
    std::string written() {
        press(VKEY_RETURN);
        return field->getText();
    }

    CountingField* field;
};

TEST(TextEdit, APressOpensItWithEverythingSelectedAndReturnTellsTheChange) {
    FieldWindow w("old");
    w.open();
    ASSERT_TRUE(w.isOpenForWriting());
    EXPECT_TRUE(w.window().typeText("new"));
    EXPECT_STREQ(w.field->getText(), "old") << "not before it ends";
    EXPECT_EQ(w.written(), "new");
    EXPECT_FALSE(w.isOpenForWriting());
    EXPECT_TRUE(w.field->bWasReturnPressed);
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value, host ends 1, end");
    w.open();
    w.press(VKEY_RETURN);
    EXPECT_EQ(w.log.take(), "") << "no change";
}

TEST(TextEdit, EndsInFiveWays) {
    enum class End { Return, Escape, PressOutside, Deactivation, Removal };
    struct Row {
        const char* story;
        End end;
        std::string text, log;
    };
    const std::string told = "begin, host begins 1, value, host ends 1, end";
    const Row rows[] = {
        {"Return", End::Return, "new", told},
        {"Escape restores", End::Escape, "old", ""},
        {"a press elsewhere", End::PressOutside, "new", told + ", other down"},
        {"the window goes inactive", End::Deactivation, "new", told},
        {"it is taken away", End::Removal, "new", told},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.story);
        FieldWindow w("old");
        w.add("other", CRect(150, 50, 160, 60));
        w.open();
        w.window().typeText("new");
        w.log.take();
        switch (row.end) {
        case End::Return:
            w.press(VKEY_RETURN);
            break;
        case End::Escape:
            w.press(VKEY_ESCAPE);
            break;
        case End::PressOutside:
            w.window().mouseDown(155, 55);
            break;
        case End::Deactivation:
            w.window().activate(false);
            break;
        case End::Removal:
            w.theFrame().removeView(w.field, false);
            break;
        }
        EXPECT_EQ(w.field->getText(), row.text);
        EXPECT_FALSE(w.isOpenForWriting());
        EXPECT_EQ(w.log.take(), row.log);
        EXPECT_EQ(w.field->closings, 1);
        if (row.end == End::Removal)
            w.field->forget();
    }
}

TEST(TextEdit, WhatAFieldCannotShowIsNoChange) {
    FieldWindow w("caf\xC3"); // a letter that was cut in two
    for (const VstVirtualKey key : {VKEY_RETURN, VKEY_ESCAPE}) {
        w.open();
        w.press(key);
        EXPECT_STREQ(w.field->getText(), "caf\xC3");
        EXPECT_EQ(w.log.take(), "");
    }
    w.open();
    w.press(VKEY_END);
    w.window().typeText("e");
    EXPECT_EQ(w.written(), "cafe");
}

TEST(TextEdit, AClosingWindowDiscardsWhatIsBeingWritten) {
    FieldWindow w("old");
    w.open();
    w.window().typeText("new");
    w.log.take();
    w.close();
    EXPECT_EQ(w.log.take(), "");
}

TEST(TextEdit, AListenerMayTakeTheFieldOrTheWindowAway) {
    for (const bool closesWindow : {false, true}) {
        FieldWindow w("old");
        w.open();
        w.window().typeText("new");
        w.onValue = [&] {
            if (closesWindow)
                w.close();
            else
                w.theFrame().removeView(w.field);
        };
        OffscreenFrame& window = w.window();
        const CBaseObjectGuard held(&window);
        window.keyDown(VKEY_RETURN);
        EXPECT_EQ(window.overlay(), nullptr);
    }
}

/// Takes itself away as soon as its text changes.
class ShyField : public CTextEdit {
public:
    using CTextEdit::CTextEdit;
    void platformTextDidChange() override { getFrame()->removeView(this); }
    CLASS_METHODS(ShyField, CTextEdit)

protected:
    ~ShyField() override = default;
};

TEST(TextEdit, MayGoWhenItsTextChanges) {
    using Change = std::function<void(OffscreenFrame&)>;
    const std::pair<const char*, Change> rows[] = {
        {"a letter", [](OffscreenFrame& window) { window.typeText("a"); }},
        {"erased", [](OffscreenFrame& window) { window.keyDown(VKEY_BACK); }},
        {"cut out", [](OffscreenFrame& window) { window.typeText("x", kCtrl); }},
        {"pasted", [](OffscreenFrame& window) { window.typeText("v", kCtrl); }},
        {"middle button", [](OffscreenFrame& window) { window.mouseDown(30, 20, kMButton); }}};
    for (const auto& [story, change] : rows) {
        SCOPED_TRACE(story);
        FieldWindow w("");
        w.theFrame().removeView(w.field);
        auto* const field = new ShyField(kField, &w, 1, "text");
        w.theFrame().addView(field);
        w.open();
        for (const auto kind : {Clipboard::Kind::Copied, Clipboard::Kind::Selected})
            w.window().clipboard().setText(kind, "own");
        change(w.window());
        EXPECT_FALSE(w.isOpenForWriting());
    }
}

TEST(TextEdit, SettingTheValueWritesItOverTheText) {
    FieldWindow w("name");
    w.open();
    w.field->setValue(0.5F);
    EXPECT_STREQ(w.field->getText(), "0.50");
    EXPECT_EQ(w.written(), "0.50") << "in the open field too";
}

TEST(TextField, KeysWriteMoveAndErase) {
    using Keys = std::function<void(FieldWindow&)>;
    struct Row {
        const char* start;
        Keys keys;
        const char* result;
    };
    const auto key = [](VstVirtualKey virt, int32_t modifiers = 0) {
        return [=](FieldWindow& w) { w.press(virt, modifiers); };
    };
    const auto after = [](std::initializer_list<Keys> steps) {
        return [all = std::vector<Keys>(steps)](FieldWindow& w) {
            for (const Keys& step : all)
                step(w);
            w.window().typeText("|");
        };
    };
    const auto ctrl = [](const char* letter) {
        return [=](FieldWindow& w) { w.window().typeText(letter, kCtrl); };
    };
    const Row rows[] = {
        {"abc", after({}), "|"},
        {"abc", after({key(VKEY_HOME)}), "|abc"},
        {"abc", after({key(VKEY_END)}), "abc|"},
        {"abc", after({key(VKEY_LEFT)}), "|abc"},  // the selection's left end
        {"abc", after({key(VKEY_RIGHT)}), "abc|"}, // its right one
        {"abc", after({key(VKEY_END), key(VKEY_LEFT), key(VKEY_BACK)}), "a|c"},
        {"abc", after({key(VKEY_HOME), key(VKEY_DELETE)}), "|bc"},
        {"abc", after({key(VKEY_HOME), key(VKEY_BACK)}), "|abc"},
        {"abc", after({key(VKEY_HOME), key(VKEY_RIGHT, kBig), key(VKEY_RIGHT, kBig)}), "|c"},
        {"abc", after({key(VKEY_END), key(VKEY_HOME, kBig)}), "|"},
        {"one two-three", after({key(VKEY_HOME), key(VKEY_RIGHT, kCtrl)}), "one |two-three"},
        {"one two-three", after({key(VKEY_END), key(VKEY_LEFT, kCtrl)}), "one two-|three"},
        {"one two", after({key(VKEY_END), key(VKEY_BACK, kCtrl)}), "one |"},
        {"one two", after({key(VKEY_HOME), key(VKEY_DELETE, kCtrl)}), "|two"},
        {"Gr\u00fc\u00df \u266b", after({key(VKEY_END), key(VKEY_BACK), key(VKEY_BACK)}),
         "Gr\u00fc\u00df|"},
        {"abc", after({key(VKEY_HOME), ctrl("a"), key(VKEY_BACK)}), "|"},
        {"abc", after({ctrl("c"), key(VKEY_END), ctrl("v"), ctrl("v")}), "abcabcabc|"},
        {"abc", after({ctrl("x"), ctrl("v"), key(VKEY_HOME)}), "|abc"},
        {"abc", after({key(VKEY_HOME), ctrl("c"), ctrl("v")}), "|abc"}, // nothing was copied
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.result);
        FieldWindow w(row.start);
        w.open();
        row.keys(w);
        EXPECT_EQ(w.written(), row.result);
    }
}

TEST(TextField, KeysThatItDoesNotUseAreTheHosts) {
    FieldWindow w("abc");
    w.open();
    EXPECT_FALSE(w.window().keyDown(VKEY_F5));
    EXPECT_FALSE(w.window().typeText("s", kCtrl));
    EXPECT_TRUE(w.window().typeText(" "));
    EXPECT_TRUE(w.window().keyDown(VKEY_UP));
    EXPECT_EQ(w.written(), " ");
    EXPECT_FALSE(w.window().typeText("x")) << "closed";
}

TEST(TextField, KeysThatComeThroughTheHostWriteByTheirCode) {
    FieldWindow w("");
    w.open();
    const auto code = [](int character, int virt, int modifier = 0) {
        return VstKeyCode{character, static_cast<unsigned char>(virt),
                          static_cast<unsigned char>(modifier)};
    };
    for (VstKeyCode key : {code('a', 0), code('b', 0, MODIFIER_SHIFT), code(0xE9, 0),
                           code(0, VKEY_SPACE), code(0, VKEY_NUMPAD7), code(0, VKEY_SUBTRACT)})
        EXPECT_TRUE(w.window().filterKeyDown(key));
    VstKeyCode function = code(0, VKEY_F1);
    EXPECT_FALSE(w.window().filterKeyDown(function));
    EXPECT_EQ(w.written(), "aB\u00e9 7-");
}

TEST(TextField, Holds255Characters) {
    FieldWindow w("");
    w.open();
    for (int i = 0; i < 300; ++i)
        w.window().typeText("\u00fc");
    w.press(VKEY_BACK);
    w.window().clipboard().setText(Clipboard::Kind::Copied, "a\nb\tcd");
    w.window().typeText("v", kCtrl);
    std::string expected;
    for (int i = 0; i < 254; ++i)
        expected += "\u00fc";
    EXPECT_EQ(w.written(), expected + "a");
    w.open();
    w.window().typeText("v", kCtrl);
    EXPECT_EQ(w.written(), "a b cd") << "one line";
}

TEST(TextField, TheMouseSelects) {
    FieldWindow w("wide words here");
    w.open();
    OffscreenFrame& window = w.window();
    window.mouseDown(24, 20, kLButton | kDoubleClick);
    window.mouseUp(24, 20);
    window.typeText("X");
    window.mouseDown(119, 20, kLButton); // behind the end
    window.mouseUp(119, 20);
    window.typeText("!");
    window.mouseDown(119, 20, kLButton);
    window.mouseMove(5, 90, kLButton); // the mouse is the field's wherever it goes
    window.mouseUp(5, 90);
    window.typeText("c", kCtrl);
    std::string copied;
    window.clipboard().requestText(Clipboard::Kind::Copied,
                                   [&](const std::string& text) { copied = text; });
    EXPECT_EQ(copied, "X words here!");
}

TEST(TextField, MiddleButtonWritesWhatWasSelected) {
    FieldWindow w("one two");
    w.open();
    w.window().mouseDown(22, 20, kLButton | kDoubleClick);
    w.window().mouseUp(22, 20);
    w.window().mouseDown(119, 20, kMButton);
    w.window().mouseUp(119, 20);
    EXPECT_EQ(w.written(), "one twoone");
}

/// A clipboard whose text comes when the test says so.
class SlowClipboard : public OwnClipboard {
public:
    void requestText(Kind /*kind*/, Receiver receiver) override { waiting = std::move(receiver); }
    Receiver waiting;
};

class SlowWindow : public OffscreenFrame {
public:
    using OffscreenFrame::OffscreenFrame;
    Clipboard& clipboard() override { return slow(); }
    static SlowClipboard& slow() {
        static SlowClipboard clipboard;
        return clipboard;
    }
    static IPlatformFrame* create(IPlatformFrameCallback* callback, const CRect& size, void*) {
        return new SlowWindow(callback, size);
    }
};

TEST(TextField, APasteMayArriveLaterEvenTooLate) {
    FieldWindow unused("");
    setPlatformFrameFactory(SlowWindow::create);
    auto* frame = new CFrame(CRect(0, 0, 200, 100), &unused, nullptr);
    auto* field = new CTextEdit(kField, &unused, 1, "");
    frame->addView(field);
    OffscreenFrame& window = OffscreenFrame::of(*frame);
    window.mouseDown(30, 20, kLButton);
    window.mouseUp(30, 20);
    window.typeText("v", kCtrl);
    window.typeText("b");
    SlowWindow::slow().waiting("a");
    window.typeText("v", kCtrl);
    window.keyDown(VKEY_RETURN);
    SlowWindow::slow().waiting("too late");
    EXPECT_STREQ(field->getText(), "ba");
    frame->close();
}

/// A window with fields of another kind: what is set from outside changes nothing in them.
class OtherFieldsWindow : public OffscreenFrame {
    class Field : public IPlatformTextEdit {
    public:
        explicit Field(IPlatformTextEditCallback* callback) : IPlatformTextEdit(callback) {}
        UTF8StringPtr getText() override { return "typed"; }
        bool setText(UTF8StringPtr) override { return false; }
        bool updateSize() override { return true; }
    };

public:
    using OffscreenFrame::OffscreenFrame;
    IPlatformTextEdit* createPlatformTextEdit(IPlatformTextEditCallback* callback) override {
        return new Field(callback);
    }
    static IPlatformFrame* create(IPlatformFrameCallback* callback, const CRect& size, void*) {
        return new OtherFieldsWindow(callback, size);
    }
};

TEST(TextEdit, TakesWhatAFieldOfAnotherKindSays) {
    FieldWindow unused("");
    setPlatformFrameFactory(OtherFieldsWindow::create);
    auto* frame = new CFrame(CRect(0, 0, 200, 100), &unused, nullptr);
    auto* field = new CTextEdit(kField, &unused, 1, "old");
    frame->addView(field);
    OffscreenFrame::of(*frame).mouseDown(30, 20, kLButton);
    OffscreenFrame::of(*frame).mouseDown(150, 80, kLButton);
    EXPECT_STREQ(field->getText(), "typed");
    frame->close();
}

TEST(TextField, OnlyTheCaretIsRedrawnWhenItBlinks) {
    FieldWindow w("abc");
    w.open();
    w.clock.advance(510);
    w.window().turn();
    ASSERT_EQ(w.window().lastPainted().size(), 1U);
    const CRect blinked = w.window().lastPainted()[0];
    EXPECT_LE(blinked.width(), 2);
    EXPECT_TRUE(kField.pointInside(blinked.getTopLeft()));
    w.window().turn();
    EXPECT_TRUE(w.window().lastPainted().empty());
}

TEST(TextField, ScrollsSoThatTheCaretStaysInTheField) {
    FieldWindow w("");
    w.field->setFontColor(CColor(255, 0, 0, 255));
    w.open();
    w.window().turn();
    const auto redColumns = [&] {
        w.window().turn();
        int first = -1, last = -1;
        for (int x = 0; x < 200; ++x)
            for (int y = 0; y < 100; ++y)
                if ((w.window().surface()->pixelAt(x, y) & 0x00FF0000U) > 0x00800000U) {
                    first = first < 0 ? x : first;
                    last = x;
                }
        return std::pair(first, last);
    };
    w.window().typeText("WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW");
    EXPECT_GE(redColumns().second, 118) << "the caret at the right edge";
    EXPECT_GE(redColumns().first, 20) << "nothing beside the field";
    w.press(VKEY_HOME);
    EXPECT_EQ(redColumns().first, 20) << "the caret at the left edge";
    w.press(VKEY_END);
    w.window().mouseDown(119, 20, kLButton);
    w.window().mouseUp(119, 20);
    w.window().typeText("|");
    const std::string text = w.written();
    EXPECT_EQ(text.find('|'), text.size() - 1) << "the place under the mouse is the scrolled one";
}

} // namespace
} // namespace VSTGUI
