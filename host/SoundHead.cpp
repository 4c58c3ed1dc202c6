#include "host/SoundHead.h"

#include <cstring>
#include <string_view>

namespace pedl {

namespace {

constexpr std::size_t kWordBytes = 4;
constexpr std::size_t kChunkHeadBytes = 8;  // its name, then the size of what follows
constexpr std::size_t kFileHeadBytes = 12;  // RIFF or FORM as a chunk, then what the file holds
constexpr std::size_t kFramesInComm = 2;    // behind the number of channels
constexpr std::size_t kSoundStartBytes = 8; // of "SSND", before its samples

/// The largest that readers of pipes take for a length.
constexpr std::int64_t kOpenBytes = 0x7FFFF000;

/// The words of a head, in the byte order of its kind.
class Head {
public:
    explicit Head(std::vector<std::byte>& bytes)
        : bytes_(bytes), isBigEndian_(isNamed(0, "FORM")) {}

    [[nodiscard]] bool isNamed(std::size_t at, std::string_view name) const {
        return at + kWordBytes <= bytes_.size() &&
               std::memcmp(bytes_.data() + at, name.data(), kWordBytes) == 0;
    }
    [[nodiscard]] std::uint32_t word(std::size_t at) const {
        std::uint32_t word = 0;
        for (std::size_t i = 0; i < kWordBytes && at + i < bytes_.size(); ++i)
            word |= std::to_integer<std::uint32_t>(bytes_[at + i]) << shift(i);
        return word;
    }
    void setWord(std::size_t at, std::int64_t value) {
        for (std::size_t i = 0; i < kWordBytes && at + i < bytes_.size(); ++i)
            bytes_[at + i] = static_cast<std::byte>(value >> shift(i));
    }

private:
    [[nodiscard]] unsigned shift(std::size_t byte) const {
        return 8 * static_cast<unsigned>(isBigEndian_ ? kWordBytes - 1 - byte : byte);
    }

    std::vector<std::byte>& bytes_;
    bool isBigEndian_;
};

} // namespace

void writeLengthInto(std::vector<std::byte>& bytes, std::optional<std::int64_t> lengthFrames,
                     int frameBytes) {
    const std::int64_t mostFrames = kOpenBytes / frameBytes;
    const std::int64_t frames =
        lengthFrames && *lengthFrames < mostFrames ? *lengthFrames : mostFrames;
    const std::int64_t soundBytes = frames * frameBytes;
    Head head(bytes);
    if (!head.isNamed(0, "RIFF") && !head.isNamed(0, "FORM"))
        return;
    head.setWord(kWordBytes,
                 static_cast<std::int64_t>(bytes.size() - kChunkHeadBytes) + soundBytes);
    for (std::size_t at = kFileHeadBytes; at + kChunkHeadBytes <= bytes.size();) {
        const std::size_t content = at + kChunkHeadBytes;
        if (head.isNamed(at, "fact"))
            head.setWord(content, frames);
        else if (head.isNamed(at, "COMM"))
            head.setWord(content + kFramesInComm, frames);
        else if (head.isNamed(at, "data"))
            return head.setWord(at + kWordBytes, soundBytes);
        else if (head.isNamed(at, "SSND"))
            return head.setWord(at + kWordBytes, soundBytes + kSoundStartBytes);
        const std::size_t size = head.word(at + kWordBytes);
        at = content + size + size % 2;
    }
}

} // namespace pedl
