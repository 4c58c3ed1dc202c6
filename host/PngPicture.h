#pragma once

#include "foundation/text/Result.h"
#include "host/EditorWindow.h"
#include "host/OutputFile.h"

namespace pedl {

/// Writes a picture as PNG, the file's whole content.
Done writePng(const WindowPicture& picture, OutputFile& file);

} // namespace pedl
