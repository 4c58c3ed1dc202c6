#pragma once

#include "foundation/text/Result.h"
#include "host/EditorWindow.h"

#include <filesystem>

namespace pedl {

/// Saves a picture as PNG: the file is whole or as it was.
Done savePng(const WindowPicture& picture, const std::filesystem::path& path);

} // namespace pedl
