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
constexpr int kDialogWidth = 400;
constexpr int kDialogHeight = 340;
constexpr std::uint32_t kPaper = 0xFFE8E6E0U;

/// What a musician's folder may hold. Its name is in the picture, so it is always the same one.
class PresetFolder {
public:
    PresetFolder() {
        std::filesystem::create_directories(path_ + "/Live set");
        std::filesystem::create_directories(path_ + "/Studio");
        for (const char* name :
             {"Bass.zmb", "Drums \u2013 wet.zmb", "\u00dcberblenden.zmb", "Pads.zmb", "Voices.zmb"})
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

/// An editor on an offscreen window, in the state that a picture shows.
class Shot {
public:
    Shot(ManualClock& clock, int scale) : clock_(clock) {
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
    OffscreenFrame& window() { return OffscreenFrame::of(*editor.getFrame()); }
    const PixmanSurface& picture() { return *window().surface(); }

    ToolkitEditor editor{nullptr};

private:
    ManualClock& clock_;
};

/// Copies a part of a picture; places are logical pixels, both pictures have the same scale.
void copy(const PixmanSurface& from, const CRect& part, PixmanSurface& to, const CPoint& place) {
    const auto pixels = [&](CCoord length) { return static_cast<int>(length * to.scale()); };
    for (int y = 0; y < pixels(part.height()); ++y)
        for (int x = 0; x < pixels(part.width()); ++x) {
            const int toX = pixels(place.x) + x, toY = pixels(place.y) + y;
            if (toX < to.widthPixels() && toY < to.heightPixels())
                to.pixels()[toY * to.strideBytes() / 4 + toX] =
                    from.pixelAt(pixels(part.left) + x, pixels(part.top) + y);
        }
}

CRect around(const PixmanSurface& surface) {
    return {0, 0, surface.widthPixels() / surface.scale(),
            surface.heightPixels() / surface.scale()};
}

/// The part of a frame in the middle of which something of `width` by `height` lies.
CRect middleOf(int width, int height) {
    return {CPoint((ToolkitEditor::kWidth - width) / 2, (ToolkitEditor::kHeight - height) / 2),
            CPoint(width, height)};
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

/// The frame with a text field open; beside it a file list and a picture that was opened; below
/// them the menu.
bool drawGallery(int scale, const std::string& presets, const std::string& file) {
    constexpr CCoord kRight = ToolkitEditor::kWidth + 2 * kGap;
    constexpr CCoord kMenuTop = ToolkitEditor::kHeight + 2 * kGap;
    ManualClock clock;
    Shot withMenu(clock, scale);
    withMenu.click(*withMenu.editor.programs());
    OffscreenMenu* const menu = OffscreenMenu::of(withMenu.window());
    if (!menu)
        return false;
    const CRect menuArea = around(menu->image());

    PixmanSurface gallery(std::max(kRight + kDialogWidth, menuArea.width() + kGap) + kGap,
                          kMenuTop + menuArea.height() + kGap, scale);
    std::fill_n(gallery.pixels(), gallery.strideBytes() / 4 * gallery.heightPixels(), kPaper);
    copy(menu->image(), menuArea, gallery, CPoint(kGap, kMenuTop));
    {
        Shot withField(clock, scale);
        withField.click(*withField.editor.nameField());
        withField.window().keyDown(VKEY_END);
        for (int letters = 0; letters < 4; ++letters)
            withField.window().keyDown(VKEY_LEFT, MODIFIER_SHIFT);
        withField.turn();
        copy(withField.picture(), around(withField.picture()), gallery, CPoint(kGap, kGap));
    }
    {
        Shot withDialog(clock, scale);
        withDialog.editor.askForFile(presets);
        withDialog.turn();
        withDialog.window().keyDown(VKEY_DOWN);
        withDialog.window().keyDown(VKEY_DOWN);
        withDialog.window().keyDown(VKEY_DOWN);
        withDialog.turn();
        copy(withDialog.picture(), middleOf(kDialogWidth, kDialogHeight), gallery,
             CPoint(kRight, kGap));
    }
    {
        Shot withSplash(clock, scale);
        withSplash.click(*withSplash.editor.splash());
        const PictureSize splash = sizeOf(Picture::Splash);
        copy(withSplash.picture(), middleOf(splash.width, splash.height), gallery,
             CPoint(kRight, 2 * kGap + kDialogHeight));
    }
    roundColours(gallery);
    return writePng(gallery, file);
}

} // namespace

} // namespace pedl::test

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: toolkit-gallery FOLDER\n");
        return 2;
    }
    const std::string folder = arguments[1];
    const pedl::test::PresetFolder presets;
    for (const auto& [scale, name] :
         {std::pair{1, "/toolkit.png"}, std::pair{2, "/toolkit-2x.png"}})
        if (!pedl::test::drawGallery(scale, presets.path(), folder + name)) {
            std::fprintf(stderr, "%s%s: not written\n", folder.c_str(), name);
            return 1;
        }
    return 0;
}
