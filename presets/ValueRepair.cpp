#include "presets/ValueRepair.h"

namespace pedl {

namespace {

constexpr int kDecimals = 6;

} // namespace

RepairText programRepairText(std::int32_t parameter, float value, std::string_view place,
                             std::int32_t slot, std::string_view programName) {
    RepairText text = "Invalid parameter ";
    text.appendInteger(parameter);
    text.append(" value ");
    if (std::isnan(value))
        text.append("NaN");
    else
        text.appendFixed(static_cast<double>(value), kDecimals);
    text.append(' ');
    text.append(place);
    text.append(' ');
    text.appendInteger(slot);
    text.append(' ');
    text.append(programName);
    return text;
}

RepairText plainRepairText(std::int32_t parameter, float value, std::string_view place) {
    RepairText text = "Invalid parameter ";
    if (std::isnan(value))
        text.append("NaN");
    else
        text.appendInteger(parameter);
    text.append(" value ");
    text.appendFixed(static_cast<double>(value), kDecimals);
    text.append(' ');
    text.append(place);
    return text;
}

} // namespace pedl
