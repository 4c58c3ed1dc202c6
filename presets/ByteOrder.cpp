#include "presets/ByteOrder.h"

#include "presets/StreamFormat.h"

namespace pedl {

std::optional<ByteOrder> byteOrderOf(std::uint32_t id) noexcept {
    if (id == kPluginId)
        return ByteOrder::Native;
    if (id == reversed(kPluginId))
        return ByteOrder::Reversed;
    return std::nullopt;
}

} // namespace pedl
