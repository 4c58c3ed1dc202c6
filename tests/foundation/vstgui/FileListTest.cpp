#include <gtest/gtest.h>

#include "tests/foundation/vstgui/FileDelegate.h"
#include "tests/foundation/vstgui/ToolkitWindow.h"
#include "tests/support/TemporaryFolder.h"
#include "vstgui/lib/platform/common/filedialogbackend.h"
#include "vstgui/lib/platform/common/filelisting.h"
#include "vstgui/lib/platform/common/framefilelist.h"

namespace VSTGUI {
namespace {

using Paths = std::vector<std::string>;

/// A folder with what is found in a musician's, and a window in which a file is asked for.
class FileSelector : public testing::Test {
protected:
    FileSelector() {
        for (const char* made : {"sub", "sub/deep", ".hidden"})
            std::filesystem::create_directory(folder / made);
        for (const char* file : {"Lead.zmt", "bass it's \"new\".ZMT", "\u00fcber.zmt", "notes.txt",
                                 ".secret.zmt", "sub/pad.zmt", "new\nline.zmt"})
            pedl::test::writeText(folder / file, "x");
        setFileDialogFactory([](int32_t) { return std::unique_ptr<FileDialogBackend>(); });
        w.theFrame().setSize(300, 260);
        turn();
    }
    ~FileSelector() override {
        w.close();
        setFileDialogFactory(nullptr);
        EXPECT_EQ(delegate->getNbReference(), 1) << "given back";
        delegate->forget();
    }

    /// As the editor does: the selector is forgotten at once.
    bool ask(CNewFileSelector::Style style, const std::string& directory,
             UTF8StringPtr saveName = nullptr) {
        CNewFileSelector* selector = CNewFileSelector::create(&w.theFrame(), style);
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
        for (int turns = 0; turns < 2; ++turns) {
            w.clock.advance(20);
            w.window().turn();
        }
    }
    bool isAsking() { return w.theFrame().getModalView() != nullptr; }
    void press(std::initializer_list<VstVirtualKey> keys) {
        for (const VstVirtualKey key : keys) {
            w.press(key);
            turn();
        }
    }
    void click(CPoint where, int32_t buttons = kLButton) {
        w.click(where.x, where.y, buttons);
        turn();
    }
    CPoint row(int index) {
        return w.theFrame().getModalView()->getViewSize().getTopLeft() +
               CPoint(30, 60 + 16 * index);
    }
    CPoint acceptButton() {
        return w.theFrame().getModalView()->getViewSize().getBottomRight() - CPoint(40, 18);
    }
    std::string path(const std::string& name) const { return folder / name; }

