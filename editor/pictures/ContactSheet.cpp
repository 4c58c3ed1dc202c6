#include "editor/pictures/ContactSheet.h"

#include "editor/ControlLayout.h"
#include "resources/SkinResources.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cdrawcontext.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace pedl::skin {

using namespace VSTGUI;

namespace {

constexpr double kSheetWidth = 760;
constexpr double kGap = 8;
constexpr double kTitleHeight = 13;
constexpr double kMargin = 3; // of the face around a picture
constexpr int kWidest = 200;
constexpr int kMostFrames = 13;
constexpr int kFewFrames = 6; // of a strip that has more than those
const CColor kPaper(232, 230, 224, 255);
const CColor kInk(50, 50, 50, 255);
const CColor kDark(28, 22, 18, 255); // below what has no place on the face

/// A picture, the numbers that it has, and where it lies on the face.
struct Entry {
    const PictureRow* picture;
    std::string title;
    std::optional<Place> place;
    CRect cell; // of its first frame; the others follow to the right

    /// Wide ones stand below each other.
    [[nodiscard]] bool isStacked() const { return picture->width > kWidest; }
    [[nodiscard]] int shownFrames() const {
        return picture->frames <= kMostFrames ? picture->frames : kFewFrames;
    }
    [[nodiscard]] int frameAt(int index) const {
        return picture->frames <= kMostFrames ? index
                                              : index * (picture->frames - 1) / (kFewFrames - 1);
    }
};

std::optional<Place> placeOf(std::uint32_t id) {
    const auto shows = [id](const ControlRow& row) {
        return std::find(row.bitmaps.begin(), row.bitmaps.end(), static_cast<std::int32_t>(id)) !=
               row.bitmaps.end();
    };
    for (const ControlRow& row : kPanelRows)
        if (shows(row) && row.kind != ControlKind::About)
            return row.place;
    for (const ControlRow& row : kBarRows)
        if (shows(row))
            return row.place;
    return std::nullopt;
}

/// The whole pictures, the face and what covers it, have pages of their own.
bool isWholeFace(const PictureRow& picture) {
    return picture.width >= kFaceWidth;
}

std::vector<Entry> entries() {
    std::vector<Entry> all;
    const PackedSkin skin = embeddedSkin();
    for (const PictureRow& picture : skin.pictures()) {
        if (picture.scale != 1 || isWholeFace(picture))
            continue;
        const PictureRow* const first = &skin.firstLike(picture);
        const auto same = std::find_if(all.begin(), all.end(),
                                       [&](const Entry& entry) { return entry.picture == first; });
        if (same != all.end())
            same->title += " " + std::to_string(picture.id);
        else
            all.push_back({&picture, std::to_string(picture.id), placeOf(picture.id), {}});
    }
    return all;
}

double titleWidth(const std::string& title) {
    constexpr double kDigitWidth = 6.2;
    return kDigitWidth * static_cast<double>(title.size());
}

/// Puts the entries side by side, row under row. @return the sheet's height
double arrange(std::vector<Entry>& all) {
    double left = kGap, top = kGap, rowHeight = 0;
    for (Entry& entry : all) {
        const double frameWidth = entry.picture->width + 2 * kMargin;
        const double frameHeight = entry.picture->height + 2 * kMargin;
        const int columns = entry.isStacked() ? 1 : entry.shownFrames();
        const int rows = entry.isStacked() ? entry.shownFrames() : 1;
        const double width = std::max(titleWidth(entry.title), frameWidth * columns);
        if (left + width > kSheetWidth && left > kGap) {
            left = kGap;
            top += rowHeight + kGap;
            rowHeight = 0;
        }
        entry.cell = CRect(CPoint(left, top + kTitleHeight), CPoint(frameWidth, frameHeight));
        left += width + kGap;
        rowHeight = std::max(rowHeight, kTitleHeight + frameHeight * rows);
    }
    return top + rowHeight + kGap;
}

void draw(CDrawContext& context, const Entry& entry, CBitmap& face) {
    context.setFont(kNormalFontSmall);
    context.setFontColor(kInk);
    context.drawString(entry.title.c_str(), CPoint(entry.cell.left, entry.cell.top - kMargin));
    CBitmap strip(CResourceDescription(static_cast<std::int32_t>(entry.picture->id)));
    CRect cell = entry.cell;
    for (int index = 0; index < entry.shownFrames(); ++index) {
        if (entry.place) {
            face.draw(&context, cell,
                      CPoint(entry.place->left - kMargin, entry.place->top - kMargin));
        } else {
            context.setFillColor(kDark);
            context.drawRect(cell, kDrawFilled);
        }
        CRect picture = cell;
        picture.inset(kMargin, kMargin);
        strip.draw(&context, picture, CPoint(0, entry.frameAt(index) * entry.picture->height));
        cell.offset(entry.isStacked() ? 0 : cell.width(), entry.isStacked() ? cell.height() : 0);
    }
}

} // namespace

std::unique_ptr<PixmanSurface> drawContactSheet(int scale) {
    std::vector<Entry> all = entries();
    auto sheet = std::make_unique<PixmanSurface>(kSheetWidth, arrange(all), scale);
    CDrawContext* const context = createPixmanContext(*sheet);
    context->setFillColor(kPaper);
    context->drawRect(CRect(0, 0, kSheetWidth, sheet->heightPixels()), kDrawFilled);
    CBitmap face{CResourceDescription(kFaceBitmap)};
    for (const Entry& entry : all)
        draw(*context, entry, face);
    context->forget();
    return sheet;
}

} // namespace pedl::skin
