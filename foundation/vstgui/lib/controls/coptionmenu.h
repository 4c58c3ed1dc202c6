#pragma once

#include <list>
#include <string>

#include "vstgui/lib/controls/cparamdisplay.h"
#include "vstgui/lib/platform/iplatformoptionmenu.h"

namespace VSTGUI {

/// One line of a menu. The title "-" makes it a separator.
class CMenuItem : public CBaseObject {
public:
    enum Flags {
        kNoFlags = 0,
        kDisabled = 1 << 0,
        kTitle = 1 << 1,
        kChecked = 1 << 2,
        kSeparator = 1 << 3
    };

    CMenuItem(UTF8StringPtr title, UTF8StringPtr keycode = nullptr, int32_t keyModifiers = 0,
              CBitmap* icon = nullptr, int32_t flags = kNoFlags);
    CMenuItem(UTF8StringPtr title, int32_t tag);
    CMenuItem(const CMenuItem& item);

    virtual void setTitle(UTF8StringPtr title);
    virtual void setEnabled(bool state = true);
    virtual void setChecked(bool state = true);
    virtual void setTag(int32_t tag);
    bool isEnabled() const { return (flags_ & kDisabled) == 0; }
    bool isChecked() const { return (flags_ & kChecked) != 0; }
    bool isTitle() const { return (flags_ & kTitle) != 0; }
    bool isSeparator() const { return (flags_ & kSeparator) != 0; }
    UTF8StringPtr getTitle() const { return title_.c_str(); }
    int32_t getTag() const { return tag_; }
    CLASS_METHODS(CMenuItem, CBaseObject)

protected:
    ~CMenuItem() override;

private:
    void setFlag(int32_t flag, bool state);

    std::string title_;
    int32_t flags_ = kNoFlags;
    int32_t tag_ = 0;
};

class CMenuItemList : public std::list<CMenuItem*> {};

/// A control that opens a menu; its value is the index of the chosen entry, separators counted.
class COptionMenu : public CParamDisplay {
public:
    COptionMenu();
    /// @param bgWhenClick  the background while the menu is open
    COptionMenu(const CRect& size, CControlListener* listener, int32_t tag,
                CBitmap* background = nullptr, CBitmap* bgWhenClick = nullptr,
                const int32_t style = 0);
    COptionMenu(const COptionMenu& menu);
    ~COptionMenu() override;

    virtual CMenuItem* addEntry(CMenuItem* item, int32_t index = -1); // takes over the reference
    virtual CMenuItem* addEntry(UTF8StringPtr title, int32_t index = -1,
                                int32_t itemFlags = CMenuItem::kNoFlags);
    virtual CMenuItem* addSeparator(int32_t index = -1);
    virtual CMenuItem* getCurrent() const;
    virtual int32_t getCurrentIndex(bool countSeparator = false) const;
    virtual CMenuItem* getEntry(int32_t index) const; // null outside
    virtual int32_t getNbEntries() const;
    /// Sets the current entry, not the value.
    virtual bool setCurrent(int32_t index, bool countSeparator = true);
    virtual bool removeEntry(int32_t index);
    virtual bool removeAllEntry();
    virtual bool checkEntry(int32_t index, bool state);
    virtual bool checkEntryAlone(int32_t index); // an index outside clears all marks
    virtual bool isCheckEntry(int32_t index) const;
    virtual void setNbItemsPerColumn(int32_t val) { nbItemsPerColumn_ = val; }
    virtual int32_t getNbItemsPerColumn() const { return nbItemsPerColumn_; }
    int32_t getLastResult() const { return lastResult_; }

    /// Opens the menu and returns at once. The edit, the new value and its message come when an
    /// entry is chosen.
    bool popup();
    /// The menu closed. Called by the platform's menu, -1 for no choice. An addition of this layer.
    void popupEnded(int32_t index);
    bool isOpen() const { return platformMenu_ != nullptr; }

    CMenuItemList* getItems() const { return items_; }
    void setValue(float val) override; // ignored outside the entries
    void setMin(float val) override;
    float getMin() const override;
    void setMax(float val) override;
    float getMax() const override;
    void draw(CDrawContext* context) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    void takeFocus() override;
    void looseFocus() override;
    bool removed(CView* parent) override;
    CLASS_METHODS(COptionMenu, CParamDisplay)

private:
    bool step(int32_t direction);
    void choose(int32_t index);
    void dismiss();
    void countChanged();

    CMenuItemList* items_;
    CBitmap* bgWhenClick_ = nullptr;
    IPlatformOptionMenu* platformMenu_ = nullptr; // while open
    int32_t currentIndex_ = -1;
    int32_t lastResult_ = -1;
    int32_t nbItemsPerColumn_ = -1; // one column
};

} // namespace VSTGUI
