#include "presets/UserDefaults.h"

#include "foundation/platform/SettingsStore.h"
#include "presets/SettingsText.h"

#include <array>
#include <string_view>
#include <utility>

namespace pedl {

namespace {

constexpr std::array<std::string_view, 2> kMemoryValues{"MemoA", "MemoB"}; // as `Memory`

constexpr std::string_view kManualValue = "ManualPath";
constexpr std::size_t kMaxManualPathBytes = 1024 * 2 + 2; // UTF-16 and its terminator

std::string_view valueOf(Memory memory) {
    return kMemoryValues[static_cast<std::size_t>(memory)];
}

} // namespace

bool UserDefaults::save(FileKind kind) {
    return settings_.write(fileType(kind).userDefaultValue, state_.stored(kind));
}

bool UserDefaults::reset(FileKind kind) {
    return settings_.erase(fileType(kind).userDefaultValue);
}

LoadResult UserDefaults::load(FileKind kind) {
    return load(kind, fileType(kind).userDefaultValue);
}

bool UserDefaults::store(Memory memory) {
    return settings_.write(valueOf(memory), state_.stored(FileKind::Program));
}

LoadResult UserDefaults::recall(Memory memory) {
    return load(FileKind::Program, valueOf(memory));
}

std::optional<std::string> UserDefaults::manualPath() const {
    const auto bytes = settings_.read(kManualValue);
    if (!bytes || bytes->size() > kMaxManualPathBytes)
        return std::nullopt;
    std::string path = textOfSettings(*bytes);
    return path.empty() ? std::nullopt : std::optional(std::move(path));
}

LoadResult UserDefaults::load(FileKind kind, std::string_view value) {
    const auto bytes = settings_.read(value);
    return bytes ? state_.load(kind, *bytes, OrderDecision::AsFound) : LoadResult::Missing;
}

} // namespace pedl
