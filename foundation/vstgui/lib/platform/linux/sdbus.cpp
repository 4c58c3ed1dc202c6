#include "vstgui/lib/platform/linux/sdbus.h"

#include <dlfcn.h>

namespace VSTGUI {

std::unique_ptr<SdBus> SdBus::open() {
    void* const library = dlopen("libsystemd.so.0", RTLD_NOW | RTLD_LOCAL);
    if (!library)
        return nullptr;
    std::unique_ptr<SdBus> bus(new SdBus(library));
    bool isWhole = true;
#define VSTGUI_SD_BUS_RESOLVE(name)                                                                \
    bus->name = reinterpret_cast<decltype(&::name)>(dlsym(library, #name));                        \
    isWhole = isWhole && bus->name;
    VSTGUI_SD_BUS_FUNCTIONS(VSTGUI_SD_BUS_RESOLVE)
#undef VSTGUI_SD_BUS_RESOLVE
    return isWhole ? std::move(bus) : nullptr;
}

SdBus::~SdBus() {
    dlclose(library_);
}

} // namespace VSTGUI
