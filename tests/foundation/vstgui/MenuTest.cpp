#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/foundation/vstgui/ToolkitWindow.h"
#include "vstgui/lib/controls/coptionmenu.h"
#include "vstgui/lib/platform/offscreen/offscreenmenu.h"

namespace VSTGUI {
namespace {

const CRect kListPlace(20, 10, 80, 30);

/// A window with one menu; entries are "entry 0", "entry 1" and so on.
class MenuWindow : public ToolkitWindow {
public:
    explicit MenuWindow(int entries, int32_t style = kPopupStyle)
        : menu(new COptionMenu(kListPlace, this, 1, nullptr, nullptr, style)) {
        for (int i = 0; i < entries; ++i)
            menu->addEntry(("entry " + std::to_string(i)).c_str());
        theFrame().addView(menu);
        window().turn();
    }

    void open() {
        click(25, 15);
        log.take();
    }
    OffscreenMenu* opened() { return OffscreenMenu::of(window()); }
    MenuList& list() { return *opened()->list(); }
    CPoint middleOf(int32_t entry) { return list().entryArea(entry).getCenter(); }
    void clickOn(int32_t entry) {
        const CPoint where = middleOf(entry);
        opened()->menuMouseMoved(where, 0);
        opened()->menuMouseDown(where);
        EXPECT_EQ(log.take(), "") << "not before the button is let go";
        opened()->menuMouseUp(where);
    }
    int32_t after(VstVirtualKey key) {
        press(key);
        return list().hovered();
    }

