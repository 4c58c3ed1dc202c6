#include <gtest/gtest.h>

#include "tests/foundation/vstgui/ToolkitWindow.h"
#include "vstgui/lib/controls/coptionmenu.h"
#include "vstgui/lib/controls/ctextedit.h"
#include "vstgui/lib/platform/common/clipboard.h"
#include "vstgui/lib/platform/common/pixmansurface.h"

namespace VSTGUI {
namespace {

const CRect kField(20, 10, 120, 30);
constexpr int32_t kCtrl = MODIFIER_CONTROL;
constexpr int32_t kBig = MODIFIER_SHIFT;

/// Can take itself away as soon as its text changes.
class TestField : public CTextEdit {
public:
    using CTextEdit::CTextEdit;
    void platformTextDidChange() override {
        if (isShy)
            getFrame()->removeView(this);
    }
    bool isShy = false;
    CLASS_METHODS(TestField, CTextEdit)

protected:
    ~TestField() override = default;
};

/// A window with one text field.
class FieldWindow : public ToolkitWindow {
public:
    explicit FieldWindow(UTF8StringPtr text) : field(new TestField(kField, this, 1, text)) {
        field->setHoriAlign(kLeftText);
        theFrame().addView(field);
        window().turn();
    }
    void open() {
        click(30, 20);
        window().turn();
        log.take();
    }
    bool isOpenForWriting() { return window().overlay() != nullptr; }
    void type(UTF8StringPtr text, int32_t modifiers = 0) { window().typeText(text, modifiers); }
    /// Ends the writing and says what the field holds.
    std::string written() {
        press(VKEY_RETURN);
        return field->getText();
    }

