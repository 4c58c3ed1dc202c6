#include "host/MidiFile.h"

#include "foundation/platform/FileReading.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <portSMF/mfmidi.h>

namespace pedl {

namespace {

constexpr ReadLimit kMidiFileLimit{std::size_t{16} << 20, "larger than 16 MiB"};

constexpr double kMicrosecondsPerMinute = 60e6;
constexpr int kLargestBeatUnitPower = 6; // a 64th

enum MetaType : std::uint8_t { kMetaTempo = 0x51, kMetaSignature = 0x58 };
enum Status : std::uint8_t {
    kNoteOff = 0x80,
    kNoteOn = 0x90,
    kKeyPressure = 0xA0,
    kControlChange = 0xB0,
    kProgramChange = 0xC0,
    kChannelPressure = 0xD0,
    kPitchBend = 0xE0
};

/// A file with one text of eight zeros. The library takes the bytes of a short event from its text
/// buffer whatever the event's length, so the buffer must be there before the first one comes.
constexpr std::array<std::uint8_t, 34> kPrimer{'M', 'T', 'h', 'd', 0,   0,   0, 6, 0, 0,  0, 1,
                                               0,   96,  'M', 'T', 'r', 'k', 0, 0, 0, 12, 0, 0xFF,
                                               1,   8,   0,   0,   0,   0,   0, 0, 0, 0};

/// Drives the library's reader: gives it bytes, takes what it finds. The first fault ends the file.
class Reader final : private Midifile_reader {
public:
    Reader() {
        source_ = std::as_bytes(std::span(kPrimer));
        midifile();
        file_ = {};
    }
    ~Reader() { finalize(); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    Result<MidiFile> read(std::span<const std::byte> bytes) {
        source_ = bytes;
        place_ = 0;
        fault_.clear();
        hasHeader_ = false;
        midifile();
        if (!hasHeader_)
            return Problem{"is not a MIDI file"};
        if (!fault_.empty())
            return Problem{fault_};
        std::stable_sort(file_.events.begin(), file_.events.end(),
                         [](const auto& a, const auto& b) { return a.ticks < b.ticks; });
        return std::move(file_);
    }

private:
    // Bytes and memory

    int Mf_getc() override {
        return place_ < source_.size() ? std::to_integer<int>(source_[place_++]) : EOF;
    }
    void* Mf_malloc(std::size_t bytes) override { return std::calloc(1, bytes); }
    void Mf_free(void* memory, std::size_t /*bytes*/) override { std::free(memory); }

    // Faults

    void Mf_error(char* what) override { damaged(what); }

    void damaged(const std::string& what) {
        refuse("is damaged at byte " + std::to_string(place_) + ": " + what);
    }
    void refuse(const std::string& why) {
        if (fault_.empty())
            fault_ = why;
        midifile_error = 1;
    }

    // Contents

    void Mf_header(int format, int /*tracks*/, int division) override {
        hasHeader_ = true;
        if (format != 0 && format != 1)
            return refuse("is of MIDI file format " + std::to_string(format) +
                          "; only formats 0 and 1 are one song");
        const auto ticks = static_cast<std::uint8_t>(division & 0xFF);
        const int filmRate = -static_cast<std::int8_t>((division >> 8) & 0xFF);
        constexpr std::array kFilmRates{24, 25, 29, 30};
        if (filmRate <= 0)
            file_.ticksPerQuarter = division;
        else if (std::find(kFilmRates.begin(), kFilmRates.end(), filmRate) != kFilmRates.end())
            file_.ticksPerSecond = ticks * (filmRate == 29 ? 30000.0 / 1001.0 : filmRate);
        if (file_.ticksPerQuarter == 0.0 && file_.ticksPerSecond == 0.0)
            refuse("has a time division that does not exist");
    }

    void Mf_tempo(int microsecondsPerQuarter) override {
        if (!lastWas(kMetaTempo, 3) || microsecondsPerQuarter <= 0)
            return damaged("not a tempo");
        add(TempoChange{kMicrosecondsPerMinute / microsecondsPerQuarter});
    }

    void Mf_timesig(int beats, int unitPower, int /*clocks*/, int /*notes*/) override {
        if (!lastWas(kMetaSignature, 4) || beats == 0 || unitPower > kLargestBeatUnitPower)
            return damaged("not a time signature");
        add(SignatureChange{beats, 1 << unitPower});
    }

    void Mf_off(int channel, int key, int speed) override { add(kNoteOff, channel, key, speed); }
    void Mf_on(int channel, int key, int speed) override { add(kNoteOn, channel, key, speed); }
    void Mf_pressure(int channel, int key, int value) override {
        add(kKeyPressure, channel, key, value);
    }
    void Mf_controller(int channel, int controller, int value) override {
        add(kControlChange, channel, controller, value);
    }
    void Mf_program(int channel, int program) override { add(kProgramChange, channel, program); }
    void Mf_chanpressure(int channel, int value) override { add(kChannelPressure, channel, value); }
    void Mf_pitchbend(int channel, int low, int high) override {
        add(kPitchBend, channel, low, high);
    }

    void Mf_starttrack() override {}
    void Mf_endtrack() override {}
    void Mf_eot() override {}
    void Mf_chanprefix(int) override {}
    void Mf_portprefix(int) override {}
    void Mf_sysex(int, unsigned char*) override {}
    void Mf_arbitrary(int, unsigned char*) override {}
    void Mf_metamisc(int, int, unsigned char*) override {}
    void Mf_seqnum(int) override {}
    void Mf_smpte(int, int, int, int, int) override {}
    void Mf_keysig(int, int) override {}
    void Mf_sqspecific(int, unsigned char*) override {}
    void Mf_text(int, int, unsigned char*) override {}

    /// Whether the event just read has this type and length: the library does not look.
    [[nodiscard]] bool lastWas(MetaType type, std::size_t dataBytes) const {
        const std::array head{std::byte{0xFF}, std::byte{type}, static_cast<std::byte>(dataBytes)};
        const std::size_t bytes = head.size() + dataBytes;
        return place_ >= bytes &&
               std::equal(head.begin(), head.end(),
                          source_.begin() + static_cast<std::ptrdiff_t>(place_ - bytes));
    }

    void add(Status status, int channel, int first, int second = 0) {
        if (((first | second) & ~0x7F) != 0)
            return damaged("a message with a data byte above 127");
        add(ChannelMessage{{static_cast<std::uint8_t>(status | channel),
                            static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(second)}});
    }

    template <typename Content> void add(Content content) {
        if (Mf_currtime < 0 || Mf_currtime > MidiFile::kMostTicks)
            return damaged("later than any song lasts");
        if (fault_.empty())
            file_.events.push_back({Mf_currtime, content});
    }

    std::span<const std::byte> source_;
    std::size_t place_ = 0; // of the next byte
    bool hasHeader_ = false;
    std::string fault_;
    MidiFile file_;
};

} // namespace

Result<MidiFile> MidiFile::parse(std::span<const std::byte> bytes) {
    return Reader().read(bytes);
}

Result<MidiFile> MidiFile::load(const std::filesystem::path& path) {
    const FileContents contents = readFile(path.string(), kMidiFileLimit);
    if (contents.result != ReadResult::Read)
        return Problem{path.string() + ": " + contents.problem.text()};
    Result<MidiFile> file = parse(contents.bytes);
    if (!file.ok())
        return file.problem().of(path.string());
    return file;
}

std::set<int> MidiFile::controllers(int channel) const {
    constexpr int kControlChange = 0xB0;
    constexpr int kHighestController = 119; // above are channel mode messages
    std::set<int> moved;
    for (const Event& event : events) {
        const auto* const message = std::get_if<ChannelMessage>(&event.content);
        if (message == nullptr)
            continue;
        const int status = message->bytes[0];
        if ((status & 0xF0) == kControlChange && message->bytes[1] <= kHighestController &&
            (channel == 0 || (status & 0x0F) == channel - 1))
            moved.insert(message->bytes[1]);
    }
    return moved;
}

} // namespace pedl
