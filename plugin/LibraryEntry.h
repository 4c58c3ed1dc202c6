#pragma once

#include "foundation/platform/FileSettingsStore.h"
#include "foundation/platform/StandardErrorStream.h"
#include "foundation/platform/SystemClock.h"
#include "foundation/vst24/AudioEffectX.h"

namespace pedl {

/// What an instance takes from the system. A base, because it is there before the effect and goes
/// after it; not a global, because a library must leave nothing to do when it is unloaded.
struct SystemSurroundings {
    SystemClock systemClock;
    StandardErrorStream standardError;
    FileSettingsStore userSettings{userSettingsFolder(), standardError};
};

/// A new instance for the host, which deletes it by closing the effect.
/// @return null where the host answers no version or memory is short
template <class Instance> AEffect* newInstance(audioMasterCallback host) noexcept {
    if (host == nullptr || host(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0F) == 0)
        return nullptr;
    try {
        return (new Instance(host))->getAeffect();
    } catch (...) { // the host is C: nothing thrown may reach it
        return nullptr;
    }
}

} // namespace pedl