    TestField* field;
};

using Step = std::function<void(FieldWindow&)>;

TEST(TextEdit, EndsInManyWays) {
    struct Row {
        const char* story;
        Step end;
        std::string text, log;
    };
    const Row rows[] = {
        {"Return", [](auto& w) { w.press(VKEY_RETURN); }, "new", kOneEdit},
        {"Escape restores", [](auto& w) { w.press(VKEY_ESCAPE); }, "old", ""},
        {"a press elsewhere", [](auto& w) { w.window().mouseDown(155, 55); }, "new",
         std::string(kOneEdit) + ", other down"},
        {"inactive", [](auto& w) { w.window().activate(false); }, "new", kOneEdit},
        {"taken away", [](auto& w) { w.theFrame().removeView(w.field); }, "new", kOneEdit},
        {"the window closes", [](auto& w) { w.close(); }, "old", "other gone"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.story);
        FieldWindow w("old");
        w.add("other", CRect(150, 50, 160, 60));
        w.field->remember();
        w.open();
        w.type("new");
        EXPECT_STREQ(w.field->getText(), "old") << "not before it ends";
        w.log.take();
        row.end(w);
        EXPECT_EQ(w.field->getText(), row.text);
        EXPECT_EQ(w.log.take(), row.log);
        EXPECT_FALSE(w.isOpen() && w.isOpenForWriting());
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
    w.type("e");
    EXPECT_EQ(w.written(), "cafe");
    w.open();
    w.field->setValue(0.5F);
    EXPECT_EQ(w.written(), "0.50") << "in the open field too";
}

TEST(TextEdit, MayGoWhenItsTextChangesOrIsTold) {
    const std::pair<const char*, Step> rows[] = {
        {"a letter", [](auto& w) { w.type("a"); }},
        {"erased", [](auto& w) { w.press(VKEY_BACK); }},
        {"cut out", [](auto& w) { w.type("x", kCtrl); }},
        {"pasted", [](auto& w) { w.type("v", kCtrl); }},
        {"middle button", [](auto& w) { w.window().mouseDown(30, 20, kMButton); }},
    };
    for (const auto& [story, change] : rows) {
        SCOPED_TRACE(story);
        FieldWindow w("text");
        w.field->isShy = true;
        w.open();
        for (const auto kind : {Clipboard::Kind::Copied, Clipboard::Kind::Selected})
            w.window().clipboard().setText(kind, "own");
        change(w);
        EXPECT_FALSE(w.isOpenForWriting());
    }
    for (const bool closesWindow : {false, true}) {
        FieldWindow w("text");
        w.open();
        w.type("a");
        w.onValue = [&] { closesWindow ? w.close() : (void)w.theFrame().removeView(w.field); };
        w.press(VKEY_RETURN);
        EXPECT_FALSE(w.isOpen() && w.isOpenForWriting());
    }
}

TEST(TextField, KeysWriteMoveAndErase) {
    struct Key {
        VstVirtualKey virt;
        int32_t modifiers = 0;
        const char* letter = nullptr; // with Ctrl
    };
    const Key home{VKEY_HOME}, end{VKEY_END}, back{VKEY_BACK};
    const Key all{{}, 0, "a"}, copy{{}, 0, "c"}, cut{{}, 0, "x"}, paste{{}, 0, "v"};
    struct Row {
        const char* start;
        std::vector<Key> keys;
        const char* result; // after a "|" was typed
    };
    const Row rows[] = {
        {"abc", {}, "|"},
        {"abc", {home}, "|abc"},
        {"abc", {end}, "abc|"},
        {"abc", {{VKEY_LEFT}}, "|abc"},  // the selection's left end
        {"abc", {{VKEY_RIGHT}}, "abc|"}, // its right one
        {"abc", {end, {VKEY_LEFT}, back}, "a|c"},
        {"abc", {home, {VKEY_DELETE}}, "|bc"},
        {"abc", {home, back}, "|abc"},
        {"abc", {home, {VKEY_RIGHT, kBig}, {VKEY_RIGHT, kBig}}, "|c"},
        {"abc", {end, {VKEY_HOME, kBig}}, "|"},
        {"one two-three", {home, {VKEY_RIGHT, kCtrl}}, "one |two-three"},
        {"one two-three", {end, {VKEY_LEFT, kCtrl}}, "one two-|three"},
        {"one two", {end, {VKEY_BACK, kCtrl}}, "one |"},
        {"one two", {home, {VKEY_DELETE, kCtrl}}, "|two"},
        {"Gr\u00fc\u00df \u266b", {end, back, back}, "Gr\u00fc\u00df|"},
        {"abc", {home, all, back}, "|"},
        {"abc", {copy, end, paste, paste}, "abcabcabc|"},
        {"abc", {cut, paste, home}, "|abc"},
        {"abc", {home, copy, paste}, "|abc"}, // nothing was copied
    };
    for (const Row& row : rows) {
        FieldWindow w(row.start);
        w.open();
        for (const Key& key : row.keys)
            if (key.letter)
                w.type(key.letter, kCtrl);
            else
                w.press(key.virt, key.modifiers);
        w.type("|");
        EXPECT_EQ(w.written(), row.result);
    }
}

TEST(TextField, KeysThatItDoesNotUseAreTheHosts) {
    FieldWindow w("abc");
    w.open();
    auto* const menu = new COptionMenu(kField, &w, 2);
    menu->addEntry("one");
    w.theFrame().addView(menu);
    EXPECT_FALSE(menu->popup()) << "the field has the frame's keys";
    EXPECT_FALSE(w.window().keyDown(VKEY_F5));
    EXPECT_FALSE(w.window().typeText("s", kCtrl));
    EXPECT_TRUE(w.window().keyDown(VKEY_UP));
    // By their code alone, as they come by way of the host
    for (VstKeyCode key : {VstKeyCode{'a', 0, 0},
                           {'b', 0, MODIFIER_SHIFT},
                           {0xE9, 0, 0},
                           {0, VKEY_SPACE, 0},
                           {0, VKEY_NUMPAD7, 0},
                           {0, VKEY_SUBTRACT, 0}})
        EXPECT_TRUE(w.window().filterKeyDown(key));
    VstKeyCode function{0, VKEY_F1, 0};
    EXPECT_FALSE(w.window().filterKeyDown(function));
    EXPECT_EQ(w.written(), "aB\u00e9 7-");
    EXPECT_FALSE(w.window().typeText("x")) << "closed";
}

TEST(TextField, Holds255CharactersInOneLine) {
    FieldWindow w("");
    w.open();
    std::string many;
    for (int i = 0; i < 300; ++i)
        many += "\u00fc";
    for (const std::string& text : {many, std::string("a\nb\tcd")}) {
        w.window().clipboard().setText(Clipboard::Kind::Copied, text);
        w.type("v", kCtrl);
        w.press(VKEY_BACK);
        w.type("v", kCtrl);
    }
    EXPECT_EQ(w.written(), many.substr(0, 2 * 254) + "a");
    w.open();
    w.type("v", kCtrl);
    EXPECT_EQ(w.written(), "a b cd");
}

TEST(TextField, TheMouseSelectsAndWritesWhatWasSelected) {
    FieldWindow w("WW words");
    w.open();
    w.click(24, 20); // left of a letter's middle, then right of it
    w.type("1");
    w.click(37, 20);
    w.type("2");
    w.click(60, 20, kLButton | kDoubleClick);
    w.type("X");
    w.click(119, 20); // behind the end
    w.type("!");
    w.window().mouseDown(119, 20, kLButton);
    w.window().mouseMove(5, 90, kLButton); // the mouse is the field's wherever it goes
    w.window().mouseUp(5, 90);
    w.window().clipboard().setText(Clipboard::Kind::Copied, "other");
    w.click(119, 20, kMButton);
    EXPECT_EQ(w.written(), "1W2W X!1W2W X!");
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
    const auto redColumns = [&] {
        w.window().turn();
        std::pair<int, int> columns{200, -1};
        for (int x = 0; x < 200; ++x)
            for (int y = 0; y < 100; ++y)
                if ((w.window().surface()->pixelAt(x, y) & 0x00FF0000U) > 0x00800000U)
                    columns = {std::min(columns.first, x), x};
        return columns;
    };
    w.type("WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW");
    EXPECT_GE(redColumns().second, 118) << "the caret at the right edge";
    EXPECT_GE(redColumns().first, 20) << "nothing beside the field";
    w.press(VKEY_HOME);
    EXPECT_EQ(redColumns().first, 20) << "the caret at the left edge";
    w.press(VKEY_END);
    w.click(119, 20);
    w.type("|");
    const std::string text = w.written();
    EXPECT_EQ(text.find('|'), text.size() - 1) << "the place under the mouse is the scrolled one";
}

} // namespace
} // namespace VSTGUI
