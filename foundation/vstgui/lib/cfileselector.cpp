#include "vstgui/lib/cfileselector.h"

#include <algorithm>
#include <atomic>

#include "vstgui/lib/cframe.h"
#include "vstgui/lib/cvstguitimer.h"
#include "vstgui/lib/platform/common/filedialogbackend.h"
#include "vstgui/lib/platform/common/framefilelist.h"
#include "vstgui/lib/platform/systemplatform.h"

namespace VSTGUI {

IdStringPtr CNewFileSelector::kSelectEndMessage = "a file selector ended";

namespace {

/// A dialog is looked at no oftener than this; the host's idle sets the pace beyond it.
constexpr int32_t kPollMs = 10;

constinit std::atomic<FileDialogFactory> dialogFactory{nullptr}; // null for the system's own

std::string smallLetters(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

bool endsInExtension(const std::string& name, const std::string& extension) {
    const std::string ending = smallLetters("." + extension);
    return name.size() > ending.size() &&
           smallLetters(name.substr(name.size() - ending.size())) == ending;
}

/// Invisible child of a frame while a dialog is open in it: it goes when the frame goes.
class FrameWatch : public CView {
public:
    explicit FrameWatch(CNewFileSelector& selector) : CView(CRect()), selector_(&selector) {
        setVisible(false);
        setMouseEnabled(false);
    }
    void stopWatching() { selector_ = nullptr; }
    bool removed(CView* parent) override {
        if (CNewFileSelector* selector = selector_) {
            selector_ = nullptr;
            selector->cancel();
        }
        return CView::removed(parent);
    }
    CLASS_METHODS_NOCOPY(FrameWatch, CView)

private:
    CNewFileSelector* selector_;
};

bool hasOpenDialog(const CFrame& frame) {
    for (int32_t i = 0; i < frame.getNbViews(); ++i)
        if (frame.getView(i)->isTypeOf("FrameWatch"))
            return true;
    return false;
}

} // namespace

void setFileDialogFactory(FileDialogFactory factory) {
    dialogFactory.store(factory, std::memory_order_relaxed);
}

bool matchesTypes(const FileDialogRequest& request, const std::string& name) {
    return request.types.empty() ||
           std::any_of(request.types.begin(), request.types.end(),
                       [&](const auto& type) { return endsInExtension(name, type.extension); });
}

std::string withDefaultExtension(const FileDialogRequest& request, const std::string& path) {
    if (request.defaultType < 0 || matchesTypes(request, path))
        return path;
    return path + "." + request.types[static_cast<std::size_t>(request.defaultType)].extension;
}

// File types

CFileExtension::CFileExtension(UTF8StringPtr description, UTF8StringPtr extension,
                               UTF8StringPtr /*mimeType*/, int32_t /*macType*/)
    : description_(description ? description : ""), extension_(extension ? extension : "") {}

CFileExtension::CFileExtension(const CFileExtension& ext) = default;

CFileExtension::~CFileExtension() = default;

// The selector

/// What lives from `run` to the end.
struct CNewFileSelector::Dialog : public CBaseObject {
    Dialog(CNewFileSelector& owner, CBaseObject* delegate);
    ~Dialog() override;
    CMessageResult notify(CBaseObject* sender, IdStringPtr message) override;

    static FileDialogRequest requestOf(const CNewFileSelector& owner);
    void goWith(CFrame& frame);
    bool startNext();
    void poll();
    void end(std::vector<std::string> paths);

