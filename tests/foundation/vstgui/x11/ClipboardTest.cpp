#include "tests/foundation/vstgui/x11/EditorInHost.h"

#include <xkbcommon/xkbcommon.h>

#include "vstgui/lib/controls/ctextedit.h"

namespace VSTGUI {
namespace {

using Habit = HostProgram::Habit;

/// An editor with an open text field, everything in it selected.
class FieldInHost : public EditorInHost {
public:
    explicit FieldInHost(UTF8StringPtr text)
        : field(new CTextEdit(CRect(10, 10, 300, 30), &editor, 1, text)) {
        field->setHoriAlign(kLeftText);
        editor.theFrame().addView(field);
        settle();
        host.click(250, 20);
        settle();
    }
    void shortcut(xcb_keysym_t letter) {
        host.withHeld(XKB_KEY_Control_L, letter);
        settle();
        settle(); // another program's answer
    }
    /// What is in the field when it has closed.
    std::string written() {
        host.type(XKB_KEY_Return);
        settle();
        return field->getText();
    }
    std::string ask(const char* selection, const char* target) {
        return host.ask(selection, target,
                        [this](const std::function<bool()>& answered) { until(answered); });
    }
    CTextEdit* field;
};

TEST(X11Clipboard, GivesWhatWasCopiedAndWhatWasSelectedToOthers) {
    PEDL_NEEDS_DISPLAY();
    FieldInHost w("Gr\u00FCn \u03B1");
    EXPECT_EQ(w.ask("CLIPBOARD", "UTF8_STRING"), "(none)");
    w.shortcut(XKB_KEY_c);
    for (const char* target : {"UTF8_STRING", "text/plain;charset=utf-8"})
        EXPECT_EQ(w.ask("CLIPBOARD", target), "Gr\u00FCn \u03B1");
    EXPECT_EQ(w.ask("CLIPBOARD", "TARGETS").size(), 4 * sizeof(xcb_atom_t));
    EXPECT_EQ(w.ask("CLIPBOARD", "image/png"), "(none)");
    w.host.click(20, 20);
    w.host.click(20, 20);
    w.settle();
    EXPECT_EQ(w.ask("PRIMARY", "UTF8_STRING"), "Gr\u00FCn") << "a word selected by a double click";
    w.host.own("CLIPBOARD", "theirs"); // later than everything that the editor has seen
    EXPECT_EQ(w.ask("CLIPBOARD", "UTF8_STRING"), "theirs");
    VstKeyCode copy{'c', 0, MODIFIER_CONTROL}; // by way of the host: it has no time of its own
    EXPECT_TRUE(w.editor.onKeyDown(copy));
    EXPECT_EQ(w.ask("CLIPBOARD", "UTF8_STRING"), "Gr\u00FCn");
}

TEST(X11Clipboard, PastesTheTextOfOthers) {
    PEDL_NEEDS_DISPLAY();
    struct Row {
        Habit habit;
        std::string text, pasted;
    };
    for (const Row& row : {Row{Habit::Plain, "na\u00EFve", "na\u00EFve"},
                           {Habit::Plain, std::string(9000, 'x'), std::string(255, 'x')},
                           {Habit::InPieces, "no name", "old"},
                           {Habit::Refuses, "no", "old"}}) {
        FieldInHost w("old");
        w.host.own("CLIPBOARD", row.text, row.habit);
        w.shortcut(XKB_KEY_v);
        EXPECT_EQ(w.written(), row.pasted);
    }
    ManualClock clock;
    FieldInHost w("ab");
    w.host.own("PRIMARY", "chosen");
    w.host.click(250, 20, 2);
    w.settle();
    w.host.own("CLIPBOARD", "late", Habit::Silent);
    w.shortcut(XKB_KEY_v);
    clock.advance(X11Clipboard::kPatienceMs + 1);
    w.settle();
    w.host.own("CLIPBOARD", ", soon");
    w.shortcut(XKB_KEY_v);
    EXPECT_EQ(w.written(), "abchosen, soon");
}

} // namespace
} // namespace VSTGUI
