#pragma once

#include "korvel/window/controls/date_time_state.h"

/// The keys of a date control that no native widget acts for: left and right choose a part of the date, up
/// and down, Home, End and digits change it; in the open calendar arrows and Page keys move by days, weeks
/// and months.
namespace korvel::internal {

/// Whether the key is for the window also where a native widget edits the date: it opens or closes the
/// calendar, brings the date back, or says that there is no date.
bool IsKeyOfWindow(const DateTimeState& control, UINT message, UINT key);
/// False: nothing is done with the key.
bool PressKey(DateTimeState& control, UINT message, UINT key);
bool TypeDigit(DateTimeState& control, char character);

} // namespace korvel::internal