    pedl::test::TemporaryFolder folder;
    ToolkitWindow w;
    FileDelegate* delegate = new FileDelegate;
};

TEST_F(FileSelector, ListsFoldersFirstThenFilesOfTheTypesWithoutHiddenOnes) {
    const auto names = [&](FileDialogRequest::Kind kind, const Paths& extensions) {
        FileDialogRequest request;
        request.kind = kind;
        for (const std::string& extension : extensions)
            request.types.push_back({"", extension});
        std::string all;
        for (const FileListEntry& entry : readFileList(request, folder.path()))
            all += entry.name + (entry.isDirectory ? "/;" : ";");
        return all;
    };
    using Kind = FileDialogRequest::Kind;
    const std::string presets = "sub/;bass it's \"new\".ZMT;Lead.zmt;new\nline.zmt;";
    EXPECT_EQ(names(Kind::OpenFile, {"zmt"}), presets + "\u00fcber.zmt;");
    EXPECT_EQ(names(Kind::OpenFile, {}), presets + "notes.txt;\u00fcber.zmt;");
    EXPECT_EQ(names(Kind::ChooseDirectory, {}), "sub/;");
}

TEST_F(FileSelector, OpensAfterTheButtonIsLetGoAndSendsTheChoice) {
    w.add("load", CRect(10, 10, 20, 20))->script["down"] = [&] {
        EXPECT_TRUE(ask(CNewFileSelector::kSelectFile, folder.path()));
        EXPECT_FALSE(ask(CNewFileSelector::kSelectFile, folder.path())) << "one at a time";
    };
    w.window().mouseDown(15, 15);
    turn();
    EXPECT_FALSE(isAsking());
    w.window().mouseUp(15, 15);
    turn();
    ASSERT_TRUE(isAsking());
    click(row(1));
    EXPECT_EQ(delegate->ends, 0);
    click(row(1), kLButton | kDoubleClick);
    EXPECT_FALSE(isAsking());
    EXPECT_EQ(delegate->paths, Paths{path("bass it's \"new\".ZMT")});
    EXPECT_EQ(w.theFrame().getNbViews(), 1) << "nothing is left in the frame";
}

TEST_F(FileSelector, IsDrivenByKeys) {
    ask(CNewFileSelector::kSelectFile, folder.path());
    press({VKEY_DOWN, VKEY_RETURN, VKEY_END, VKEY_RETURN}); // into the folder, its last
    EXPECT_EQ(delegate->paths, Paths{path("sub/pad.zmt")});
    ask(CNewFileSelector::kSelectFile, path("sub/deep"));
    press({VKEY_BACK, VKEY_BACK});
    w.window().typeText("l");
    press({VKEY_RETURN});
    EXPECT_EQ(delegate->paths, Paths{path("Lead.zmt")});
    ask(CNewFileSelector::kSelectDirectory, path("sub"));
    press({VKEY_RETURN});
    EXPECT_EQ(delegate->paths, Paths{path("sub")});
}

TEST_F(FileSelector, EndsWithoutAChoice) {
    const std::function<void()> ways[] = {
        [&] { press({VKEY_ESCAPE}); },
        [&] { click(acceptButton() - CPoint(72, 0)); }, // Cancel
        [&] { w.theFrame().setModalView(nullptr); },
    };
    for (const auto& way : ways) {
        ask(CNewFileSelector::kSelectFile, folder.path());
        way();
        turn();
        EXPECT_EQ(std::exchange(delegate->ends, 0), 1);
        EXPECT_TRUE(delegate->paths.empty());
        EXPECT_EQ(w.theFrame().getNbViews(), 0);
    }
    // Nobody is told when the owner ends it, whether it is to be seen yet or not.
    CNewFileSelector* selector = CNewFileSelector::create(&w.theFrame());
    selector->run(delegate);
    turn();
    EXPECT_TRUE(isAsking());
    selector->cancel();
    EXPECT_FALSE(isAsking());
    selector->run(delegate);
    selector->forget();
    w.close();
    EXPECT_EQ(delegate->ends, 0);
}

TEST_F(FileSelector, SavesUnderATypedNameWithTheExtension) {
    const std::pair<const char*, const char*> rows[] = {
        {"fresh", "fresh.zmt"}, {"fresh.ZMT", "fresh.ZMT"}, {"a b.c", "a b.c.zmt"},
        {"sub/x", "sub/x.zmt"}, {"\u00e4", "\u00e4.zmt"},
    };
    for (const auto& [typed, saved] : rows) {
        ask(CNewFileSelector::kSelectSaveFile, folder.path(), "proposed");
        w.window().typeText(typed); // the field is open, the proposal selected
        press({VKEY_RETURN});
        EXPECT_EQ(delegate->paths, Paths{path(saved)});
    }
    ask(CNewFileSelector::kSelectSaveFile, folder.path(), "proposed");
    click(acceptButton());
    EXPECT_EQ(delegate->paths, Paths{path("proposed.zmt")});
}

TEST_F(FileSelector, AsksBeforeAFileIsReplaced) {
    ask(CNewFileSelector::kSelectSaveFile, folder.path(), "Lead");
    click(acceptButton());
    ASSERT_TRUE(isAsking());
    click(row(3)); // another name: the agreement is void
    click(row(2));
    w.window().mouseDown(acceptButton().x, acceptButton().y);
    w.window().mouseMove(5, 5, kLButton); // let go beside the button
    w.window().mouseUp(5, 5);
    click(acceptButton());
    ASSERT_TRUE(isAsking());
    click(acceptButton());
    EXPECT_EQ(delegate->paths, Paths{path("Lead.zmt")});
    ask(CNewFileSelector::kSelectSaveFile, folder.path(), "nowhere/x");
    press({VKEY_RETURN});
    EXPECT_TRUE(isAsking()) << "no such folder";
}

/// A dialog of the system that works, fails or cannot be had.
struct FakeDialog : public FileDialogBackend {
    explicit FakeDialog(std::string w) : way(std::move(w)) {}
    bool start(const FileDialogRequest& request) override {
        EXPECT_EQ(request.title, "Load preset");
        return way != "refused";
    }
    State poll(std::vector<std::string>& paths) override {
        paths = {"/a b/c", "/d"};
        return way == "failing" ? State::Failed : State::Ended;
    }
    std::string way;
};

TEST_F(FileSelector, TriesTheDialogsOfTheSystemInTheirOrderAndItsListAtLast) {
    setFileDialogFactory([](int32_t index) -> std::unique_ptr<FileDialogBackend> {
        const char* const ways[] = {"refused", "failing", "good"};
        return std::make_unique<FakeDialog>(ways[index]);
    });
    ask(CNewFileSelector::kSelectFile, "/");
    turn();
    EXPECT_EQ(delegate->paths, (Paths{"/a b/c", "/d"}));
    setFileDialogFactory([](int32_t index) -> std::unique_ptr<FileDialogBackend> {
        return index < 1 ? std::make_unique<FakeDialog>("failing") : nullptr;
    });
    ask(CNewFileSelector::kSelectFile, "/");
    turn();
    EXPECT_TRUE(isAsking());
}

} // namespace
} // namespace VSTGUI
