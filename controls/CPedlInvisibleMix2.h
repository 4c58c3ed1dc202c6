#pragma once

#include "controls/RelativeMix.h"

namespace pedl {

/// Moves input and output level against each other.
class CPedlInvisibleMix2 : public RelativeMix {
public:
    using RelativeMix::RelativeMix;
    CLASS_METHODS(CPedlInvisibleMix2, CControl)

protected:
    ~CPedlInvisibleMix2() override = default;
};

} // namespace pedl
