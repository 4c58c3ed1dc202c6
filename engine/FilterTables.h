#pragma once

#include <array>
#include <memory>

namespace pedl {

struct alignas(16) SineCosine {
    double sine, cosine;
};

/// Sine and cosine of omega = 2 pi f / fs for frequencies in equal steps of Hz.
///
/// Threads: reading any, real time; `forRate` any but audio.
class TrigonometryTable {
public:
    static constexpr int kEntries = 65536; // from 20 to 20000 Hz, 0.3 Hz apart

    /// The table for a sample rate. All instances that run at one rate share one table.
    [[nodiscard]] static std::shared_ptr<const TrigonometryTable> forRate(double sampleRateHz);

    /// @param index 0..kEntries - 1
    [[nodiscard]] const SineCosine& operator[](int index) const noexcept {
        return entries_[static_cast<std::size_t>(index)];
    }

    explicit TrigonometryTable(double sampleRateHz);

private:
    std::array<SineCosine, kEntries> entries_;
};

/// Exponents that bend the type knob by frequency, so that half a turn sounds like half a turn at
/// every cut-off: one entry a whole hertz, 0 to 20000.
///
/// Threads: reading any, real time; `shared` any but audio, since it may have to build.
struct MorphTable {
    static constexpr int kEntries = 20001;
    std::array<double, kEntries> towardsHighPass; ///< for types above band-pass
    std::array<double, kEntries> towardsLowPass;  ///< for types up to band-pass; entry 0 is 0

    /// The one table of the process; the first caller builds it.
    [[nodiscard]] static const MorphTable& shared();
};

} // namespace pedl
