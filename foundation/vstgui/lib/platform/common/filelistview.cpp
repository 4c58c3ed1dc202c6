#include "vstgui/lib/platform/common/filelistview.h"

#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/platform/common/overlaycolors.h"
#include "vstgui/lib/platform/common/textline.h"

namespace VSTGUI {

namespace {

constexpr CCoord kMargin = 8;
constexpr CCoord kLineHeight = 16;
constexpr CCoord kButtonWidth = 64, kButtonHeight = 20;

enum Tag : int32_t { kUp, kCancel, kAccept, kName };

} // namespace

FileListView::FileListView(const CRect& viewSize, const FileDialogRequest& request)
    : CViewContainer(viewSize), request_(request) {
    setBackgroundColor(OverlayColors::kPanel);
    setWantsFocus(true);
    const CCoord right = getWidth() - kMargin;
    CCoord top = kMargin;
    addLabel(CRect(kMargin, top, right, top + kLineHeight), oneLine(request.title))
        ->setHoriAlign(kCenterText);
    top += kLineHeight + 4;
    place_ = addLabel(CRect(kMargin, top, right - kButtonWidth - kMargin, top + kButtonHeight), "");
    addButton(right, top, kUp, "Up");
    top += kButtonHeight + 4;

    const CCoord buttonsTop = getHeight() - kMargin - kButtonHeight;
    const CCoord listBottom = buttonsTop - kMargin - (isSaving() ? kButtonHeight + kMargin : 0);
    names_ = new NameList(CRect(kMargin, top, right, listBottom), this);
    addView(names_);
    if (isSaving()) {
        const CCoord nameTop = listBottom + kMargin;
        name_ = new CTextEdit(CRect(kMargin, nameTop, right, nameTop + kButtonHeight), this, kName,
                              request.saveName.c_str());
        name_->setFont(kNormalFontSmall);
        name_->setHoriAlign(kLeftText);
        name_->setTextInset(CPoint(4, 0));
        name_->setBackColor(OverlayColors::kList);
        name_->setFrameColor(OverlayColors::kFrame);
        addView(name_);
    }
    const CCoord cancelLeft = right - 2 * kButtonWidth - kMargin;
    message_ = addLabel(CRect(kMargin, buttonsTop, cancelLeft - 4, buttonsTop + kButtonHeight), "");
    message_->setFontColor(OverlayColors::kWarning);
    addButton(right - kButtonWidth - kMargin, buttonsTop, kCancel, "Cancel");
    acceptButton_ = addButton(right, buttonsTop, kAccept, "");
    open(startDirectory(request.directory));
}

CTextLabel* FileListView::addLabel(const CRect& area, const std::string& text) {
    auto* label = new CTextLabel(area, text.c_str());
    label->setFont(kNormalFontSmall);
    label->setFontColor(OverlayColors::kText);
    label->setHoriAlign(kLeftText);
    label->setTransparency(true);
    addView(label);
    return label;
}

WordButton* FileListView::addButton(CCoord right, CCoord top, int32_t tag, UTF8StringPtr word) {
    const CRect area(right - kButtonWidth, top, right, top + kButtonHeight);
    auto* button = new WordButton(area, this, tag, word);
    addView(button);
    return button;
}

void FileListView::drawRect(CDrawContext* context, const CRect& updateRect) {
    CViewContainer::drawRect(context, updateRect);
    context->setFrameColor(OverlayColors::kFrame);
    context->setLineWidth(1);
    context->drawRect(size, kDrawStroked);
}

void FileListView::focusName() {
    if (name_ && getFrame())
        getFrame()->setFocusView(name_);
}

void FileListView::open(const std::string& directory) {
    directory_ = directory;
    place_->setText(oneLine(directory).c_str());
    names_->setEntries(readFileList(request_, directory));
    say("");
}

void FileListView::say(const std::string& message) {
    agreedPath_.clear();
    message_->setText(message.c_str());
    message_->setDirty();
    acceptButton_->setWord(isSaving() ? "Save" : "Open");
    setDirty(); // the label is transparent: what lies under it is drawn anew
}

void FileListView::selectionChanged() {
    const FileListEntry* entry = names_->selectedEntry();
    if (name_ && entry && !entry->isDirectory)
        name_->setText(entry->name.c_str());
    say("");
}

void FileListView::valueChanged(CControl* control) {
    if (ended_)
        return;
    if (control == names_) {
        if (control->getValue() == 0.0F)
            selectionChanged();
        else
            accept();
        return;
    }
    switch (control->getTag()) {
    case kUp:
        open(parentOf(directory_));
        break;
    case kCancel:
        end("");
        break;
    case kAccept:
        if (isSaving())
            acceptName();
        else
            accept();
        break;
    default: // the name: Return accepts it, see `notify`
        break;
    }
}

CMessageResult FileListView::notify(CBaseObject* sender, IdStringPtr message) {
    if (message != kMsgLooseFocus || sender != name_)
        return CViewContainer::notify(sender, message);
    if (name_->bWasReturnPressed && !ended_)
        acceptName();
    name_->bWasReturnPressed = false;
    return kMessageNotified;
}

int32_t FileListView::onKeyDown(VstKeyCode& keyCode) {
    const bool isWriting = name_ && getFrame() && getFrame()->getFocusView() == name_;
    switch (keyCode.virt) {
    case VKEY_ESCAPE:
        end("");
        return 1;
    case VKEY_UP:
    case VKEY_DOWN:
    case VKEY_PAGEUP:
    case VKEY_PAGEDOWN:
        names_->useKey(keyCode);
        return 1;
    case VKEY_TAB:
        return -1;
    default:
        break;
    }
    if (isWriting)
        return -1;
    if (keyCode.virt == VKEY_RETURN || keyCode.virt == VKEY_ENTER)
        accept();
    else if (keyCode.virt == VKEY_BACK)
        open(parentOf(directory_));
    else if (keyCode.modifier & (MODIFIER_CONTROL | MODIFIER_ALTERNATE))
        return -1;
    else
        names_->useKey(keyCode);
    return 1; // the dialog keeps the keys from the host
}

/// What is selected: a folder is entered, a file chosen.
void FileListView::accept() {
    const bool wantsDirectory = request_.kind == FileDialogRequest::Kind::ChooseDirectory;
    const FileListEntry* entry = names_->selectedEntry();
    if (entry && entry->isDirectory)
        open(joinedPath(directory_, entry->name));
    else if (wantsDirectory)
        end(directory_); // nothing is selected: the one that is shown
    else if (isSaving())
        acceptName();
    else if (entry)
        end(joinedPath(directory_, entry->name));
}

void FileListView::acceptName() {
    const std::string name = name_ ? name_->getText() : "";
    if (name.empty()) {
        say("Type a name first");
        return;
    }
    const std::string wanted = name[0] == '/' ? name : joinedPath(directory_, name);
    if (isDirectory(wanted)) {
        open(startDirectory(wanted));
        name_->setText("");
        return;
    }
    const std::string path = withDefaultExtension(request_, wanted);
    if (!isDirectory(parentOf(path))) {
        say("There is no such folder");
    } else if (exists(path) && agreedPath_ != path) {
        say("This file is there already");
        acceptButton_->setWord("Replace");
        agreedPath_ = path;
    } else {
        end(path);
    }
}

void FileListView::end(const std::string& path) {
    chosenPath_ = path;
    ended_ = true; // seen at the next poll: this may be the end of a view's own event
}

} // namespace VSTGUI
