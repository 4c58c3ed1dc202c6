#include "vstgui/lib/controls/coptionmenu.h"

#include <algorithm>
#include <iterator>

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cframe.h"

namespace VSTGUI {

namespace {

/// The bit that `kMultipleCheckStyle` has beyond `kCheckStyle`.
constexpr int32_t kTogglesMarks = kMultipleCheckStyle & ~kCheckStyle;

bool isSelectable(const CMenuItem& item) {
    return item.isEnabled() && !item.isTitle() && !item.isSeparator();
}

} // namespace

CMenuItem::CMenuItem(UTF8StringPtr title, UTF8StringPtr /*keycode*/, int32_t /*keyModifiers*/,
                     CBitmap* /*icon*/, int32_t flags)
    : title_(title ? title : ""), flags_(flags) {
    if (title_ == "-")
        flags_ |= kSeparator;
}

CMenuItem::CMenuItem(UTF8StringPtr title, int32_t tag) : CMenuItem(title) {
    tag_ = tag;
}

CMenuItem::CMenuItem(const CMenuItem& item) = default;

CMenuItem::~CMenuItem() = default;

void CMenuItem::setTitle(UTF8StringPtr title) {
    title_ = title ? title : ""; // "-" is a name here: an entry stays what it was made as
}

void CMenuItem::setEnabled(bool state) {
    setFlag(kDisabled, !state);
}

void CMenuItem::setChecked(bool state) {
    setFlag(kChecked, state);
}

void CMenuItem::setTag(int32_t tag) {
    tag_ = tag;
}

void CMenuItem::setFlag(int32_t flag, bool state) {
    flags_ = state ? flags_ | flag : flags_ & ~flag;
}

COptionMenu::COptionMenu() : COptionMenu(CRect(), nullptr, -1) {}

COptionMenu::COptionMenu(const CRect& viewSize, CControlListener* controlListener,
                         int32_t controlTag, CBitmap* background, CBitmap* bgWhenClick,
                         const int32_t styleBits)
    : CParamDisplay(viewSize, background, styleBits), items_(new CMenuItemList),
      bgWhenClick_(bgWhenClick) {
    listener = controlListener;
    tag = controlTag;
    vmax = 0.0F;
    if (bgWhenClick_)
        bgWhenClick_->remember();
    setWantsFocus(true);
}

COptionMenu::COptionMenu(const COptionMenu& menu)
    : CParamDisplay(menu), items_(new CMenuItemList), bgWhenClick_(menu.bgWhenClick_),
      currentIndex_(menu.currentIndex_), lastResult_(menu.lastResult_),
      nbItemsPerColumn_(menu.nbItemsPerColumn_) {
    if (bgWhenClick_)
        bgWhenClick_->remember();
    for (const CMenuItem* item : *menu.items_)
        items_->push_back(new CMenuItem(*item));
}

COptionMenu::~COptionMenu() {
    dismiss();
    for (CMenuItem* item : *items_)
        item->forget();
    delete items_;
    if (bgWhenClick_)
        bgWhenClick_->forget();
}

CMenuItem* COptionMenu::addEntry(CMenuItem* item, int32_t index) {
    const bool atEnd = index < 0 || index >= getNbEntries();
    items_->insert(atEnd ? items_->end() : std::next(items_->begin(), index), item);
    countChanged();
    return item;
}

CMenuItem* COptionMenu::addEntry(UTF8StringPtr title, int32_t index, int32_t itemFlags) {
    return addEntry(new CMenuItem(title, nullptr, 0, nullptr, itemFlags), index);
}

CMenuItem* COptionMenu::addSeparator(int32_t index) {
    return addEntry(new CMenuItem("", nullptr, 0, nullptr, CMenuItem::kSeparator), index);
}

CMenuItem* COptionMenu::getCurrent() const {
    return getEntry(currentIndex_);
}

int32_t COptionMenu::getCurrentIndex(bool countSeparator) const {
    if (countSeparator || !getCurrent())
        return currentIndex_;
    const auto current = std::next(items_->begin(), currentIndex_);
    const auto separators = std::count_if(
        items_->begin(), current, [](const CMenuItem* item) { return item->isSeparator(); });
    return currentIndex_ - static_cast<int32_t>(separators);
}

CMenuItem* COptionMenu::getEntry(int32_t index) const {
    if (index < 0 || index >= getNbEntries())
        return nullptr;
    return *std::next(items_->begin(), index);
}

int32_t COptionMenu::getNbEntries() const {
    return static_cast<int32_t>(items_->size());
}

/// The title alone: who sets the value chooses, who sets the current entry shows.
bool COptionMenu::setCurrent(int32_t index, bool countSeparator) {
    int32_t position = index;
    if (!countSeparator) {
        position = -1;
        for (int32_t seen = -1; seen < index;)
            if (!getEntry(++position))
                return false;
            else if (!getEntry(position)->isSeparator())
                ++seen;
    }
    const CMenuItem* item = getEntry(position);
    if (!item || item->isSeparator())
        return false;
    currentIndex_ = position;
    setDirty();
    return true;
}

bool COptionMenu::removeEntry(int32_t index) {
    CMenuItem* item = getEntry(index);
    if (!item)
        return false;
    items_->erase(std::next(items_->begin(), index));
    item->forget();
    countChanged();
    return true;
}

bool COptionMenu::removeAllEntry() {
    for (CMenuItem* item : *items_)
        item->forget();
    items_->clear();
    countChanged();
    return true;
}

void COptionMenu::countChanged() {
    vmax = static_cast<float>(std::max(0, getNbEntries() - 1));
    currentIndex_ = std::min(currentIndex_, getNbEntries() - 1);
    value = std::min(value, vmax);
}

bool COptionMenu::checkEntry(int32_t index, bool state) {
    CMenuItem* item = getEntry(index);
    if (!item)
        return false;
    item->setChecked(state);
    return true;
}

bool COptionMenu::checkEntryAlone(int32_t index) {
    int32_t i = 0;
    for (CMenuItem* item : *items_)
        item->setChecked(i++ == index);
    return getEntry(index) != nullptr;
}

bool COptionMenu::isCheckEntry(int32_t index) const {
    const CMenuItem* item = getEntry(index);
    return item && item->isChecked();
}

bool COptionMenu::popup() {
    IPlatformFrame* window = getFrame() ? getFrame()->getPlatformFrame() : nullptr;
    if (platformMenu_ || !window || items_->empty())
        return false;
    // The mark is the value's as long as the entries are not marked one by one.
    if ((style & kCheckStyle) && !(style & kTogglesMarks))
        checkEntryAlone(static_cast<int32_t>(value));
    platformMenu_ = window->createPlatformOptionMenu();
    if (!platformMenu_)
        return false;
    const PlatformOptionMenuResult result = platformMenu_->popup(this);
    if (!result.menu) {
        dismiss();
        return false;
    }
    if (result.index >= 0) { // a menu that waits for the choice
        popupEnded(result.index);
        return true;
    }
    setDirty(); // another background while it is open
    return true;
}

void COptionMenu::popupEnded(int32_t index) {
    const CBaseObjectGuard guard(this); // a listener may take the control away
    // Closed before anything is told: a listener may open it anew.
    if (platformMenu_)
        platformMenu_->forget();
    platformMenu_ = nullptr;
    setDirty();
    if (!getEntry(index)) // -1, or gone while the menu was open
        return;
    lastResult_ = index;
    if (style & kTogglesMarks)
        checkEntry(index, !isCheckEntry(index));
    choose(index);
}

/// All of the edit at once: while the menu was open nothing was held, and hosts wait for the end of
/// what has begun.
void COptionMenu::choose(int32_t index) {
    beginEdit();
    setValue(static_cast<float>(index));
    valueChanged();
    invalid();
    endEdit();
}

void COptionMenu::dismiss() {
    IPlatformOptionMenu* menu = platformMenu_;
    platformMenu_ = nullptr;
    if (!menu)
        return;
    menu->dismiss();
    menu->forget();
    setDirty();
}

void COptionMenu::setValue(float val) {
    if (items_->empty() || !(val >= 0.0F && val <= vmax))
        return; // not clamped: another entry would be as wrong as none
    value = val;
    currentIndex_ = static_cast<int32_t>(val);
    setDirty();
}

// The entries are the range.
void COptionMenu::setMin(float /*val*/) {}

float COptionMenu::getMin() const {
    return 0.0F;
}

void COptionMenu::setMax(float /*val*/) {}

float COptionMenu::getMax() const {
    return vmax;
}

void COptionMenu::draw(CDrawContext* context) {
    drawBack(context, isOpen() ? bgWhenClick_ : nullptr);
    if (const CMenuItem* current = getCurrent())
        drawText(context, current->getTitle());
    setDirty(false);
}

CMouseEventResult COptionMenu::onMouseDown(CPoint& /*where*/, const CButtonState& buttons) {
    if (!getFrame() || (!buttons.isLeftButton() && !buttons.isRightButton()))
        return kMouseEventNotHandled;
    getFrame()->setFocusView(this); // first: an open text field commits before the menu opens
    popup();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

int32_t COptionMenu::onKeyDown(VstKeyCode& keyCode) {
    if (keyCode.modifier != 0)
        return -1;
    switch (keyCode.virt) {
    case VKEY_RETURN:
    case VKEY_ENTER:
        return popup() ? 1 : -1;
    case VKEY_UP:
        return step(-1) ? 1 : -1;
    case VKEY_DOWN:
        return step(1) ? 1 : -1;
    default:
        return -1;
    }
}

/// Over separators, titles and disabled entries; not round the end.
bool COptionMenu::step(int32_t direction) {
    for (int32_t i = static_cast<int32_t>(value) + direction; getEntry(i); i += direction)
        if (isSelectable(*getEntry(i))) {
            choose(i);
            return true;
        }
    return false;
}

void COptionMenu::takeFocus() {
    CParamDisplay::takeFocus();
}

void COptionMenu::looseFocus() {
    dismiss(); // the window went inactive, or something else was chosen to work with
    CParamDisplay::looseFocus();
}

bool COptionMenu::removed(CView* parent) {
    dismiss();
    return CParamDisplay::removed(parent);
}

} // namespace VSTGUI
