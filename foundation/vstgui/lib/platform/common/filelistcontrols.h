#pragma once

#include <string>
#include <vector>

#include "vstgui/lib/controls/ccontrol.h"
#include "vstgui/lib/platform/common/filelisting.h"

namespace VSTGUI {

/// A button with a word on it, told to the listener when it is let go over the button.
class WordButton : public CControl {
public:
    /// @param word  kept as it is: a literal
    WordButton(const CRect& viewSize, CControlListener* controlListener, int32_t controlTag,
               UTF8StringPtr word);

    void setWord(UTF8StringPtr word);

    void draw(CDrawContext* context) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CLASS_METHODS_NOCOPY(WordButton, CControl)

private:
    UTF8StringPtr word_;
    bool pressed_ = false;
};

/// The names of a folder. Double-click and selection are told to the listener: value 1 and 0.
class NameList : public CControl {
public:
    NameList(const CRect& viewSize, CControlListener* controlListener);

    /// Shows them from the first one, none selected.
    void setEntries(std::vector<FileListEntry> entries);
    /// Null while nothing is selected.
    const FileListEntry* selectedEntry() const;
    /// Selects the nearest there is, scrolls to it and tells the listener.
    void select(int32_t index);
    /// Arrows, Page, Home and End move the selection; a letter goes to the next name that begins
    /// with it. @return whether the key was one of these
    bool useKey(const VstKeyCode& keyCode);

    void draw(CDrawContext* context) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    bool onWheel(const CPoint& where, const float& distance, const CButtonState& buttons) override;
    CLASS_METHODS_NOCOPY(NameList, CControl)

private:
    int32_t count() const { return static_cast<int32_t>(entries_.size()); }
    int32_t rows() const;
    void tell(float message);
    void scrollTo(int32_t row);
    bool selectLetter(char32_t letter);
    void drawRow(CDrawContext* context, int32_t index) const;
    void drawScrollBar(CDrawContext* context) const;

    std::vector<FileListEntry> entries_;
    int32_t selected_ = -1;
    int32_t firstRow_ = 0;
};

} // namespace VSTGUI
