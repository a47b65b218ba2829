#pragma once

#include "korvel/grid/edit_decision.h"
#include "korvel/window/core/window.h"

namespace korvel::internal {

/// What a key means in the selected row of a grid under EGridOption::KeyboardEditing.
struct KeyMeaning {
    enum class Kind { Nothing, Cell, Sign };

    Kind kind = Kind::Nothing;
    CellKey cell = CellKey::Open; ///< what it does with the row's value cell
    UINT sign = 0;                ///< the key of the keypad that it stands for
};

/// The row with the selection.
struct KeyedRow {
    bool isGroup = false; ///< and its name has the focus, not a cell of it
    bool isCollapsed = false;
};

/// Nothing also for what the keypad's own keys do as keys already.
KeyMeaning MeaningOf(const MSG& message, const KeyedRow& row);

} // namespace korvel::internal
