#pragma once

#include <string>

#include "vstgui/lib/controls/ctextedit.h"
#include "vstgui/lib/cviewcontainer.h"
#include "vstgui/lib/platform/common/filelistcontrols.h"

namespace VSTGUI {

/// The file dialog as a view: where it is, the names there, one to be written when saving, buttons.
///
/// It ends inside an event of its own views, so nothing is told: whoever made it asks `hasEnded`.
class FileListView : public CViewContainer, public CControlListener {
public:
    /// @param request  must outlive the view
    FileListView(const CRect& viewSize, const FileDialogRequest& request);

    bool hasEnded() const { return ended_; }
    /// Empty when cancelled.
    const std::string& chosenPath() const { return chosenPath_; }
    /// Lets the user write at once, when saving.
    void focusName();

    void drawRect(CDrawContext* context, const CRect& updateRect) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    CMessageResult notify(CBaseObject* sender, IdStringPtr message) override;
    void valueChanged(CControl* control) override;
    CLASS_METHODS_NOCOPY(FileListView, CViewContainer)

private:
    bool isSaving() const { return request_.kind == FileDialogRequest::Kind::SaveFile; }
    CTextLabel* addLabel(const CRect& area, const std::string& text);
    WordButton* addButton(CCoord right, CCoord top, int32_t tag, UTF8StringPtr word);
    void open(const std::string& directory);
    void selectionChanged();
    void accept();
    void acceptName();
    void end(const std::string& path);
    void say(const std::string& message);

    const FileDialogRequest& request_;
    std::string directory_;
    std::string agreedPath_; // may be replaced: the user was asked
    std::string chosenPath_;
    bool ended_ = false;
    CTextLabel* place_ = nullptr;
    CTextLabel* message_ = nullptr;
    NameList* names_ = nullptr;
    CTextEdit* name_ = nullptr; // when saving
    WordButton* acceptButton_ = nullptr;
};

} // namespace VSTGUI
