#include "controls/ValueLabel.h"

namespace pedl {

void ValueTextSource::writeValueText(float value, int32_t tag, char* text) const {
    if (tag >= 0 && taggedValueToStringProc)
        taggedValueToStringProc(value, text, procUserData, tag);
    else if (valueToStringProcWithData)
        valueToStringProcWithData(value, text, procUserData, tag);
    else if (valueToStringProc)
        valueToStringProc(value, text);
    else
        std::snprintf(text, kValueTextBytes, "%2.2f", static_cast<double>(value));
}

} // namespace pedl
