#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

void CBaseObject::forget() {
    // The last reference stays counted while the object goes: a destructor that guards it for a
    // moment does not delete it a second time.
    if (nbReference > 1)
        --nbReference;
    else
        delete this;
}

void CBaseObject::remember() {
    ++nbReference;
}

CMessageResult CBaseObject::notify(CBaseObject* /*sender*/, IdStringPtr /*message*/) {
    return kMessageUnknown;
}

} // namespace VSTGUI
