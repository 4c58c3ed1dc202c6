#pragma once

#include "controls/RelativeMix.h"

namespace pedl {

/// Moves the mix of dry and wet.
class CPedlInvisible2Mix : public RelativeMix {
public:
    using RelativeMix::RelativeMix;
    CLASS_METHODS(CPedlInvisible2Mix, CControl)

protected:
    ~CPedlInvisible2Mix() override = default;
};

} // namespace pedl
