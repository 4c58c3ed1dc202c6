#include "tests/foundation/vstgui/x11/EditorInHost.h"

#include <array>
#include <cstring>

#include <xkbcommon/xkbcommon.h>

#include "vstgui/lib/controls/ctextedit.h"

namespace VSTGUI {
namespace {

using Habit = HostProgram::Habit;

/// A field that tells what is in it while it is being written.
class OpenField : public CTextEdit {
public:
    using CTextEdit::CTextEdit;
    std::string written() const { return platformControl ? platformControl->getText() : ""; }
    CLASS_METHODS(OpenField, CTextEdit)

protected:
    ~OpenField() override = default;
};

/// An editor with an open text field, everything in it selected.
class FieldInHost : public EditorInHost {
public:
    explicit FieldInHost(UTF8StringPtr text)
        : field(new OpenField(CRect(10, 10, 300, 30), &editor, 1, text)) {
        field->setHoriAlign(kLeftText);
        editor.theFrame().addView(field);
        settle();
        host.click(250, 20);
        settle();
    }
    void shortcut(xcb_keysym_t letter) {
        host.withHeld(XKB_KEY_Control_L, letter);
        settle();
    }
    bool reads(const std::string& text) {
        return until([&] { return field->written() == text; });
    }
    std::string ask(const char* selection, const char* target) {
        return host.ask(selection, target,
                        [this](const std::function<bool()>& answered) { until(answered); });
    }
    OpenField* field;
};

TEST(X11Clipboard, GivesWhatWasCopiedAndWhatWasSelectedToOthers) {
    PEDL_NEEDS_DISPLAY();
    FieldInHost w("Gr\u00FCn \u03B1");
    EXPECT_EQ(w.ask("CLIPBOARD", "UTF8_STRING"), "(none)");
    w.shortcut(XKB_KEY_c);
    EXPECT_EQ(w.ask("CLIPBOARD", "UTF8_STRING"), "Gr\u00FCn \u03B1");
    EXPECT_EQ(w.ask("CLIPBOARD", "STRING"), "Gr\xFCn ?");
    EXPECT_EQ(w.ask("CLIPBOARD", "TARGETS").size() % sizeof(xcb_atom_t), 0U);
    EXPECT_EQ(w.ask("CLIPBOARD", "image/png"), "(none)");
    EXPECT_EQ(w.ask("PRIMARY", "UTF8_STRING"), "(none)");
    w.host.click(20, 20);
    w.host.click(20, 20);
    w.settle();
    EXPECT_EQ(w.ask("PRIMARY", "UTF8_STRING"), "Gr\u00FCn") << "a word selected by a double click";
    w.host.own("CLIPBOARD", "mine");
    EXPECT_EQ(w.ask("CLIPBOARD", "UTF8_STRING"), "mine");
}

TEST(X11Clipboard, GivesSeveralFormsAtOnce) {
    PEDL_NEEDS_DISPLAY();
    FieldInHost w("na\u00EFve");
    w.shortcut(XKB_KEY_c);
    const HostProgram& host = w.host;
    std::array<xcb_atom_t, 6> pairs{host.atom("STRING"),    host.atom("ONE"),
                                    host.atom("image/png"), host.atom("TWO"),
                                    host.atom("MULTIPLE"),  host.atom("THREE")};
    xcb_change_property(host.xcb(), XCB_PROP_MODE_REPLACE, host.windowId(), host.atom("ANSWER"),
                        host.atom("ATOM_PAIR"), 32, pairs.size(), pairs.data());
    const std::string answer = w.ask("CLIPBOARD", "MULTIPLE");
    pairs[3] = pairs[5] = XCB_ATOM_NONE; // cannot be had
    ASSERT_EQ(answer.size(), sizeof(pairs));
    EXPECT_EQ(std::memcmp(answer.data(), pairs.data(), sizeof(pairs)), 0);
    const auto asked =
        xcb_get_property(host.xcb(), 0, host.windowId(), host.atom("ONE"), XCB_ATOM_STRING, 0, 100);
    const auto text = owned(xcb_get_property_reply(host.xcb(), asked, nullptr));
    EXPECT_EQ(xcb_get_property_value_length(text.get()), 5);
}

TEST(X11Clipboard, CopiesByAKeyOfTheHostsAfterAnotherProgramCopied) {
    PEDL_NEEDS_DISPLAY();
    FieldInHost w("ours");
    w.host.own("CLIPBOARD", "theirs"); // later than everything that the editor has seen
    VstKeyCode copy{'c', 0, MODIFIER_CONTROL};
    EXPECT_TRUE(w.editor.onKeyDown(copy));
    EXPECT_EQ(w.ask("CLIPBOARD", "UTF8_STRING"), "ours");
}

TEST(X11Clipboard, PastesTheTextOfOthersInWhateverFormTheyHaveIt) {
    PEDL_NEEDS_DISPLAY();
    std::string longText;
    for (int i = 0; i < 40; ++i)
        longText += "piece-" + std::to_string(i) + " ";
    const std::string longest = longText.substr(0, 255); // what a field takes
    struct Row {
        const char* story;
        Habit habit;
        std::string text, pasted;
    };
    for (const Row& row : {Row{"plain", Habit::Plain, "na\u00EFve", "na\u00EFve"},
                           Row{"Latin-1", Habit::Latin1Only, "na\xEFve", "na\u00EFve"},
                           Row{"in pieces", Habit::InPieces, longText, longest},
                           Row{"refused", Habit::Refuses, "no", "old"}}) {
        SCOPED_TRACE(row.story);
        FieldInHost w("old");
        w.host.own("CLIPBOARD", row.text, row.habit);
        w.shortcut(XKB_KEY_v);
        EXPECT_TRUE(w.reads(row.pasted));
    }
}

TEST(X11Clipboard, ATextWithoutEndIsCutOff) {
    PEDL_NEEDS_DISPLAY();
    FieldInHost w("old");
    w.host.own("CLIPBOARD", std::string(10 * X11Clipboard::kMostTextBytes, 'x'), Habit::InPieces);
    std::size_t bytes = 0;
    w.editor.window().clipboard().requestText(
        Clipboard::Kind::Copied, [&](const std::string& text) { bytes = text.size(); });
    EXPECT_TRUE(w.until([&] { return bytes > 0; }));
    EXPECT_EQ(bytes, X11Clipboard::kMostTextBytes);
}

TEST(X11Clipboard, TheMiddleButtonPastesWhatIsSelectedElsewhere) {
    PEDL_NEEDS_DISPLAY();
    FieldInHost w("ab");
    w.host.own("PRIMARY", "chosen");
    w.host.click(250, 20, 2);
    EXPECT_TRUE(w.reads("abchosen"));
}

TEST(X11Clipboard, AnAnswerThatComesTooLateIsDropped) {
    PEDL_NEEDS_DISPLAY();
    ManualClock clock;
    FieldInHost w("old");
    w.host.own("CLIPBOARD", "late", Habit::Silent);
    w.shortcut(XKB_KEY_v);
    clock.advance(X11Clipboard::kPatienceMs + 1);
    w.settle();
    w.host.own("CLIPBOARD", "soon");
    w.shortcut(XKB_KEY_v);
    EXPECT_TRUE(w.reads("soon"));
}

TEST(X11Clipboard, ATextThatArrivesAfterTheFieldClosedIsDropped) {
    PEDL_NEEDS_DISPLAY();
    FieldInHost w("old");
    w.host.own("CLIPBOARD", "new", Habit::Plain);
    w.host.withHeld(XKB_KEY_Control_L, XKB_KEY_v);
    w.host.type(XKB_KEY_Return);
    w.settle();
    EXPECT_STREQ(w.field->getText(), "old");
}

} // namespace
} // namespace VSTGUI
