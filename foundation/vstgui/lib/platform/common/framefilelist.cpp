#include "vstgui/lib/platform/common/framefilelist.h"

#include <algorithm>
#include <cmath>

#include "vstgui/lib/cframe.h"
#include "vstgui/lib/platform/common/filelistview.h"

namespace VSTGUI {

namespace {

constexpr CCoord kWidth = 400, kHeight = 340; // less in a small frame
constexpr CCoord kAroundTheList = 8;

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
    const CCoord width = std::min(kWidth, area.width() - 2 * kAroundTheList);
    const CCoord height = std::min(kHeight, area.height() - 2 * kAroundTheList);
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

std::unique_ptr<FileDialogBackend> createFrameFileList() {
    return std::make_unique<FrameFileList>();
}

} // namespace VSTGUI
