#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/foundation/vstgui/FileDelegate.h"
#include "tests/foundation/vstgui/ToolkitWindow.h"
#include "tests/support/TemporaryFolder.h"
#include "vstgui/lib/controls/ctextlabel.h"
#include "vstgui/lib/platform/common/filedialogbackend.h"
#include "vstgui/lib/platform/common/filelisting.h"
#include "vstgui/lib/platform/common/framefilelist.h"

namespace VSTGUI {
namespace {

namespace fs = std::filesystem;
using Paths = std::vector<std::string>;

/// A folder with what is found in a musician's.
class TestFolder {
public:
    TestFolder() {
        for (const char* folder : {"sub", "sub/deep", ".hidden"})
            fs::create_directory(folder_ / folder);
        for (const char* file : {"Lead.zmt", "bass it's \"new\".ZMT", "\u00fcber.zmt", "notes.txt",
                                 ".secret.zmt", "sub/pad.zmt", "new\nline.zmt"})
            pedl::test::writeText(folder_ / file, "x");
    }
    std::string path(const std::string& name = {}) const {
        return name.empty() ? folder_.path() : folder_ / name;
    }

private:
    pedl::test::TemporaryFolder folder_;
};

/// A window in which a file is asked for.
class AskingWindow : public ToolkitWindow {
public:
    AskingWindow() {
        setFileDialogFactory([](int32_t) { return std::unique_ptr<FileDialogBackend>(); });
        theFrame().setSize(300, 260);
        turn();
    }
    ~AskingWindow() override {
        close();
        setFileDialogFactory(nullptr);
        delegate->forget();
    }

    /// As the editor does: the selector is forgotten at once.
    bool ask(CNewFileSelector::Style style, const std::string& directory,
             UTF8StringPtr saveName = nullptr) {
        CNewFileSelector* selector = CNewFileSelector::create(frame, style);
        selector->setTitle("Load preset");
        selector->setInitialDirectory(directory.c_str());
        selector->setDefaultSaveName(saveName);
        selector->setDefaultExtension(CFileExtension("Presets", "zmt"));
        const bool runs = selector->run(delegate);
        selector->forget();
        turn();
        return runs;
    }

    void turn() {
        clock.advance(20);
        window().turn();
        clock.advance(20);
        window().turn();
    }
    bool isAsking() { return theFrame().getModalView() != nullptr; }
    void press(VstVirtualKey key) {
        window().keyDown(key);
        turn();
    }
    void click(CPoint where, int32_t buttons = kLButton) {
        window().mouseDown(where.x, where.y, buttons);
        window().mouseUp(where.x, where.y);
        turn();
    }
    CPoint inDialog(CCoord fromLeft, CCoord fromTop) {
        return theFrame().getModalView()->getViewSize().getTopLeft() + CPoint(fromLeft, fromTop);
    }
    CPoint row(int index) { return inDialog(30, 60 + 16 * index); }
    CPoint acceptButton() {
        return theFrame().getModalView()->getViewSize().getBottomRight() - CPoint(40, 18);
    }
    CPoint cancelButton() { return acceptButton() - CPoint(72, 0); }

