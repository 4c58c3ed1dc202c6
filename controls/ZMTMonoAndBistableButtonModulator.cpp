#include "controls/ZMTMonoAndBistableButtonModulator.h"

namespace pedl {

float ZMTMonoAndBistableButtonModulator::pressedValue() const {
    return mode == kFirstMomentary ? vmax : vmin;
}

float ZMTMonoAndBistableButtonModulator::startValue() const {
    return mode == kSecondMomentary ? vmax : vmin;
}

float ZMTMonoAndBistableButtonModulator::secondFrameValue() const {
    return mode == kSecondMomentary ? vmin : vmax;
}

} // namespace pedl
