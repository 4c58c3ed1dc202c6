#include "vstgui/lib/platform/common/framefilelist.h"

#include <dirent.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>

#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/controls/ctextedit.h"
#include "vstgui/lib/platform/common/textline.h"
#include "vstgui/lib/platform/common/utf8.h"

namespace VSTGUI {

namespace {

/// More than a folder of presets ever has, few enough to be read between two frames.
constexpr std::size_t kMaxEntries = 4000;

constexpr CCoord kWidth = 400, kHeight = 340; // less in a small frame
constexpr CCoord kMargin = 8;
constexpr CCoord kRowHeight = 16;
constexpr CCoord kButtonWidth = 64, kButtonHeight = 20;
constexpr CCoord kScrollBarWidth = 6;
constexpr CCoord kLeastBarPixels = 16;

constexpr CColor kPanelColor(44, 44, 42, 255);
constexpr CColor kListColor(30, 30, 28, 255);
constexpr CColor kFrameColor(110, 110, 104, 255);
constexpr CColor kTextColor(228, 228, 222, 255);
constexpr CColor kSelectionColor(70, 110, 170, 255);
constexpr CColor kWarningColor(240, 190, 90, 255);

enum Tag : int32_t { kUp, kCancel, kAccept, kName };

std::string joined(const std::string& directory, const std::string& name) {
    return directory == "/" ? directory + name : directory + "/" + name;
}

std::string parentOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

bool isDirectory(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool exists(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0;
}

/// A file's name may hold anything: what it shows is one line.
std::string shown(const std::string& name) {
    TextLine line(name.size());
    line.setText(name);
    return line.text();
}

std::string inSmallLetters(const std::string& name) {
    std::string folded;
    for (std::size_t place = 0; place < name.size();)
        folded += utf8FromCharacter(smallLetter(nextCharacter(name, place)));
    return folded;
}

/// A button with a word on it.
class WordButton : public CControl {
public:
    WordButton(const CRect& viewSize, CControlListener* controlListener, int32_t controlTag,
               UTF8StringPtr word)
        : CControl(viewSize, controlListener, controlTag), word_(word) {}

    void setWord(UTF8StringPtr word) {
        word_ = word;
        setDirty();
    }

    void draw(CDrawContext* context) override {
        context->setFillColor(pressed_ ? kSelectionColor : kListColor);
        context->drawRect(size, kDrawFilled);
        context->setFrameColor(kFrameColor);
        context->setLineWidth(1);
        context->drawRect(size, kDrawStroked);
        context->setFont(kNormalFontSmall);
        context->setFontColor(kTextColor);
        context->drawString(word_, size, kCenterText, true);
        setDirty(false);
    }

    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override {
        return buttons.isLeftButton() ? onMouseMoved(where, buttons) : kMouseEventNotHandled;
    }

    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override {
        if (!buttons.isLeftButton())
            return kMouseEventNotHandled;
        pressed_ = size.pointInside(where);
        invalid();
        return kMouseEventHandled;
    }

    CMouseEventResult onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) override {
        const bool wasPressed = pressed_;
        pressed_ = false;
        invalid();
        if (wasPressed)
            valueChanged();
        return kMouseEventHandled;
    }
    CLASS_METHODS_NOCOPY(WordButton, CControl)

private:
    UTF8StringPtr word_;
    bool pressed_ = false;
};

/// The names of a folder. Double-click and selection are told to the listener: value 1 and 0.
class NameList : public CControl {
public:
    NameList(const CRect& viewSize, CControlListener* controlListener)
        : CControl(viewSize, controlListener) {}

    void setEntries(std::vector<FileListEntry> entries) {
        entries_ = std::move(entries);
        selected_ = -1;
        firstRow_ = 0;
        setDirty();
    }

    const FileListEntry* selectedEntry() const {
        return selected_ < 0 ? nullptr : &entries_[static_cast<std::size_t>(selected_)];
    }