    FileDelegate* delegate = new FileDelegate;
};

TEST(FileList, HasFoldersFirstThenFilesOfTheTypesWithoutHiddenOnes) {
    const TestFolder folder;
    const auto names = [&](FileDialogRequest::Kind kind, std::vector<std::string> extensions) {
        FileDialogRequest request;
        request.kind = kind;
        for (const std::string& extension : extensions)
            request.types.push_back({"", extension});
        std::string text;
        for (const FileListEntry& entry : readFileList(request, folder.path()))
            text += entry.name + (entry.isDirectory ? "/;" : ";");
        return text;
    };
    using Kind = FileDialogRequest::Kind;
    const std::string presets = "bass it's \"new\".ZMT;Lead.zmt;new\nline.zmt;";
    EXPECT_EQ(names(Kind::OpenFile, {"zmt"}), "sub/;" + presets + "\u00fcber.zmt;");
    EXPECT_EQ(names(Kind::OpenFile, {"zmt", "txt"}),
              "sub/;" + presets + "notes.txt;\u00fcber.zmt;");
    EXPECT_EQ(names(Kind::OpenFile, {}), "sub/;" + presets + "notes.txt;\u00fcber.zmt;");
    EXPECT_EQ(names(Kind::ChooseDirectory, {}), "sub/;");
    EXPECT_TRUE(readFileList({}, folder.path("none")).empty());
}

TEST(FileSelector, OpensAfterTheButtonIsLetGoAndSendsTheChoice) {
    const TestFolder folder;
    AskingWindow w;
    ScriptedControl* button = w.add("load", CRect(10, 10, 20, 20));
    button->script["down"] = [&] {
        EXPECT_TRUE(w.ask(CNewFileSelector::kSelectFile, folder.path()));
        EXPECT_FALSE(w.ask(CNewFileSelector::kSelectFile, folder.path())) << "one at a time";
    };
    w.window().mouseDown(15, 15, kLButton);
    w.turn();
    EXPECT_FALSE(w.isAsking());
    w.window().mouseUp(15, 15);
    w.turn();
    ASSERT_TRUE(w.isAsking());
    w.click(w.row(1), kLButton);
    EXPECT_EQ(w.delegate->ends, 0);
    w.click(w.row(1), kLButton | kDoubleClick);
    EXPECT_FALSE(w.isAsking());
    EXPECT_EQ(w.delegate->paths, Paths{folder.path("bass it's \"new\".ZMT")});
    EXPECT_EQ(w.delegate->getNbReference(), 1) << "given back";
    EXPECT_EQ(w.theFrame().getNbViews(), 1) << "nothing is left in the frame";
}

TEST(FileSelector, IsDrivenByKeys) {
    const TestFolder folder;
    AskingWindow w;
    w.ask(CNewFileSelector::kSelectFile, folder.path());
    w.press(VKEY_DOWN);
    w.press(VKEY_RETURN); // into the folder
    w.press(VKEY_END);
    w.press(VKEY_RETURN);
    EXPECT_EQ(w.delegate->paths, Paths{folder.path("sub/pad.zmt")});

    w.ask(CNewFileSelector::kSelectFile, folder.path("sub/deep"));
    w.press(VKEY_BACK);
    w.press(VKEY_BACK);
    w.window().typeText("l");
    w.press(VKEY_RETURN);
    EXPECT_EQ(w.delegate->paths, Paths{folder.path("Lead.zmt")});

    w.ask(CNewFileSelector::kSelectDirectory, folder.path("sub"));
    w.press(VKEY_RETURN);
    EXPECT_EQ(w.delegate->paths, Paths{folder.path("sub")});
}

TEST(FileSelector, EndsWithoutAChoice) {
    const TestFolder folder;
    const std::function<void(AskingWindow&)> ways[] = {
        [](AskingWindow& w) { w.press(VKEY_ESCAPE); },
        [](AskingWindow& w) { w.click(w.cancelButton()); },
        [](AskingWindow& w) { w.theFrame().setModalView(nullptr); },
    };
    for (const auto& way : ways) {
        AskingWindow w;
        w.ask(CNewFileSelector::kSelectFile, folder.path());
        way(w);
        w.turn();
        EXPECT_EQ(w.delegate->ends, 1);
        EXPECT_TRUE(w.delegate->paths.empty());
        EXPECT_EQ(w.theFrame().getNbViews(), 0);
    }
}

TEST(FileSelector, EndsSilentlyWithTheFrameAndByCancel) {
    const TestFolder folder;
    for (const bool isOpen : {false, true}) {
        AskingWindow w;
        CNewFileSelector* selector = CNewFileSelector::create(&w.theFrame());
        selector->run(w.delegate);
        if (isOpen)
            w.turn();
        EXPECT_EQ(w.isAsking(), isOpen);
        EXPECT_FALSE(selector->runModal());
        selector->cancel();
        EXPECT_FALSE(w.isAsking());
        selector->run(w.delegate);
        if (isOpen)
            w.turn();
        selector->forget();
        w.close();
        EXPECT_EQ(w.delegate->ends, 0);
        EXPECT_EQ(w.delegate->getNbReference(), 1);
    }
}

TEST(FileSelector, SavesUnderATypedNameWithTheExtension) {
    const TestFolder folder;
    struct Row {
        const char *typed, *path;
    };
    for (const Row row : {Row{"fresh", "fresh.zmt"},
                          {"fresh.ZMT", "fresh.ZMT"},
                          {"a b.c", "a b.c.zmt"},
                          {"sub/x", "sub/x.zmt"},
                          {"\u00e4", "\u00e4.zmt"}}) {
        AskingWindow w;
        w.ask(CNewFileSelector::kSelectSaveFile, folder.path(), "proposed");
        w.window().typeText(row.typed); // the field is open, the proposal selected
        w.press(VKEY_RETURN);
        EXPECT_EQ(w.delegate->paths, Paths{folder.path(row.path)});
    }
    AskingWindow w;
    w.ask(CNewFileSelector::kSelectSaveFile, folder.path(), "proposed");
    w.click(w.acceptButton());
    EXPECT_EQ(w.delegate->paths, Paths{folder.path("proposed.zmt")});
}

TEST(FileSelector, AsksBeforeAFileIsReplaced) {
    const TestFolder folder;
    AskingWindow w;
    w.ask(CNewFileSelector::kSelectSaveFile, folder.path(), "Lead");
    w.click(w.acceptButton());
    ASSERT_TRUE(w.isAsking());
    w.click(w.row(3)); // another name: the agreement is void
    w.click(w.acceptButton());
    ASSERT_TRUE(w.isAsking());
    w.click(w.acceptButton());
    EXPECT_EQ(w.delegate->paths, Paths{folder.path("new\nline.zmt")});

    w.ask(CNewFileSelector::kSelectSaveFile, folder.path(), "nowhere/x");
    w.press(VKEY_RETURN);
    EXPECT_TRUE(w.isAsking()) << "no such folder";
}

/// A dialog of the system, as the tests want it.
struct FakeDialog : public FileDialogBackend {
    explicit FakeDialog(std::string w) : way(std::move(w)) {}
    ~FakeDialog() override { log().add(way + " gone"); }
    bool start(const FileDialogRequest& request) override {
        log().add(way + " starts " + request.title);
        return way != "refused";
    }
    State poll(std::vector<std::string>& paths) override {
        if (way == "failing")
            return State::Failed;
        paths = {"/a b/c", "/d"};
        return State::Ended;
    }
    static Log& log() {
        static Log log;
        return log;
    }
    std::string way;
};

TEST(FileSelector, TriesTheDialogsOfTheSystemInTheirOrder) {
    AskingWindow w;
    setFileDialogFactory([](int32_t index) -> std::unique_ptr<FileDialogBackend> {
        const char* const ways[] = {"refused", "failing", "good"};
        return index < 3 ? std::make_unique<FakeDialog>(ways[index]) : nullptr;
    });
    w.ask(CNewFileSelector::kSelectFile, "/");
    w.turn();
    w.turn();
    EXPECT_EQ(w.delegate->paths, (Paths{"/a b/c", "/d"}));
    EXPECT_EQ(FakeDialog::log().take(),
              "refused starts Load preset, refused gone, failing starts Load preset, failing gone, "
              "good starts Load preset, good gone");
    setFileDialogFactory([](int32_t index) -> std::unique_ptr<FileDialogBackend> {
        return index < 1 ? std::make_unique<FakeDialog>("failing") : nullptr;
    });
    w.ask(CNewFileSelector::kSelectFile, "/");
    w.turn();
    EXPECT_TRUE(w.isAsking()) << "the list in the frame is always there";
}

} // namespace
} // namespace VSTGUI
