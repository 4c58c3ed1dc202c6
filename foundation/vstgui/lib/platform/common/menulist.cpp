#include "vstgui/lib/platform/common/menulist.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "foundation/text/Utf8.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/controls/coptionmenu.h"
#include "vstgui/lib/platform/common/overlaycolors.h"

namespace VSTGUI {

namespace {

/// From this many entries on there is one column whatever the menu asks for: it can be scrolled, a
/// window wider than the screen cannot.
constexpr int32_t kTooManyForColumns = 160;
constexpr CCoord kRowGapPixels = 4; // a row's height beyond the font's
constexpr CCoord kFramePixels = 1;
constexpr CCoord kMarkWidthPixels = 16; // left of the titles, for the check mark
constexpr CCoord kTitleGapPixels = 10;  // right of them
constexpr CCoord kLeastColumnPixels = 40;
/// A hand that only clicks moves the mouse by less than this.
constexpr CCoord kClickPixels = 4;

void drawCheckMark(CDrawContext& context, const CRect& row, const CColor& color) {
    const CCoord x = row.left + 4;
    const CCoord y = std::floor(row.getCenter().y);
    context.setFrameColor(color);
    context.setLineWidth(2);
    context.setDrawMode(kAntiAliasing);
    context.moveTo(CPoint(x, y));
    context.lineTo(CPoint(x + 3, y + 3));
    context.lineTo(CPoint(x + 8, y - 4));
    context.setDrawMode(kAliasing);
    context.setLineWidth(1);
}

/// A triangle in the middle of an edge that has more behind it.
void drawMoreMark(CDrawContext& context, const CRect& strip, CCoord direction) {
    context.setFillColor(OverlayColors::kPanel);
    context.drawRect(strip, kDrawFilled);
    const CPoint tip = strip.getCenter() + CPoint(0, 3 * direction);
    const std::array<CPoint, 3> points{tip, tip + CPoint(-5, -6 * direction),
                                       tip + CPoint(5, -6 * direction)};
    context.setFillColor(OverlayColors::kText);
    context.setDrawMode(kAntiAliasing);
    context.drawPolygon(points.data(), 3, kDrawFilled);
    context.setDrawMode(kAliasing);
}

} // namespace

MenuList::MenuList(const COptionMenu& menu)
    : font_(menu.getFont() ? menu.getFont() : kSystemFont),
      hovered_(static_cast<int32_t>(menu.getValue())) {
    font_->remember();
    for (const CMenuItem* item : *menu.getItems())
        entries_.push_back({item->getTitle(), item->isChecked(), item->isTitle(),
                            item->isSeparator(),
                            item->isEnabled() && !item->isTitle() && !item->isSeparator()});
    const int32_t perColumn = menu.getNbItemsPerColumn();
    const bool hasColumns = perColumn > 0 && perColumn < count() && count() < kTooManyForColumns;
    rowsPerColumn_ = hasColumns ? perColumn : std::max(count(), 1);
    columns_ = std::max(1, (count() + rowsPerColumn_ - 1) / rowsPerColumn_);
    shownRows_ = rowsPerColumn_;
    rowHeight_ = font_->getSize() + kRowGapPixels;
    if (!isSelectable(hovered_))
        hovered_ = -1;
}

MenuList::~MenuList() {
    font_->forget();
}

void MenuList::layOut(CDrawContext& measure, const CPoint& largest) {
    const auto fittingColumns =
        std::max(1, static_cast<int32_t>((largest.x - 2 * kFramePixels) / kLeastColumnPixels));
    if (columns_ > fittingColumns) { // fewer and longer ones: those scroll
        rowsPerColumn_ = (count() + fittingColumns - 1) / fittingColumns;
        columns_ = (count() + rowsPerColumn_ - 1) / rowsPerColumn_;
    }
    measure.setFont(font_);
    CCoord widest = 0;
    for (const Entry& line : entries_)
        widest = std::max(widest, measure.getStringWidth(line.title.c_str()));
    const CCoord widestColumn = std::floor((largest.x - 2 * kFramePixels) / columns_);
    const CCoord wanted = kMarkWidthPixels + std::ceil(widest) + kTitleGapPixels;
    columnWidth_ = std::max(kLeastColumnPixels, std::min(wanted, widestColumn));

    const auto fitting = static_cast<int32_t>((largest.y - 2 * kFramePixels) / rowHeight_);
    shownRows_ = std::clamp(fitting, 1, rowsPerColumn_);
    size_ = CPoint(columns_ * columnWidth_ + 2 * kFramePixels,
                   shownRows_ * rowHeight_ + 2 * kFramePixels);
    if (hovered_ >= 0)
        hoverByKey(hovered_);
    needsRedraw_ = true;
}

CRect MenuList::placedAt(const CRect& control, Place place, const CRect& screen) const {
    CRect area(CPoint(control.left, place == Place::OnCorner ? control.top : control.bottom),
               size_);
    const CCoord right = std::min(area.left, screen.right - size_.x);
    const CCoord bottom = std::min(area.top, screen.bottom - size_.y);
    return area.moveTo(std::max(right, screen.left), std::max(bottom, screen.top));
}

// Where things are

CRect MenuList::entryArea(int32_t index) const {
    const int32_t row = index % rowsPerColumn_ - firstRow_;
    if (index < 0 || index >= count() || row < 0 || row >= shownRows_)
        return {};
    const int32_t column = index / rowsPerColumn_;
    return {CPoint(kFramePixels + column * columnWidth_, kFramePixels + row * rowHeight_),
            CPoint(columnWidth_, rowHeight_)};
}

int32_t MenuList::entryAt(const CPoint& where) const {
    CRect inside(CPoint(0, 0), size_);
    inside.inset(kFramePixels, kFramePixels);
    if (!inside.pointInside(where) || edgeAt(where) != 0)
        return -1;
    const auto column = static_cast<int32_t>((where.x - kFramePixels) / columnWidth_);
    const auto row = static_cast<int32_t>((where.y - kFramePixels) / rowHeight_);
    const int32_t index = column * rowsPerColumn_ + firstRow_ + row;
    return firstRow_ + row < rowsPerColumn_ && index < count() ? index : -1;
}

/// -1 and 1 on the rows above and below which there is more.
int32_t MenuList::edgeAt(const CPoint& where) const {
    if (!canScroll() || where.x < 0 || where.x >= size_.x || where.y < 0 || where.y >= size_.y)
        return 0;
    if (where.y < kFramePixels + rowHeight_)
        return firstRow_ > 0 ? -1 : 0;
    const bool isLowest = where.y >= size_.y - kFramePixels - rowHeight_;
    return isLowest && firstRow_ + shownRows_ < rowsPerColumn_ ? 1 : 0;
}

bool MenuList::isSelectable(int32_t index) const {
    return index >= 0 && index < count() && entry(index).isSelectable;
}

// Mouse

void MenuList::mouseMoved(const CPoint& where, Button button) {
    if (!hasSeenMouse_)
        firstMouse_ = where;
    hasSeenMouse_ = true;
    lastMouse_ = where;
    const CPoint moved = where - firstMouse_;
    // Not `hypot`, which asks for a newer C library.
    hasMoved_ |= moved.x * moved.x + moved.y * moved.y > kClickPixels * kClickPixels;
    if (!hasMoved_)
        return; // it lies where it opened the menu: that is no choice yet
    if (button == Button::Held)
        mayRelease_ = true;
    const bool isInside = CRect(CPoint(0, 0), size_).pointInside(where);
    if (!isInside && !hasMouse_)
        return; // on its way: what the keys chose stays
    hasMouse_ = isInside;
    const int32_t index = entryAt(where);
    hover(isSelectable(index) ? index : -1);
}

void MenuList::mouseLeft() {
    hasMouse_ = false;
    hover(-1);
}

void MenuList::mouseDown(const CPoint& where) {
    if (!CRect(CPoint(0, 0), size_).pointInside(where)) {
        end(Outcome::Dismissed);
        return;
    }
    hasMoved_ = true;
    mouseMoved(where, Button::Held);
}

void MenuList::mouseUp(const CPoint& where) {
    const bool chooses = mayRelease_;
    mayRelease_ = false;
    mouseMoved(where, Button::Up);
    if (chooses && hasMouse_ && hovered_ >= 0)
        end(Outcome::Chosen);
}

void MenuList::wheel(float distance) {
    if (!canScroll() || distance == 0.0F)
        return;
    scrollTo(firstRow_ + (distance > 0 ? -1 : 1));
    if (hasMouse_)
        mouseMoved(lastMouse_, Button::Up);
}

void MenuList::pulse() {
    const int32_t edge = hasMouse_ ? edgeAt(lastMouse_) : 0;
    if (edge != 0)
        scrollTo(firstRow_ + edge);
}

// Keys

bool MenuList::keyDown(const VstKeyCode& keyCode) {
    switch (keyCode.virt) {
    case VKEY_ESCAPE:
        end(Outcome::Dismissed);
        return true;
    case VKEY_RETURN:
    case VKEY_ENTER:
        if (hovered_ >= 0)
            end(Outcome::Chosen);
        return true;
    case VKEY_DOWN:
        hoverNext(hovered_, 1);
        return true;
    case VKEY_UP:
        hoverNext(hovered_ < 0 ? count() : hovered_, -1);
        return true;
    case VKEY_HOME:
        hoverNext(-1, 1);
        return true;
    case VKEY_END:
        hoverNext(count(), -1);
        return true;
    case VKEY_LEFT:
        hoverColumn(-1);
        return true;
    case VKEY_RIGHT:
        hoverColumn(1);
        return true;
    case 0:
        return hoverLetter(static_cast<char32_t>(keyCode.character));
    default:
        return false;
    }
}

/// The next entry that can be chosen, round the end.
void MenuList::hoverNext(int32_t from, int32_t direction) {
    int32_t index = from;
    for (int32_t tries = 0; tries < count(); ++tries) {
        index += direction;
        if (index < 0 || index >= count())
            index = direction > 0 ? 0 : count() - 1;
        if (!isSelectable(index))
            continue;
        hoverByKey(index);
        return;
    }
}

/// The same row of the column beside, else the nearest entry above it there.
void MenuList::hoverColumn(int32_t direction) {
    if (hovered_ < 0) {
        hoverNext(-1, 1);
        return;
    }
    const int32_t column = hovered_ / rowsPerColumn_ + direction;
    if (column < 0 || column >= columns_)
        return;
    const int32_t first = column * rowsPerColumn_;
    int32_t index = std::min(first + hovered_ % rowsPerColumn_, count() - 1);
    while (index >= first && !isSelectable(index))
        --index;
    if (index >= first)
        hoverByKey(index);
}

bool MenuList::hoverLetter(char32_t letter) {
    for (int32_t tries = 1; tries <= count(); ++tries) {
        const int32_t index = (std::max(hovered_, -1) + tries) % count();
        std::string_view title = entry(index).title;
        if (!isSelectable(index) || title.empty() ||
            pedl::smallLetter(pedl::takeAnyCharacter(title)) != pedl::smallLetter(letter))
            continue;
        hoverByKey(index);
        return true;
    }
    return false;
}

void MenuList::hoverByKey(int32_t index) {
    const int32_t row = index % rowsPerColumn_;
    // The outermost rows are covered by the marks that tell of more.
    if (canScroll() && (row <= firstRow_ || row >= firstRow_ + shownRows_ - 1))
        scrollTo(row - shownRows_ / 2);
    hover(index);
}

void MenuList::hover(int32_t index) {
    if (hovered_ == index)
        return;
    hovered_ = index;
    needsRedraw_ = true;
}

void MenuList::scrollTo(int32_t firstRow) {
    const int32_t row = std::clamp(firstRow, 0, rowsPerColumn_ - shownRows_);
    needsRedraw_ |= row != firstRow_;
    firstRow_ = row;
}

void MenuList::end(Outcome outcome) {
    if (outcome_ == Outcome::Open)
        outcome_ = outcome;
}

// Drawing

void MenuList::draw(CDrawContext& context) {
    needsRedraw_ = false;
    const CRect whole(CPoint(0, 0), size_);
    context.setFillColor(OverlayColors::kPanel);
    context.drawRect(whole, kDrawFilled);
    context.setFont(font_);
    for (int32_t i = 0; i < count(); ++i)
        if (!entryArea(i).isEmpty())
            drawEntry(context, i);
    if (canScroll())
        drawEdges(context);
    context.setLineWidth(1);
    context.setFrameColor(OverlayColors::kFrame);
    context.drawRect(whole, kDrawStroked);
}

void MenuList::drawEntry(CDrawContext& context, int32_t index) {
    const Entry& line = entry(index);
    const CRect row = entryArea(index);
    if (line.isSeparator) {
        const CCoord y = std::floor(row.getCenter().y);
        context.setFillColor(OverlayColors::kFrame);
        context.drawRect(CRect(row.left + 3, y, row.right - 3, y + 1), kDrawFilled);
        return;
    }
    CColor color = line.isTitle        ? OverlayColors::kTitle
                   : line.isSelectable ? OverlayColors::kText
                                       : OverlayColors::kDisabled;
    if (index == hovered_) {
        context.setFillColor(OverlayColors::kSelection);
        context.drawRect(row, kDrawFilled);
        color = OverlayColors::kSelectedText;
    }
    if (line.isChecked)
        drawCheckMark(context, row, color);
    CRect text = row;
    text.left += line.isTitle ? 4 : kMarkWidthPixels; // a heading stands out to the left
    context.setFontColor(color);
    context.drawString(line.title.c_str(), text, kLeftText, true);
}

void MenuList::drawEdges(CDrawContext& context) {
    CRect strip(kFramePixels, kFramePixels, size_.x - kFramePixels, kFramePixels + rowHeight_);
    if (firstRow_ > 0)
        drawMoreMark(context, strip, -1);
    strip.moveTo(kFramePixels, size_.y - kFramePixels - rowHeight_);
    if (firstRow_ + shownRows_ < rowsPerColumn_)
        drawMoreMark(context, strip, 1);
}

} // namespace VSTGUI
