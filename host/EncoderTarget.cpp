#include "host/EncoderTarget.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace pedl {

SF_VIRTUAL_IO EncoderTarget::functions() {
    return {[](void* target) -> sf_count_t { return of(target).size(); },
            [](sf_count_t offset, int whence, void* target) -> sf_count_t {
                return of(target).seek(offset, whence);
            },
            [](void* /*buffer*/, sf_count_t /*bytes*/, void* /*target*/) -> sf_count_t {
                return 0; // it is written only
            },
            [](const void* data, sf_count_t bytes, void* target) -> sf_count_t {
                return static_cast<sf_count_t>(
                    of(target).write(data, static_cast<std::size_t>(bytes)));
            },
            [](void* target) -> sf_count_t { return of(target).place(); }};
}

std::vector<std::byte> EncoderTarget::takeHead() {
    std::vector<std::byte> head = std::move(*head_);
    head_.reset();
    head.resize(static_cast<std::size_t>(placeInHead_));
    return head;
}

std::int64_t EncoderTarget::size() const {
    return head_ ? static_cast<std::int64_t>(head_->size()) : sink_->sizeBytes();
}

std::int64_t EncoderTarget::place() const {
    return head_ ? placeInHead_ : sink_->placeBytes();
}

std::int64_t EncoderTarget::seek(std::int64_t offset, int whence) {
    const std::int64_t start = whence == SEEK_CUR ? place() : whence == SEEK_END ? size() : 0;
    if (head_)
        placeInHead_ = start + offset;
    else
        sink_->seek(start + offset);
    return start + offset;
}

std::size_t EncoderTarget::write(const void* data, std::size_t bytes) {
    if (!head_)
        return sink_->write(data, bytes);
    const auto at = static_cast<std::size_t>(placeInHead_);
    head_->resize(std::max(head_->size(), at + bytes));
    std::memcpy(head_->data() + at, data, bytes);
    placeInHead_ += static_cast<std::int64_t>(bytes);
    return bytes;
}

} // namespace pedl
