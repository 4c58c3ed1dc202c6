#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/foundation/vstgui/ToolkitWindow.h"
#include "vstgui/lib/controls/coptionmenu.h"
#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/offscreen/offscreenmenu.h"

namespace VSTGUI {
namespace {

const CRect kPlace(20, 10, 80, 30);

/// A window with one menu; entries are "entry 0", "entry 1" and so on.
class MenuWindow : public ToolkitWindow {
public:
    explicit MenuWindow(int entries, int32_t style = kPopupStyle)
        : menu(new COptionMenu(kPlace, this, 1, nullptr, nullptr, style)) {
        for (int i = 0; i < entries; ++i)
            menu->addEntry(("entry " + std::to_string(i)).c_str());
        theFrame().addView(menu);
        window().turn();
    }

    void open() {
        window().mouseDown(25, 15, kLButton);
        window().mouseUp(25, 15);
        log.take();
    }
    OffscreenMenu* opened() { return OffscreenMenu::of(window()); }
    MenuList& list() { return *opened()->list(); }
    CPoint middleOf(int32_t entry) { return list().entryArea(entry).getCenter(); }
    void press(VstVirtualKey key) { window().keyDown(key); }

    COptionMenu* menu;
};

TEST(OptionMenu, EntriesMarksAndValue) {
    COptionMenu* menu = new COptionMenu(kPlace, nullptr, 1);
    for (const char* title : {"a", "-", "b", "c"})
        menu->addEntry(title);
    EXPECT_EQ(menu->getNbEntries(), 4);
    EXPECT_FLOAT_EQ(menu->getMax(), 3.0F);
    EXPECT_TRUE(menu->getEntry(1)->isSeparator());
    EXPECT_EQ(menu->getEntry(4), nullptr);
    EXPECT_EQ(menu->getEntry(-1), nullptr);

    for (const float outside : {-1.0F, 4.0F, 1e20F, std::numeric_limits<float>::quiet_NaN()}) {
        menu->setValue(2.0F);
        menu->setValue(outside);
        EXPECT_FLOAT_EQ(menu->getValue(), 2.0F) << outside;
    }
    EXPECT_EQ(menu->getCurrentIndex(true), 2);
    EXPECT_EQ(menu->getCurrentIndex(false), 1);
    EXPECT_TRUE(menu->setCurrent(2, false)) << "c";
    EXPECT_EQ(menu->getCurrentIndex(true), 3);
    EXPECT_FLOAT_EQ(menu->getValue(), 2.0F) << "the value is another matter";
    EXPECT_FALSE(menu->setCurrent(1)) << "a separator";

    menu->checkEntry(0, true);
    EXPECT_TRUE(menu->checkEntryAlone(3));
    EXPECT_FALSE(menu->isCheckEntry(0));
    EXPECT_FALSE(menu->checkEntryAlone(9));
    EXPECT_FALSE(menu->isCheckEntry(3)) << "all are cleared";
    menu->getEntry(0)->setTitle("-");
    EXPECT_FALSE(menu->getEntry(0)->isSeparator()) << "someone named it so";

    menu->removeEntry(3);
    menu->removeEntry(2);
    EXPECT_FLOAT_EQ(menu->getValue(), 1.0F);
    menu->removeAllEntry();
    EXPECT_EQ(menu->getCurrent(), nullptr);
    menu->forget();
}

TEST(OptionMenu, ClosesFirstThenSetsItsValueAndTells) {
    MenuWindow w(5);
    w.open();
    ASSERT_NE(w.opened(), nullptr);
    EXPECT_TRUE(w.menu->isOpen());
    bool wasOpen = true;
    w.onValue = [&] { wasOpen = w.menu->isOpen() || w.opened(); };
    w.opened()->menuMouseMoved(w.middleOf(3), 0);
    w.opened()->menuMouseDown(w.middleOf(3));
    EXPECT_EQ(w.log.take(), "") << "not before the button is let go";
    w.opened()->menuMouseUp(w.middleOf(3));
    EXPECT_FALSE(wasOpen);
    EXPECT_FLOAT_EQ(w.menu->getValue(), 3.0F);
    EXPECT_EQ(w.menu->getLastResult(), 3);
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value, host ends 1, end");
}

TEST(OptionMenu, EndsWithoutAChoice) {
    const std::function<void(MenuWindow&)> ways[] = {
        [](MenuWindow& w) { w.press(VKEY_ESCAPE); },
        [](MenuWindow& w) { w.window().mouseDown(190, 90); }, // in the frame
        [](MenuWindow& w) { w.opened()->menuMouseDown(CPoint(-50, 300)); },
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

TEST(OptionMenu, AListenerMayTakeTheMenuAway) {
    MenuWindow w(5);
    w.open();
    w.onValue = [&] { w.theFrame().removeView(w.menu); };
    w.press(VKEY_DOWN);
    w.press(VKEY_RETURN);
    EXPECT_EQ(w.theFrame().getNbViews(), 0);
}

TEST(OptionMenu, MayBeDraggedThroughFromTheFirstPress) {
    MenuWindow w(5);
    w.menu->setValue(4.0F);
    const CPoint corner = kPlace.getTopLeft();
    w.window().mouseDown(25, 15, kLButton);
    w.window().mouseUp(26, 16);
    ASSERT_NE(w.opened(), nullptr) << "a click leaves it open, whatever entry lies under the mouse";
    EXPECT_EQ(w.list().hovered(), 4) << "the value's";
    w.press(VKEY_ESCAPE);

    w.window().mouseDown(25, 15, kLButton);
    w.window().mouseMove(25, 15, kLButton);
    const CPoint target = corner + w.middleOf(2);
    w.window().mouseMove(target.x, target.y, kLButton);
    w.window().mouseUp(target.x, target.y);
    EXPECT_EQ(w.opened(), nullptr);
    EXPECT_FLOAT_EQ(w.menu->getValue(), 2.0F);
}

/// A window whose menus have been chosen from when `popup` returns.
class WaitingWindow : public OffscreenFrame {
    class Menu : public IPlatformOptionMenu {
        PlatformOptionMenuResult popup(COptionMenu* optionMenu) override { return {optionMenu, 2}; }
    };

public:
    using OffscreenFrame::OffscreenFrame;
    IPlatformOptionMenu* createPlatformOptionMenu() override { return new Menu; }
};

TEST(OptionMenu, MayHaveItsAnswerAtOnce) {
    setPlatformFrameFactory(
        [](IPlatformFrameCallback* callback, const CRect& size, void*) -> IPlatformFrame* {
            return new WaitingWindow(callback, size);
        });
    ManualClock clock;
    CFrame* const frame = new CFrame(CRect(0, 0, 200, 100), &clock, nullptr);
    setPlatformFrameFactory(nullptr);
    COptionMenu* const menu = new COptionMenu(kPlace, nullptr, 1);
    for (const char* title : {"a", "b", "c"})
        menu->addEntry(title);
    frame->addView(menu);
    OffscreenFrame::of(*frame).mouseDown(25, 15, kLButton);
    EXPECT_FLOAT_EQ(menu->getValue(), 2.0F);
    EXPECT_FALSE(menu->isOpen());
    frame->close();
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
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value, host ends 1, end");
    EXPECT_FALSE(w.window().keyDown(VKEY_DOWN));
    w.press(VKEY_RETURN);
    ASSERT_NE(w.opened(), nullptr);
    w.opened()->menuMouseDown(w.middleOf(2));
    w.opened()->menuMouseUp(w.middleOf(2));
    ASSERT_NE(w.opened(), nullptr) << "a heading is no choice";
    w.press(VKEY_DOWN); // round the end
    EXPECT_EQ(w.list().hovered(), 0);
}

TEST(OptionMenu, MarksTheValueOrTogglesByItsStyle) {
    MenuWindow single(3, kPopupStyle | kCheckStyle);
    single.menu->setValue(1.0F);
    single.open();
    EXPECT_TRUE(single.menu->isCheckEntry(1));
    single.press(VKEY_END);
    single.press(VKEY_RETURN);
    EXPECT_TRUE(single.menu->isCheckEntry(1)) << "moves when it opens again, or by its owner";

    MenuWindow several(3, kPopupStyle | kMultipleCheckStyle);
    for (const bool isOn : {true, false}) {
        several.open();
        several.press(VKEY_END);
        several.press(VKEY_RETURN);
        EXPECT_EQ(several.menu->isCheckEntry(2), isOn);
    }
}

TEST(MenuList, PutsManyEntriesIntoColumns) {
    struct Row {
        int entries, perColumn, columns, rows;
    };
    for (const Row row : {Row{140, 28, 5, 28},
                          {141, 28, 6, 28},
                          {20, 28, 1, 20},
                          {30, -1, 1, 30},
                          {160, 28, 1, 160}}) {
        SCOPED_TRACE(row.entries);
        MenuWindow w(row.entries);
        w.menu->setNbItemsPerColumn(row.perColumn);
        w.open();
        const CCoord rowHeight = w.menu->getFont()->getSize() + 4;
        const CRect first = w.list().entryArea(0);
        EXPECT_EQ(first.height(), rowHeight);
        EXPECT_EQ(w.list().size().x, 2 + row.columns * first.width());
        EXPECT_EQ(w.list().size().y,
                  2 + rowHeight * std::min<double>(row.rows, std::floor(798 / rowHeight)));
        if (row.columns > 1) {
            const CRect second = w.list().entryArea(row.perColumn);
            EXPECT_EQ(second.getTopLeft(), first.getTopLeft() + CPoint(first.width(), 0));
        }
        EXPECT_EQ(w.opened()->place().getTopLeft(), kPlace.getTopLeft());
    }
}

TEST(MenuList, KeysGoAcrossColumnsAndToLetters) {
    MenuWindow w(13);
    w.menu->setNbItemsPerColumn(5); // 5, 5, 3
    w.menu->getEntry(7)->setTitle("Zebra");
    w.menu->getEntry(10)->setTitle("\u00dcber");
    w.open();
    const auto after = [&](VstVirtualKey key) {
        w.press(key);
        return w.list().hovered();
    };
    EXPECT_EQ(after(VKEY_RIGHT), 5);
    EXPECT_EQ(after(VKEY_DOWN), 6);
    EXPECT_EQ(after(VKEY_LEFT), 1);
    EXPECT_EQ(after(VKEY_LEFT), 1);
    EXPECT_EQ(after(VKEY_END), 12);
    EXPECT_EQ(after(VKEY_LEFT), 7);
    EXPECT_EQ(after(VKEY_DOWN), 8);
    EXPECT_EQ(after(VKEY_DOWN), 9);
    EXPECT_EQ(after(VKEY_RIGHT), 12) << "a shorter column's last";
    EXPECT_EQ(after(VKEY_DOWN), 0);
    EXPECT_EQ(after(VKEY_UP), 12);
    EXPECT_EQ(after(VKEY_HOME), 0);
    w.window().typeText("z");
    EXPECT_EQ(w.list().hovered(), 7);
    w.window().typeText("\u00fc");
    EXPECT_EQ(w.list().hovered(), 10);
    w.window().typeText("e");
    EXPECT_EQ(w.list().hovered(), 11);
    w.window().typeText("q");
    EXPECT_EQ(w.list().hovered(), 11) << "no such title";
    w.press(VKEY_RETURN);
    EXPECT_FLOAT_EQ(w.menu->getValue(), 11.0F);
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

TEST(MenuList, HasFewerColumnsThanAskedForWhereTheyDoNotFit) {
    MenuWindow w(140);
    w.menu->setNbItemsPerColumn(3);
    w.open();
    EXPECT_LE(w.list().size().x, 1280);
    EXPECT_FALSE(w.list().entryArea(139).isEmpty());
    EXPECT_LT(w.list().entryArea(139).right, w.list().size().x);
}

TEST(MenuList, StaysOnTheScreen) {
    MenuWindow w(40);
    const CRect screen(-100, -50, 300, 400);
    const MenuList& list = (w.open(), w.list());
    const CPoint size = list.size();
    struct Row {
        CRect control;
        MenuList::Place place;
        CPoint corner;
    };
    const Row rows[] = {
        {CRect(0, -40, 20, -20), MenuList::Place::OnCorner, CPoint(0, -40)},
        {CRect(290, 390, 310, 399), MenuList::Place::Below, CPoint(300 - size.x, 400 - size.y)},
        {CRect(-200, -200, 0, -190), MenuList::Place::Below, CPoint(-100, -50)},
    };
    for (const Row& row : rows)
        EXPECT_EQ(list.placedAt(row.control, row.place, CRect(-100, -50, 300, 800)).left,
                  row.corner.x);
    EXPECT_EQ(list.placedAt(rows[0].control, rows[0].place, CRect(-100, -50, 300, 800)).top, -40);
    EXPECT_EQ(list.placedAt(rows[1].control, rows[1].place, screen).top,
              std::max(-50.0, 400 - size.y));
}

TEST(MenuList, DrawsMarksAndTheEntryUnderTheMouse) {
    MenuWindow w(3);
    w.menu->checkEntry(1, true);
    w.menu->addEntry("off", -1, CMenuItem::kDisabled);
    w.open();
    w.press(VKEY_END); // the third
    const PixmanSurface& image = w.opened()->image();
    const auto brightest = [&](const CRect& area) {
        uint32_t most = 0;
        for (auto y = static_cast<int32_t>(area.top); y < area.bottom; ++y)
            for (auto x = static_cast<int32_t>(area.left); x < area.right; ++x)
                most = std::max(most, image.pixelAt(x, y) & 0xFF);
        return most;
    };
    const auto gutter = [&](int32_t entry) {
        CRect area = w.list().entryArea(entry);
        area.right = area.left + 15;
        return brightest(area);
    };
    EXPECT_GT(gutter(1), gutter(0) + 80) << "a check mark";
    const CPoint hovered = w.list().entryArea(2).getTopLeft();
    EXPECT_NE(image.pixelAt(static_cast<int32_t>(hovered.x), static_cast<int32_t>(hovered.y)),
              image.pixelAt(1, 1));
    EXPECT_LT(brightest(w.list().entryArea(3)), brightest(w.list().entryArea(0)) - 50);
}

} // namespace
} // namespace VSTGUI
