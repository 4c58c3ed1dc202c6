#include "presets/ViewLink.h"

#include <thread>

namespace pedl {

void ViewLink::set(PresetSystemView* view) noexcept {
    view_.store(view);
    while (telling_.load() != 0)
        std::this_thread::yield();
}

} // namespace pedl
