#pragma once

#include <filesystem>

namespace pedl::demo {

/// Copies every automation curve (.csv) of a folder into another, in the same course over another
/// length.
///
/// @param times  what each time in a curve is multiplied by
///
/// Throws std::runtime_error with the path and the reason.
void stretchCurves(const std::filesystem::path& from, const std::filesystem::path& to,
                   double times);

} // namespace pedl::demo
