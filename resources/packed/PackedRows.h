#pragma once

#include <cstdint>

#include "resources/packed/PixelCoder.h"

namespace pedl::skin {

// The packed skin is one block: a header, then these rows, then bytes. Offsets count from the
// block's beginning, numbers are as the processor has them.

/// A picture's place in the table, sorted by identifier and scale.
struct PictureRow {
    std::uint32_t id;
    std::uint16_t scale;
    std::uint16_t frames;
    std::uint16_t width; // of a frame, pixels
    std::uint16_t height;
    // Where the content lies within every frame; around it all is transparent.
    std::uint16_t left;
    std::uint16_t top;
    std::uint32_t content;
    std::uint32_t sameAs; // the first row that looks the same: this one, where there is no other
};

/// What is stored of a strip: that part of its frames where anything is.
struct ContentRow {
    std::uint16_t width;
    std::uint16_t height;
    std::uint8_t isOpaque;
    std::uint8_t greenTolerance;
    std::uint8_t redAndBlueTolerance;
    std::uint8_t reserved;
    std::uint32_t oddsBegin;  // the odds that every frame begins with, a byte each
    std::uint32_t firstFrame; // among the frame rows
};

struct FrameRow {
    std::uint32_t begin; // its bytes, which reach to the next frame's
    std::int32_t basis;  // the frame it is a change of, -1 for none
};

struct PackedHeader {
    std::uint32_t pictures;
    std::uint32_t contents;
    std::uint32_t frames; // one row more, for the last one's end
    std::uint32_t sizeBytes;
};

} // namespace pedl::skin