    CNewFileSelector& selector;
    CBaseObject* delegate; // remembered
    FileDialogRequest request;
    std::unique_ptr<FileDialogBackend> backend;
    int32_t triedSystemDialogs = 0;
    bool hasTriedList = false;
    FrameWatch* watch = nullptr; // remembered
    CVSTGUITimer* timer;
};

CNewFileSelector::Dialog::Dialog(CNewFileSelector& owner, CBaseObject* object)
    : selector(owner), delegate(object), request(requestOf(owner)),
      timer(new CVSTGUITimer(this, kPollMs)) {
    selector.remember();
    delegate->remember();
    if (request.frame)
        goWith(*request.frame);
    else
        timer->start();
}

FileDialogRequest CNewFileSelector::Dialog::requestOf(const CNewFileSelector& owner) {
    FileDialogRequest request;
    request.title = owner.title_;
    request.directory = owner.initialDirectory_;
    request.saveName = owner.defaultSaveName_;
    for (const CFileExtension& type : owner.extensions_)
        request.types.push_back({type.getDescription(), type.getExtension()});
    request.defaultType = owner.defaultExtension_;
    request.frame = owner.frame_;
    switch (owner.style_) {
    case kSelectFile:
        request.kind = owner.severalFiles_ ? FileDialogRequest::Kind::OpenFiles
                                           : FileDialogRequest::Kind::OpenFile;
        break;
    case kSelectSaveFile:
        request.kind = FileDialogRequest::Kind::SaveFile;
        break;
    case kSelectDirectory:
        request.kind = FileDialogRequest::Kind::ChooseDirectory;
        break;
    }
    return request;
}

/// Polled by the frame's editor, whoever asked for the file, and ended with the frame.
void CNewFileSelector::Dialog::goWith(CFrame& frame) {
    const EditorPump::Call call(frame.getPump());
    if (const IPlatformFrame* window = frame.getPlatformFrame())
        request.window = reinterpret_cast<uintptr_t>(window->getPlatformRepresentation());
    watch = new FrameWatch(selector);
    watch->remember();
    frame.addView(watch);
    timer->start();
}

CNewFileSelector::Dialog::~Dialog() {
    timer->forget();
    backend.reset();
    if (watch) {
        watch->stopWatching();
        if (auto* parent = static_cast<CViewContainer*>(watch->getParentView()))
            parent->removeView(watch);
        watch->forget();
    }
    delegate->forget();
    selector.forget();
}

CMessageResult CNewFileSelector::Dialog::notify(CBaseObject* sender, IdStringPtr message) {
    if (sender != timer || message != CVSTGUITimer::kMsgTimer)
        return kMessageUnknown;
    const CBaseObjectGuard guard(this);
    poll();
    return kMessageNotified;
}

void CNewFileSelector::Dialog::poll() {
    if (!backend) {
        // A press asked for this as a rule. While its button is down the window still has the
        // mouse, and no other window would get any of it.
        if (request.frame && request.frame->getCurrentMouseButtons().getButtonState() != 0)
            return;
        if (!startNext())
            end({});
        return;
    }
    std::vector<std::string> paths;
    switch (backend->poll(paths)) {
    case FileDialogBackend::State::Open:
        break;
    case FileDialogBackend::State::Ended:
        end(std::move(paths));
        break;
    case FileDialogBackend::State::Failed:
        backend.reset();
        if (!startNext())
            end({});
        break;
    }
}

/// Opens the first of the ways that are left which works here.
bool CNewFileSelector::Dialog::startNext() {
    const FileDialogFactory set = dialogFactory.load(std::memory_order_relaxed);
    const FileDialogFactory createDialog = set ? set : kSystemPlatform.createFileDialog;
    while (!hasTriedList) {
        backend = createDialog(triedSystemDialogs++);
        if (!backend) {
            hasTriedList = true;
            backend = createFrameFileList();
        }
        if (backend->start(request))
            return true;
    }
    backend.reset();
    return false;
}

void CNewFileSelector::Dialog::end(std::vector<std::string> paths) {
    const CBaseObjectGuard heldSelector(&selector), heldDelegate(delegate);
    CNewFileSelector& owner = selector;
    CBaseObject* receiver = delegate;
    owner.selectedFiles_ = std::move(paths);
    // The dialog closes first: the delegate may open another one.
    owner.closeDialog();
    receiver->notify(&owner, kSelectEndMessage);
}

CNewFileSelector* CNewFileSelector::create(CFrame* parent, Style style) {
    auto* selector = new CNewFileSelector(parent);
    selector->style_ = style;
    return selector;
}

CNewFileSelector::CNewFileSelector(CFrame* frame) : frame_(frame) {}

CNewFileSelector::~CNewFileSelector() = default;

bool CNewFileSelector::run(CBaseObject* delegate) {
    // A second dialog over the first would wait for it, unseen.
    if (!delegate || dialog_ || (frame_ && hasOpenDialog(*frame_)))
        return false;
    selectedFiles_.clear();
    dialog_ = new Dialog(*this, delegate);
    return true;
}

void CNewFileSelector::cancel() {
    closeDialog();
}

void CNewFileSelector::closeDialog() {
    Dialog* dialog = dialog_;
    dialog_ = nullptr;
    if (dialog)
        dialog->forget(); // and with it the reference that holds this object
}

bool CNewFileSelector::runModal() {
    return false;
}

void CNewFileSelector::setTitle(UTF8StringPtr title) {
    title_ = title ? title : "";
}

void CNewFileSelector::setInitialDirectory(UTF8StringPtr path) {
    initialDirectory_ = path ? path : "";
}

void CNewFileSelector::setDefaultSaveName(UTF8StringPtr name) {
    defaultSaveName_ = name ? name : "";
}

void CNewFileSelector::setDefaultExtension(const CFileExtension& extension) {
    if (defaultExtension_ >= 0)
        return;
    const auto same = [&](const CFileExtension& other) {
        return std::strcmp(other.getExtension(), extension.getExtension()) == 0;
    };
    const auto known = std::find_if(extensions_.begin(), extensions_.end(), same);
    defaultExtension_ = static_cast<int32_t>(known - extensions_.begin());
    if (known == extensions_.end())
        extensions_.push_back(extension);
}

void CNewFileSelector::setAllowMultiFileSelection(bool state) {
    severalFiles_ = state;
}

void CNewFileSelector::addFileExtension(const CFileExtension& extension) {
    extensions_.push_back(extension);
}

int32_t CNewFileSelector::getNumSelectedFiles() const {
    return static_cast<int32_t>(selectedFiles_.size());
}

UTF8StringPtr CNewFileSelector::getSelectedFile(uint32_t index) const {
    return index < selectedFiles_.size() ? selectedFiles_[index].c_str() : nullptr;
}

} // namespace VSTGUI
