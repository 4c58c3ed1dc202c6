#pragma once

#include "foundation/platform/DocumentOpener.h"

#include <string>

namespace pedl {

/// What an editor takes from the system around it.
struct EditorSurroundings {
    /// Shows documents and web pages, and outlives the editor; with null none are shown.
    DocumentOpener* opener = nullptr;
    /// Where the operation manual is when the user has named no other; empty where there is none.
    std::string installedManual;
};

} // namespace pedl
