#pragma once

#include <string>
#include <vector>

#include "vstgui/lib/cfont.h"
#include "vstgui/lib/cpoint.h"
#include "vstgui/lib/crect.h"
#include "vstgui/lib/vstkeycode.h"

namespace VSTGUI {

class CDrawContext;
class COptionMenu;

/// The entries of an open menu: where they stand, how they look, what mouse and keys do to them.
///
/// Knows no window. Whoever has one sends it the events, in logical pixels from the menu's corner,
/// and looks at `outcome` and `needsRedraw` afterwards. The entries are copied: the menu may change
/// under it.
class MenuList {
public:
    enum class Outcome { Open, Chosen, Dismissed };

    explicit MenuList(const COptionMenu& menu);
    ~MenuList();
    MenuList(const MenuList&) = delete;
    MenuList& operator=(const MenuList&) = delete;

    /// Sets columns and rows. Rows that do not fit scroll, columns get narrower, then fewer.
    /// @param measure  any context, for the width of the titles
    void layOut(CDrawContext& measure, const CPoint& largest);

    /// With its frame.
    const CPoint& size() const { return size_; }

    /// Where the menu goes: on the control's corner, or below it, moved to stay in `screen`.
    enum class Place { OnCorner, Below };
    CRect placedAt(const CRect& control, Place place, const CRect& screen) const;

    void draw(CDrawContext& context);
    bool needsRedraw() const { return needsRedraw_; }

    Outcome outcome() const { return outcome_; }
    /// The chosen entry, else -1.
    int32_t chosen() const { return outcome_ == Outcome::Chosen ? hovered_ : -1; }
    int32_t hovered() const { return hovered_; } // -1: none
    int32_t firstVisibleRow() const { return firstRow_; }
    /// Empty for an entry that is scrolled away.
    CRect entryArea(int32_t index) const;

    /// @param held  a mouse button is down: one that was so from the press that opened the menu
    ///              may choose when it is let go after a movement
    enum class Button { Up, Held };
    void mouseMoved(const CPoint& where, Button button);
    void mouseLeft();
    void mouseDown(const CPoint& where); // outside: dismisses
    void mouseUp(const CPoint& where);
    void wheel(float distance);
    /// Arrows, Home, End, Return, Escape, a title's first letter. @return whether it was used
    bool keyDown(const VstKeyCode& keyCode);
    /// Scrolls on while the mouse rests on an edge that has more behind it. Call it some times a
    /// second.
    void pulse();

private:
    struct Entry {
        std::string title;
        bool isChecked, isTitle, isSeparator, isSelectable;
    };

    int32_t count() const { return static_cast<int32_t>(entries_.size()); }
    const Entry& entry(int32_t index) const { return entries_[static_cast<std::size_t>(index)]; }
    bool canScroll() const { return shownRows_ < rowsPerColumn_; }
    bool isSelectable(int32_t index) const;
    int32_t entryAt(const CPoint& where) const;
    int32_t edgeAt(const CPoint& where) const;
    void hover(int32_t index);
    void hoverByKey(int32_t index);
    void hoverNext(int32_t from, int32_t direction);
    void hoverColumn(int32_t direction);
    bool hoverLetter(char32_t letter);
    void scrollTo(int32_t firstRow);
    void end(Outcome outcome);
    void drawEntry(CDrawContext& context, int32_t index);
    void drawEdges(CDrawContext& context);

    std::vector<Entry> entries_;
    CFontRef font_; // remembered
    int32_t rowsPerColumn_;
    int32_t columns_;
    int32_t shownRows_;
    int32_t firstRow_ = 0;
    CCoord rowHeight_;
    CCoord columnWidth_ = 0;
    CPoint size_;
    int32_t hovered_;
    CPoint lastMouse_;
    CPoint firstMouse_; // when the menu opened
    bool hasSeenMouse_ = false;
    bool hasMoved_ = false;   // further than a click does
    bool hasMouse_ = false;   // it is over the menu
    bool mayRelease_ = false; // letting the button go chooses
    bool needsRedraw_ = true;
    Outcome outcome_ = Outcome::Open;
};

} // namespace VSTGUI