    COptionMenu* menu;
};

TEST(OptionMenu, EntriesMarksAndValue) {
    COptionMenu* menu = new COptionMenu(kListPlace, nullptr, 1);
    for (const char* title : {"a", "-", "b", "c"})
        menu->addEntry(title);
    EXPECT_FLOAT_EQ(menu->getMax(), 3.0F);
    EXPECT_TRUE(menu->getEntry(1)->isSeparator());
    for (const float outside : {-1.0F, 4.0F, 1e20F, std::numeric_limits<float>::quiet_NaN()}) {
        menu->setValue(2.0F);
        menu->setValue(outside);
        EXPECT_FLOAT_EQ(menu->getValue(), 2.0F) << outside;
    }
    EXPECT_EQ(menu->getCurrentIndex(false), 1);
    EXPECT_TRUE(menu->setCurrent(2, false)) << "c";
    EXPECT_EQ(menu->getCurrentIndex(true), 3);
    EXPECT_FLOAT_EQ(menu->getValue(), 2.0F) << "the value is another matter";
    EXPECT_FALSE(menu->setCurrent(1)) << "a separator";
    CMenuItem* const first = menu->getEntry(0);
    first->setTitle("-");
    EXPECT_FALSE(first->isSeparator()) << "someone named it so";
    menu->removeEntry(3);
    EXPECT_EQ(menu->getCurrentIndex(true), 2);
    menu->removeEntry(2);
    EXPECT_FLOAT_EQ(menu->getValue(), 1.0F);
    first->remember();
    menu->forget();
    EXPECT_EQ(first->getNbReference(), 1);
    first->forget();
}

TEST(OptionMenu, ClosesFirstThenSetsItsValueAndTells) {
    MenuWindow w(5);
    w.open();
    ASSERT_NE(w.opened(), nullptr);
    bool wasOpen = true;
    w.onValue = [&] { wasOpen = w.menu->isOpen() || w.opened(); };
    w.clickOn(3);
    EXPECT_FALSE(wasOpen);
    EXPECT_FLOAT_EQ(w.menu->getValue(), 3.0F);
    EXPECT_EQ(w.menu->getLastResult(), 3);
    EXPECT_EQ(w.log.take(), kOneEdit);
    w.onValue = [&] { w.theFrame().removeView(w.menu); };
    w.open();
    w.press(VKEY_UP);
    w.press(VKEY_RETURN);
    EXPECT_EQ(w.theFrame().getNbViews(), 0);
}

TEST(OptionMenu, EndsWithoutAChoice) {
    const std::function<void(MenuWindow&)> ways[] = {
        [](MenuWindow& w) { w.press(VKEY_ESCAPE); },
        [](MenuWindow& w) { w.window().mouseDown(190, 90); }, // in the frame
        [](MenuWindow& w) { w.window().activate(false); },
        [](MenuWindow& w) { w.theFrame().removeView(w.menu); },
        [](MenuWindow& w) { w.close(); },
    };
    for (const auto& way : ways) {
        MenuWindow w(5);
        w.open();
        const CBaseObjectGuard held(&w.window());
        OffscreenFrame& window = w.window();
        way(w);
        EXPECT_EQ(window.overlay(), nullptr);
        EXPECT_EQ(w.log.take(), "");
    }
}

TEST(OptionMenu, MayBeDraggedThroughFromTheFirstPress) {
    MenuWindow w(5);
    w.menu->setValue(4.0F);
    w.window().mouseDown(25, 15, kLButton);
    w.window().mouseUp(26, 16);
    ASSERT_NE(w.opened(), nullptr) << "a click leaves it open, whatever entry lies under the mouse";
    EXPECT_EQ(w.list().hovered(), 4) << "the value's";
    w.press(VKEY_ESCAPE);

    w.window().mouseDown(25, 15, kLButton);
    w.window().mouseMove(25, 15, kLButton);
    const CPoint target = kListPlace.getTopLeft() + w.middleOf(2);
    w.window().mouseMove(target.x, target.y, kLButton);
    w.window().mouseUp(target.x, target.y);
    EXPECT_EQ(w.opened(), nullptr);
    EXPECT_FLOAT_EQ(w.menu->getValue(), 2.0F);
}

TEST(OptionMenu, ArrowsStepOverWhatCannotBeChosen) {
    MenuWindow w(1);
    w.menu->addSeparator();
    w.menu->addEntry("heading", -1, CMenuItem::kTitle);
    w.menu->addEntry("off", -1, CMenuItem::kDisabled);
    w.menu->addEntry("last");
    w.theFrame().setFocusView(w.menu);
    w.press(VKEY_DOWN);
    EXPECT_FLOAT_EQ(w.menu->getValue(), 4.0F);
    EXPECT_EQ(w.log.take(), kOneEdit);
    EXPECT_FALSE(w.window().keyDown(VKEY_DOWN));
    w.press(VKEY_RETURN);
    ASSERT_NE(w.opened(), nullptr);
    w.clickOn(2);
    ASSERT_NE(w.opened(), nullptr) << "a heading is no choice";
    EXPECT_EQ(w.after(VKEY_DOWN), 0) << "round the end";
    EXPECT_EQ(w.after(VKEY_DOWN), 4);
}

TEST(OptionMenu, MarksTheValueOrTogglesByItsStyle) {
    for (const bool isSingle : {true, false}) {
        MenuWindow w(3, kPopupStyle | (isSingle ? kCheckStyle : kMultipleCheckStyle));
        for (const bool isMarked : {!isSingle, isSingle}) { // one moves when it opens again
            w.open();
            w.clickOn(2);
            EXPECT_EQ(w.menu->isCheckEntry(2), isMarked);
        }
    }
}

TEST(MenuList, PutsManyEntriesIntoColumns) {
    struct Row {
        int entries, perColumn, columns, rows;
    };
    for (const Row row :
         {Row{140, 28, 5, 28}, {141, 28, 6, 28}, {20, 28, 1, 20}, {160, 28, 1, 160}}) {
        SCOPED_TRACE(row.entries);
        MenuWindow w(row.entries);
        w.menu->setNbItemsPerColumn(row.perColumn);
        w.open();
        const CCoord rowHeight = w.menu->getFont()->getSize() + 4;
        const CRect first = w.list().entryArea(0);
        const CRect last = w.list().entryArea(row.perColumn * row.columns - row.perColumn);
        EXPECT_EQ(last.getTopLeft(), CPoint(1 + (row.columns - 1) * first.width(), 1));
        EXPECT_EQ(w.list().size(),
                  CPoint(2 + row.columns * first.width(),
                         2 + rowHeight * std::min<double>(row.rows, std::floor(798 / rowHeight))));
        EXPECT_EQ(w.opened()->place().getTopLeft(), kListPlace.getTopLeft());
    }
    MenuWindow narrow(140);
    narrow.menu->setNbItemsPerColumn(3); // more columns than fit
    narrow.open();
    EXPECT_LE(narrow.list().size().x, 1280);
    EXPECT_FALSE(narrow.list().entryArea(139).isEmpty());
}

TEST(MenuList, KeysGoAcrossColumnsAndToLetters) {
    MenuWindow w(13);
    w.menu->setNbItemsPerColumn(5); // 5, 5, 3
    w.menu->getEntry(7)->setTitle("Zebra");
    w.menu->getEntry(10)->setTitle("\u00dcber");
    w.open();
    for (const auto& [key, hovered] : {std::pair{VKEY_RIGHT, 5},
                                       {VKEY_DOWN, 6},
                                       {VKEY_LEFT, 1},
                                       {VKEY_LEFT, 1},
                                       {VKEY_END, 12},
                                       {VKEY_RIGHT, 12},
                                       {VKEY_LEFT, 7},
                                       {VKEY_DOWN, 8},
                                       {VKEY_DOWN, 9},
                                       {VKEY_RIGHT, 12},
                                       {VKEY_DOWN, 0},
                                       {VKEY_UP, 12},
                                       {VKEY_HOME, 0}})
        EXPECT_EQ(w.after(key), hovered);
    for (const auto& [letter, hovered] :
         {std::pair{"z", 7}, {"\u00fc", 10}, {"e", 11}, {"q", 11}}) { // q: no such title
        w.window().typeText(letter);
        EXPECT_EQ(w.list().hovered(), hovered);
    }
}

TEST(MenuList, ScrollsWhereTheScreenIsTooSmall) {
    MenuWindow w(200);
    w.open();
    MenuList& list = w.list();
    const CPoint low(20, list.size().y - 5);
    EXPECT_TRUE(list.entryArea(199).isEmpty());
    w.opened()->menuMouseMoved(CPoint(20, 50), 0);
    w.opened()->menuMouseMoved(low, 0);
    EXPECT_EQ(list.hovered(), -1) << "the edge that has more behind it";
    w.opened()->menuPulse();
    EXPECT_EQ(list.firstVisibleRow(), 1);
    w.opened()->menuWheel(-1.0F);
    EXPECT_EQ(list.firstVisibleRow(), 2);
    for (int i = 0; i < 300; ++i)
        w.opened()->menuPulse();
    w.opened()->menuMouseMoved(low, 0);
    EXPECT_EQ(list.hovered(), 199);
    EXPECT_EQ(list.entryArea(199).bottom, list.size().y - 1);
    w.press(VKEY_HOME);
    EXPECT_EQ(list.firstVisibleRow(), 0);
}

TEST(MenuList, StaysOnTheScreen) {
    MenuWindow w(40);
    w.open();
    const CPoint size = w.list().size();
    const CRect screen(-100, -50, 300, 800);
    const auto cornerAt = [&](const CRect& control, MenuList::Place place) {
        return w.list().placedAt(control, place, screen).getTopLeft();
    };
    EXPECT_EQ(cornerAt(CRect(0, -40, 20, -20), MenuList::Place::OnCorner), CPoint(0, -40));
    EXPECT_EQ(cornerAt(CRect(0, -40, 20, -20), MenuList::Place::Below), CPoint(0, -20));
    EXPECT_EQ(cornerAt(CRect(290, 790, 310, 799), MenuList::Place::Below),
              screen.getBottomRight() - size);
    EXPECT_EQ(cornerAt(CRect(-200, -200, 0, -190), MenuList::Place::Below), CPoint(-100, -50));
}

} // namespace
} // namespace VSTGUI
