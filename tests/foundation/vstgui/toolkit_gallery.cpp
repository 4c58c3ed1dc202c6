// Draws every control of the toolkit into one picture, without a display.
// Usage: toolkit-gallery FOLDER
// Leaves toolkit.png and toolkit-2x.png in FOLDER.

#include "tests/support/toolkit/ToolkitEditor.h"
#include "vstgui/lib/platform/common/filedialogbackend.h"
#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/offscreen/manualclock.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"
#include "vstgui/lib/platform/offscreen/offscreenmenu.h"
#include "vstgui/lib/platform/offscreen/pngwriter.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace pedl::test {

namespace {

using namespace VSTGUI;

constexpr int kGap = 12;
constexpr std::uint32_t kPaper = 0xFFE8E6E0U;

/// What a musician's folder may hold. Its name is in the picture, so it is always the same one.
class PresetFolder {
public:
    PresetFolder() {
        std::filesystem::create_directories(path_ + "/Live set");
        for (const char* name : {"Drums \u2013 wet.zmb", "\u00dcberblenden.zmb", "Pads.zmb"})
            std::ofstream(path_ + "/" + name);
    }
    ~PresetFolder() { std::filesystem::remove_all(root_); }
    PresetFolder(const PresetFolder&) = delete;
    PresetFolder& operator=(const PresetFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string root_ = std::filesystem::temp_directory_path() / "toolkit-gallery";
    std::string path_ = root_ + "/Presets";
};

/// An editor on an offscreen window.
class Shot {
public:
    explicit Shot(int scale) {
        setPlatformFrameFactory(OffscreenFrame::create);
        setFileDialogFactory([](std::int32_t) { return std::unique_ptr<FileDialogBackend>(); });
        editor.open(this);
        editor.getFrame()->setScaleFactor(scale);
        turn();
    }
    ~Shot() {
        editor.close();
        setFileDialogFactory(nullptr);
        setPlatformFrameFactory(nullptr);
    }
    Shot(const Shot&) = delete;
    Shot& operator=(const Shot&) = delete;

    void turn() {
        for (int turns = 0; turns < 3; ++turns) {
            clock_.advance(20);
            editor.idle();
        }
    }
    void click(const CView& view) {
        const CPoint middle = view.getViewSize().getCenter();
        window().mouseDown(middle.x, middle.y);
        window().mouseUp(middle.x, middle.y);
        turn();
    }
    void press(VstVirtualKey key, int times = 1, std::int32_t modifiers = 0) {
        for (int i = 0; i < times; ++i)
            window().keyDown(key, modifiers);
        turn();
    }
    OffscreenFrame& window() { return OffscreenFrame::of(*editor.getFrame()); }

    ToolkitEditor editor{nullptr};

private:
    ManualClock clock_;
};

/// Copies a picture to a place in another of the same scale.
void copy(const PixmanSurface& from, PixmanSurface& to, const CPoint& place) {
    const auto left = static_cast<int>(place.x * to.scale());
    const auto top = static_cast<int>(place.y * to.scale());
    for (int y = 0; y < std::min(from.heightPixels(), to.heightPixels() - top); ++y)
        for (int x = 0; x < std::min(from.widthPixels(), to.widthPixels() - left); ++x)
            to.pixels()[(top + y) * to.strideBytes() / 4 + left + x] = from.pixelAt(x, y);
}

/// Rounds colours so that a byte a pixel will do: the file is half as long, the eye sees no change.
void roundColours(PixmanSurface& picture) {
    constexpr std::uint32_t kSteps = 17;
    const auto rounded = [](std::uint32_t pixel, int shift) {
        const std::uint32_t step = (((pixel >> shift) & 0xFFU) * kSteps + 127) / 255;
        return (step * 255 / kSteps) << shift;
    };
    std::uint32_t* const end =
        picture.pixels() + picture.strideBytes() / 4 * picture.heightPixels();
    for (std::uint32_t* pixel = picture.pixels(); pixel != end; ++pixel)
        *pixel = 0xFF000000U | rounded(*pixel, 16) | rounded(*pixel, 8) | rounded(*pixel, 0);
}

/// The frame with a text field open, beside it one with a file list, below them a part of the menu.
bool drawGallery(int scale, const std::string& presets, const std::string& file) {
    constexpr int kNext = ToolkitEditor::kWidth + 2 * kGap;
    constexpr int kBelow = ToolkitEditor::kHeight + 2 * kGap;
    PixmanSurface gallery(2 * kNext, kBelow + 240, scale);
    std::fill_n(gallery.pixels(), gallery.strideBytes() / 4 * gallery.heightPixels(), kPaper);
    Shot shot(scale);
    shot.click(*shot.editor.nameField());
    shot.press(VKEY_END);
    shot.press(VKEY_LEFT, 4, MODIFIER_SHIFT);
    copy(*shot.window().surface(), gallery, CPoint(kGap, kGap));
    shot.press(VKEY_ESCAPE);
    shot.click(*shot.editor.programs());
    copy(OffscreenMenu::of(shot.window())->image(), gallery, CPoint(kGap, kBelow));
    shot.press(VKEY_ESCAPE);
    shot.editor.askForFile(presets);
    shot.turn();
    shot.press(VKEY_DOWN, 3);
    copy(*shot.window().surface(), gallery, CPoint(kNext, kGap));
    roundColours(gallery);
    return writePng(gallery, file);
}

} // namespace

} // namespace pedl::test

int main(int count, char** arguments) {
    const std::string folder = count == 2 ? arguments[1] : "";
    const pedl::test::PresetFolder presets;
    const bool isDrawn = pedl::test::drawGallery(1, presets.path(), folder + "/toolkit.png") &&
                         pedl::test::drawGallery(2, presets.path(), folder + "/toolkit-2x.png");
    if (!isDrawn)
        std::fprintf(stderr, "usage: toolkit-gallery FOLDER, which can be written to\n");
    return isDrawn ? 0 : 1;
}