    void select(int32_t index) {
        if (count() == 0)
            return;
        selected_ = std::clamp(index, 0, count() - 1);
        scrollTo(std::clamp(firstRow_, selected_ - rows() + 1, selected_));
        setDirty();
        tell(0.0F);
    }

    bool useKey(const VstKeyCode& keyCode) {
        switch (keyCode.virt) {
        case VKEY_UP:
            select(selected_ - 1);
            return true;
        case VKEY_DOWN:
            select(selected_ + 1);
            return true;
        case VKEY_PAGEUP:
            select(selected_ - rows());
            return true;
        case VKEY_PAGEDOWN:
            select(selected_ + rows());
            return true;
        case VKEY_HOME:
            select(0);
            return true;
        case VKEY_END:
            select(count() - 1);
            return true;
        case 0:
            return selectLetter(static_cast<char32_t>(keyCode.character));
        default:
            return false;
        }
    }

    void draw(CDrawContext* context) override {
        context->setFillColor(kListColor);
        context->drawRect(size, kDrawFilled);
        context->setFont(kNormalFontSmall);
        const int32_t last = std::min(count(), firstRow_ + rows());
        for (int32_t i = firstRow_; i < last; ++i)
            drawRow(context, i);
        if (count() > rows())
            drawScrollBar(context);
        context->setFrameColor(kFrameColor);
        context->setLineWidth(1);
        context->drawRect(size, kDrawStroked);
        setDirty(false);
    }

    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override {
        if (!buttons.isLeftButton())
            return kMouseEventNotHandled;
        if (where.x >= size.right - kScrollBarWidth && count() > rows()) {
            onMouseMoved(where, buttons);
            return kMouseEventHandled;
        }
        const int32_t index =
            firstRow_ + static_cast<int32_t>(std::floor((where.y - size.top - 1) / kRowHeight));
        if (index < 0 || index >= count())
            return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
        const bool isSecond = buttons.isDoubleClick() && index == selected_;
        select(index);
        if (isSecond)
            tell(1.0F);
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    }

    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override {
        if (!buttons.isLeftButton())
            return kMouseEventNotHandled;
        const double along = (where.y - size.top) / getHeight();
        scrollTo(static_cast<int32_t>(along * count()) - rows() / 2);
        return kMouseEventHandled;
    }

    bool onWheel(const CPoint& /*where*/, const float& distance,
                 const CButtonState& /*buttons*/) override {
        constexpr int32_t kRowsPerNotch = 3;
        scrollTo(firstRow_ + (distance > 0 ? -kRowsPerNotch : kRowsPerNotch));
        return true;
    }
    CLASS_METHODS_NOCOPY(NameList, CControl)

private:
    int32_t count() const { return static_cast<int32_t>(entries_.size()); }
    int32_t rows() const { return static_cast<int32_t>((getHeight() - 2) / kRowHeight); }

    void tell(float message) {
        value = message;
        valueChanged();
    }

    void scrollTo(int32_t row) {
        firstRow_ = std::clamp(row, 0, std::max(0, count() - rows()));
        setDirty();
    }

    bool selectLetter(char32_t letter) {
        for (int32_t tries = 1; tries <= count(); ++tries) {
            const int32_t index = (std::max(selected_, -1) + tries) % count();
            std::size_t place = 0;
            const std::string& name = entries_[static_cast<std::size_t>(index)].name;
            if (smallLetter(nextCharacter(name, place)) != smallLetter(letter))
                continue;
            select(index);
            return true;
        }
        return false;
    }

    void drawRow(CDrawContext* context, int32_t index) const {
        const FileListEntry& entry = entries_[static_cast<std::size_t>(index)];
        CRect row(CPoint(size.left + 1, size.top + 1 + (index - firstRow_) * kRowHeight),
                  CPoint(getWidth() - 2, kRowHeight));
        if (index == selected_) {
            context->setFillColor(kSelectionColor);
            context->drawRect(row, kDrawFilled);
        }
        row.left += 5;
        row.right -= kScrollBarWidth + 2;
        context->setFontColor(kTextColor);
        const std::string name = shown(entry.name) + (entry.isDirectory ? "/" : "");
        context->drawString(name.c_str(), row, kLeftText, true);
    }

