// Writes one value into a settings folder, for CrashSafetyTest to kill it or to let its system
// calls fail. Two calls that find nothing mark where the writing begins and ends. Usage:
// storeWriter FOLDER NAME TEXT Exit status: 0 when the value was stored.

#include "foundation/platform/FileSettingsStore.h"
#include "foundation/platform/StandardErrorStream.h"

#include <span>
#include <string_view>
#include <unistd.h>

int main(int count, char** arguments) {
    if (count != 4)
        return 2;
    pedl::StandardErrorStream diagnostics;
    pedl::FileSettingsStore store(arguments[1], diagnostics);
    const std::string_view text(arguments[3]);
    (void)!chdir("/mark of the begin");
    const bool isStored = store.write(arguments[2], std::as_bytes(std::span(text)));
    (void)!chdir("/mark of the end");
    return isStored ? 0 : 1;
}
