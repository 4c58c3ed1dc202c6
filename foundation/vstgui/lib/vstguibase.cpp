#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

void CBaseObject::forget() {
    // The last reference stays counted while the object goes: a destructor that guards it for a
    // moment does not delete it a second time. Whoever deletes has seen what the others did, hence
    // the order.
    int32_t count = nbReference.load(std::memory_order_acquire);
    while (count > 1)
        if (nbReference.compare_exchange_weak(count, count - 1, std::memory_order_acq_rel,
                                              std::memory_order_acquire))
            return;
    delete this;
}

void CBaseObject::remember() {
    nbReference.fetch_add(1, std::memory_order_relaxed);
}

CMessageResult CBaseObject::notify(CBaseObject* /*sender*/, IdStringPtr /*message*/) {
    return kMessageUnknown;
}

} // namespace VSTGUI