    void drawScrollBar(CDrawContext* context) const {
        const CCoord length = std::max(kLeastBarPixels, getHeight() * rows() / count());
        const CCoord way = getHeight() - length;
        const CCoord top = size.top + way * firstRow_ / (count() - rows());
        context->setFillColor(kFrameColor);
        context->drawRect(CRect(CPoint(size.right - kScrollBarWidth, std::floor(top)),
                                CPoint(kScrollBarWidth - 1, std::ceil(length))),
                          kDrawFilled);
    }

    std::vector<FileListEntry> entries_;
    int32_t selected_ = -1;
    int32_t firstRow_ = 0;
};

/// The whole dialog.
class FileListView : public CViewContainer, public CControlListener {
public:
    FileListView(const CRect& viewSize, const FileDialogRequest& request);

    bool hasEnded() const { return ended_; }
    const std::string& chosenPath() const { return chosenPath_; }
    void focusName();

    void drawRect(CDrawContext* context, const CRect& updateRect) override {
        CViewContainer::drawRect(context, updateRect);
        context->setFrameColor(kFrameColor);
        context->setLineWidth(1);
        context->drawRect(size, kDrawStroked);
    }
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    CMessageResult notify(CBaseObject* sender, IdStringPtr message) override;
    void valueChanged(CControl* control) override;
    CLASS_METHODS_NOCOPY(FileListView, CViewContainer)

private:
    bool isSaving() const { return request_.kind == FileDialogRequest::Kind::SaveFile; }
    CTextLabel* addLabel(const CRect& area, const std::string& text);
    WordButton* addButton(CCoord right, CCoord top, Tag tag, UTF8StringPtr word);
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

FileListView::FileListView(const CRect& viewSize, const FileDialogRequest& request)
    : CViewContainer(viewSize), request_(request) {
    setBackgroundColor(kPanelColor);
    setWantsFocus(true);
    const CCoord right = getWidth() - kMargin;
    CCoord top = kMargin;
    addLabel(CRect(kMargin, top, right, top + kRowHeight), shown(request.title))
        ->setHoriAlign(kCenterText);
    top += kRowHeight + 4;
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
        name_->setBackColor(kListColor);
        name_->setFrameColor(kFrameColor);
        addView(name_);
    }
    const CCoord cancelLeft = right - 2 * kButtonWidth - kMargin;
    message_ = addLabel(CRect(kMargin, buttonsTop, cancelLeft - 4, buttonsTop + kButtonHeight), "");
    message_->setFontColor(kWarningColor);
    addButton(right - kButtonWidth - kMargin, buttonsTop, kCancel, "Cancel");
    acceptButton_ = addButton(right, buttonsTop, kAccept, "");
    open(startDirectory(request.directory));
}

CTextLabel* FileListView::addLabel(const CRect& area, const std::string& text) {
    auto* label = new CTextLabel(area, text.c_str());
    label->setFont(kNormalFontSmall);
    label->setFontColor(kTextColor);
    label->setHoriAlign(kLeftText);
    label->setTransparency(true);
    addView(label);
    return label;
}

WordButton* FileListView::addButton(CCoord right, CCoord top, Tag tag, UTF8StringPtr word) {
    const CRect area(right - kButtonWidth, top, right, top + kButtonHeight);
    auto* button = new WordButton(area, this, tag, word);
    addView(button);
    return button;
}

void FileListView::focusName() {
    if (name_ && getFrame())
        getFrame()->setFocusView(name_);
}

void FileListView::open(const std::string& directory) {
    directory_ = directory;
    place_->setText(shown(directory).c_str());
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
        open(joined(directory_, entry->name));
    else if (wantsDirectory)
        end(directory_); // nothing is selected: the one that is shown
    else if (isSaving())
        acceptName();
    else if (entry)
        end(joined(directory_, entry->name));
}

void FileListView::acceptName() {
    const std::string name = name_ ? name_->getText() : "";
    if (name.empty()) {
        say("Type a name first");
        return;
    }
    const std::string wanted = name[0] == '/' ? name : joined(directory_, name);
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

class FrameFileList : public FileDialogBackend {
public:
    ~FrameFileList() override;
    bool start(const FileDialogRequest& request) override;
    State poll(std::vector<std::string>& paths) override;

private:
    FileListView* view_ = nullptr; // ours, in and out of the frame
};

bool FrameFileList::start(const FileDialogRequest& request) {
    CFrame* frame = request.frame;
    if (!frame || !frame->getPlatformFrame() || frame->getModalView())
        return false;
    CRect area(CPoint(0, 0), frame->getViewSize().getSize());
    const CCoord width = std::min(kWidth, area.width() - 2 * kMargin);
    const CCoord height = std::min(kHeight, area.height() - 2 * kMargin);
    area = CRect(
        CPoint(std::floor((area.width() - width) / 2), std::floor((area.height() - height) / 2)),
        CPoint(width, height));
    view_ = new FileListView(area, request);
    if (!frame->setModalView(view_))
        return false;
    view_->focusName();
    return true;
}

FileDialogBackend::State FrameFileList::poll(std::vector<std::string>& paths) {
    if (!view_->isAttached()) // someone else ended the modal view
        return State::Ended;
    if (!view_->hasEnded())
        return State::Open;
    if (!view_->chosenPath().empty())
        paths.push_back(view_->chosenPath());
    return State::Ended;
}

FrameFileList::~FrameFileList() {
    if (!view_)
        return;
    CFrame* frame = view_->getFrame();
    if (frame && frame->getModalView() == view_)
        frame->setModalView(nullptr);
    view_->forget();
}

} // namespace

std::string startDirectory(const std::string& wanted) {
    if (char* resolved = wanted.empty() ? nullptr : realpath(wanted.c_str(), nullptr)) {
        std::string path = resolved;
        free(resolved);
        if (isDirectory(path))
            return path;
    }
    const char* home = getenv("HOME");
    return home && home[0] == '/' && isDirectory(home) ? home : "/";
}

std::vector<FileListEntry> readFileList(const FileDialogRequest& request, const std::string& path) {
    DIR* directory = opendir(path.c_str());
    if (!directory)
        return {};
    using Line = std::pair<std::string, FileListEntry>; // by what it is sorted, and what it is
    std::vector<Line> lines;
    std::size_t seen = 0;
    while (const dirent* file = readdir(directory)) {
        if (file->d_name[0] == '.')
            continue;
        if (++seen > kMaxEntries)
            break;
        const std::string name = file->d_name;
        // Asked for only where the listing does not say: on a slow disk each question costs.
        const bool isKnown = file->d_type != DT_UNKNOWN && file->d_type != DT_LNK;
        const bool isFolder = isKnown ? file->d_type == DT_DIR : isDirectory(joined(path, name));
        const bool wantsFiles = request.kind != FileDialogRequest::Kind::ChooseDirectory;
        if (isFolder || (wantsFiles && matchesTypes(request, name)))
            lines.push_back({(isFolder ? "0" : "1") + inSmallLetters(name), {name, isFolder}});
    }
    closedir(directory);
    std::sort(lines.begin(), lines.end(),
              [](const Line& a, const Line& b) { return a.first < b.first; });
    std::vector<FileListEntry> entries;
    for (Line& line : lines)
        entries.push_back(std::move(line.second));
    return entries;
}

std::unique_ptr<FileDialogBackend> createFrameFileList() {
    return std::make_unique<FrameFileList>();
}

} // namespace VSTGUI
