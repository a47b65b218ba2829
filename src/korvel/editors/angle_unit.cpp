#include "korvel/editors/angle_unit.h"

#include "korvel/output/angles.h"

namespace korvel::internal {

void AdvanceAngleUnit() {
    constexpr char Degrees = '\xB0';
    switch (GetAngleUnit()) {
    case 'r':
        return SetAngleUnit('g');
    case 'g':
        return SetAngleUnit(Degrees);
    default:
        return SetAngleUnit('r');
    }
}

} // namespace korvel::internal
