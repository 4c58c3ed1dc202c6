#include "resources/packed/SkinPacker.h"

#include "resources/packed/Parallel.h"
#include "resources/packed/StripPacker.h"

#include <algorithm>
#include <map>
#include <span>
#include <stdexcept>
#include <utility>

namespace pedl::skin {

namespace {

/// The smallest rectangle of the frames outside of which all are transparent.
struct Box {
    int left, top, right, bottom;
};

Box boxOf(const DrawnStrip& strip) {
    if (strip.pixels.size() != static_cast<std::size_t>(strip.width) *
                                   static_cast<std::size_t>(strip.height) *
                                   static_cast<std::size_t>(strip.frames))
        throw std::invalid_argument("a strip of another size than it says");
    Box box{strip.width, strip.height, 0, 0};
    for (std::size_t i = 0; i < strip.pixels.size(); ++i) {
        if (strip.pixels[i] == 0)
            continue;
        const int x = static_cast<int>(i) % strip.width;
        const int y = static_cast<int>(i) / strip.width % strip.height;
        box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
               std::max(box.bottom, y + 1)};
    }
    return box.right > 0 ? box : Box{0, 0, 1, 1};
}

StripContent cut(const DrawnStrip& strip, const Box& box) {
    StripContent content{
        box.right - box.left, box.bottom - box.top, strip.frames, strip.tolerance, {}};
    for (int frame = 0; frame < strip.frames; ++frame)
        for (int y = box.top; y < box.bottom; ++y) {
            const auto row = strip.pixels.begin() +
                             (static_cast<std::ptrdiff_t>(frame) * strip.height + y) * strip.width;
            content.pixels.insert(content.pixels.end(), row + box.left, row + box.right);
        }
    return content;
}

/// The block, written from its beginning.
class Block {
public:
    template <typename Row> void addRow(const Row& row) {
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(&row);
        bytes_.insert(bytes_.end(), bytes, bytes + sizeof(Row));
    }
    void add(std::span<const std::uint8_t> bytes) {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    }
    std::vector<std::uint8_t> take() { return std::move(bytes_); }

private:
    std::vector<std::uint8_t> bytes_;
};

class SkinPacker {
public:
    explicit SkinPacker(const std::vector<DrawnStrip>& strips) {
        std::map<std::pair<std::uint32_t, int>, const DrawnStrip*> sorted;
        for (const DrawnStrip& strip : strips)
            for (const std::uint32_t id : strip.ids)
                sorted[{id, strip.scale}] = &strip;
        for (const auto& [idAndScale, strip] : sorted)
            addPicture(idAndScale.first, *strip);
    }

    std::vector<std::uint8_t> pack(unsigned threads) {
        packed_.resize(contents_.size());
        inParallel(contents_.size(), threads,
                   [&](std::size_t index) { packed_[index] = packStrip(contents_[index]); });
        return write();
    }

private:
    void addPicture(std::uint32_t id, const DrawnStrip& strip) {
        const auto [placed, isNew] = placed_.try_emplace(&strip);
        if (isNew) {
            const Box box = boxOf(strip);
            placed->second = {box, contentOf(cut(strip, box))};
        }
        const auto& [box, content] = placed->second;
        const auto narrow = [](int number) { return static_cast<std::uint16_t>(number); };
        PictureRow row{id,
                       narrow(strip.scale),
                       narrow(strip.frames),
                       narrow(strip.width),
                       narrow(strip.height),
                       narrow(box.left),
                       narrow(box.top),
                       content,
                       0};
        const auto same = std::find_if(pictures_.begin(), pictures_.end(), [&](const auto& other) {
            return other.scale == row.scale && other.content == row.content &&
                   other.width == row.width && other.height == row.height &&
                   other.left == row.left && other.top == row.top;
        });
        row.sameAs = static_cast<std::uint32_t>(same - pictures_.begin());
        pictures_.push_back(row);
    }

    std::uint32_t contentOf(StripContent content) {
        const auto same =
            std::find_if(contents_.begin(), contents_.end(),
                         [&](const StripContent& other) { return content.looksLike(other); });
        const auto index = static_cast<std::uint32_t>(same - contents_.begin());
        if (same == contents_.end())
            contents_.push_back(std::move(content));
        return index;
    }

    std::vector<std::uint8_t> write() const {
        std::size_t frames = 1;
        for (const PackedStrip& strip : packed_)
            frames += strip.frames.size();
        // First the places, then what they point to.
        std::vector<ContentRow> contentRows;
        std::vector<FrameRow> frameRows;
        Block bytes;
        auto end = static_cast<std::uint32_t>(
            sizeof(PackedHeader) + pictures_.size() * sizeof(PictureRow) +
            contents_.size() * sizeof(ContentRow) + frames * sizeof(FrameRow));
        const auto add = [&](std::span<const std::uint8_t> part) {
            bytes.add(part);
            end += static_cast<std::uint32_t>(part.size());
        };
        for (std::size_t i = 0, firstFrame = 0; i < contents_.size(); ++i) {
            contentRows.push_back(rowOf(i, end, firstFrame));
            add(packed_[i].odds);
            firstFrame += packed_[i].frames.size();
        }
        // A frame's bytes reach to the next one's: nothing else lies between them.
        for (const PackedStrip& strip : packed_)
            for (const PackedFrame& frame : strip.frames) {
                frameRows.push_back({end, frame.basis});
                add(frame.bytes);
            }
        frameRows.push_back({end, -1});

        const auto count = [](std::size_t number) { return static_cast<std::uint32_t>(number); };
        Block block;
        block.addRow(
            PackedHeader{count(pictures_.size()), count(contents_.size()), count(frames), end});
        for (const PictureRow& row : pictures_)
            block.addRow(row);
        for (const ContentRow& row : contentRows)
            block.addRow(row);
        for (const FrameRow& row : frameRows)
            block.addRow(row);
        block.add(bytes.take());
        return block.take();
    }

    [[nodiscard]] ContentRow rowOf(std::size_t index, std::uint32_t oddsBegin,
                                   std::size_t firstFrame) const {
        const StripContent& content = contents_[index];
        return {static_cast<std::uint16_t>(content.width),
                static_cast<std::uint16_t>(content.height),
                packed_[index].isOpaque,
                static_cast<std::uint8_t>(content.tolerance.green),
                static_cast<std::uint8_t>(content.tolerance.redAndBlue),
                0,
                oddsBegin,
                static_cast<std::uint32_t>(firstFrame)};
    }

    std::vector<PictureRow> pictures_;
    std::map<const DrawnStrip*, std::pair<Box, std::uint32_t>> placed_;
    std::vector<StripContent> contents_;
    std::vector<PackedStrip> packed_;
};

} // namespace

std::vector<std::uint8_t> packSkin(const std::vector<DrawnStrip>& strips, unsigned threads) {
    return SkinPacker(strips).pack(threads);
}

} // namespace pedl::skin
