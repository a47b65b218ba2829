#pragma once

#include "korvel/window/list/list_state.h"

/// The header of a list: a child window as wide as the content, moved as the list scrolls, so that its
/// client coordinates are those of the columns.
namespace korvel::internal {

class HeaderState : public ControlState {
public:
    int trackedColumn = ListColumns::None; // whose divider is dragged
    int pressedColumn = ListColumns::None; // whose title is pressed
    int trackStart = 0;                    // where the drag began, over the list
    int widthAtStart = 0;
};

} // namespace korvel::internal
