#include "foundation/platform/ChildEnvironment.h"

#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace pedl {

namespace {

// clang-format off
/// What a host, or the bundle that it comes in, sets for itself and what breaks a program of the
/// system.
constexpr std::string_view kHostsOwn[] = {
    // the host's versions of libraries in the place of the system's
    "LD_LIBRARY_PATH", "LD_PRELOAD", "LD_AUDIT",
    // its loadable parts of GTK, built against those versions
    "GTK_PATH", "GTK_MODULES", "GTK3_MODULES", "GTK_EXE_PREFIX", "GTK_DATA_PREFIX",
    "GTK_IM_MODULE_FILE", "GTK2_RC_FILES", "GDK_PIXBUF_MODULE_FILE", "GDK_PIXBUF_MODULEDIR",
    "GIO_MODULE_DIR", "GIO_EXTRA_MODULES", "GI_TYPELIB_PATH", "GSETTINGS_SCHEMA_DIR",
    // of Pango and fontconfig
    "PANGO_LIBDIR", "PANGO_SYSCONFDIR", "PANGO_RC_FILE", "FONTCONFIG_FILE", "FONTCONFIG_PATH",
    // of Qt
    "QT_PLUGIN_PATH", "QT_QPA_PLATFORM_PLUGIN_PATH", "QML2_IMPORT_PATH", "QML_IMPORT_PATH",
    // of C's character sets
    "GCONV_PATH", "LOCPATH",
    // its windows' kind; who starts a dialog for an X11 window says so anew
    "GDK_BACKEND", "QT_QPA_PLATFORM",
};
// clang-format on

/// As the C library chooses the character set.
bool speaksUtf8() {
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char* locale = getenv(name); locale && *locale)
            return strcasestr(locale, "utf-8") || strcasestr(locale, "utf8");
    return false;
}

} // namespace

std::vector<std::string> environmentOfChild(std::vector<std::string> lines) {
    const bool isUtf8 = speaksUtf8();
    if (!isUtf8) // names with other letters than English would come back with question marks
        lines.emplace_back("LC_CTYPE=C.UTF-8");
    for (char** line = environ; line && *line; ++line) {
        const std::string_view name(*line, strcspn(*line, "="));
        const bool isReplaced = !isUtf8 && (name == "LC_ALL" || name == "LC_CTYPE");
        if (!isReplaced &&
            std::find(std::begin(kHostsOwn), std::end(kHostsOwn), name) == std::end(kHostsOwn))
            lines.emplace_back(*line);
    }
    return lines;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace pedl
