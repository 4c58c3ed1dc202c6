#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "resources/packed/PackedRows.h"

namespace pedl::skin {

/// Reads a packed skin where it lies. Copies nothing, keeps nothing; safe from any thread.
class PackedSkin {
public:
    /// @param block  as `packSkin` made it, at an address that four divides
    explicit PackedSkin(std::span<const std::byte> block) : base_(block.data()) {}

    /// Null when there is no such picture.
    [[nodiscard]] const PictureRow* find(std::uint32_t id, int scale) const;
    [[nodiscard]] std::span<const PictureRow> pictures() const;
    /// The row that stands for all pictures that look the same.
    [[nodiscard]] const PictureRow& firstLike(const PictureRow& picture) const {
        return pictures()[picture.sameAs];
    }

    /// The frame that `frame` is a change of, -1 for none.
    [[nodiscard]] int basisOf(const PictureRow& picture, int frame) const;
    /// Fills the rows of a frame that are transparent so far.
    /// @param basis  those of the frame's basis, null when it has none
    void unpack(const PictureRow& picture, int frame, std::uint32_t* pixels,
                const std::uint32_t* basis) const;

private:
    [[nodiscard]] const PackedHeader& header() const { return *at<PackedHeader>(0); }
    [[nodiscard]] const ContentRow& contentOf(const PictureRow& picture) const;
    [[nodiscard]] const FrameRow* frameRow(const PictureRow& picture, int frame) const;
    template <typename Row> const Row* at(std::size_t offset) const {
        return reinterpret_cast<const Row*>(base_ + offset);
    }

    const std::byte* base_;
};

} // namespace pedl::skin
