#pragma once

namespace korvel::internal {

/// What the unit button of an angle does: degrees, radians, gon, and degrees again.
void AdvanceAngleUnit();

} // namespace korvel::internal
