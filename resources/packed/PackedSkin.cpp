#include "resources/packed/PackedSkin.h"

#include <algorithm>
#include <utility>

namespace pedl::skin {

std::span<const PictureRow> PackedSkin::pictures() const {
    return {at<PictureRow>(sizeof(PackedHeader)), header().pictures};
}

const PictureRow* PackedSkin::find(std::uint32_t id, int scale) const {
    const std::span<const PictureRow> rows = pictures();
    const auto row = std::lower_bound(
        rows.begin(), rows.end(), std::pair(id, scale), [](const PictureRow& a, const auto& b) {
            return a.id != b.first ? a.id < b.first : a.scale < b.second;
        });
    return row != rows.end() && row->id == id && row->scale == scale ? &*row : nullptr;
}

const ContentRow& PackedSkin::contentOf(const PictureRow& picture) const {
    return at<ContentRow>(sizeof(PackedHeader) + pictures().size_bytes())[picture.content];
}

const FrameRow* PackedSkin::frameRow(const PictureRow& picture, int frame) const {
    const std::size_t begin =
        sizeof(PackedHeader) + pictures().size_bytes() + header().contents * sizeof(ContentRow);
    return at<FrameRow>(begin) + contentOf(picture).firstFrame + frame;
}

int PackedSkin::basisOf(const PictureRow& picture, int frame) const {
    return frameRow(picture, frame)->basis;
}

void PackedSkin::unpack(const PictureRow& picture, int frame, std::uint32_t* pixels,
                        const std::uint32_t* basis) const {
    const ContentRow& content = contentOf(picture);
    const FrameRow* const row = frameRow(picture, frame);
    PixelOdds odds = oddsOf(at<std::uint8_t>(content.oddsBegin));
    BitReader reader({at<std::uint8_t>(row[0].begin), at<std::uint8_t>(row[1].begin)});
    // The content's corner within the frame.
    const std::ptrdiff_t corner = std::ptrdiff_t{picture.top} * picture.width + picture.left;
    PixelCoder(reader, odds, {pixels + corner, content.width, content.height, picture.width},
               basis ? basis + corner : nullptr, content.isOpaque != 0)
        .codeFrame({content.greenTolerance, content.redAndBlueTolerance});
}

} // namespace pedl::skin
