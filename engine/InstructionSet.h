#pragma once

namespace pedl {

/// The processor instructions that the engine's stages are compiled for. Every set gives the same
/// bits; a wider one only takes less time.
enum class InstructionSet { Sse2, Avx2 };

/// The widest set that this processor and operating system run.
[[nodiscard]] InstructionSet widestInstructionSet() noexcept;

} // namespace pedl
