#pragma once

#include "korvel/editors/combo_list_codes.h"

namespace korvel::internal {

/// What the height of a list that drops down follows from, in pixels.
struct DropDownContent {
    int rows = 0;
    int rowHeight = 0;
    int frame = 0; ///< what border and header take
    int room = 0;  ///< below the field
    int highest = HighestDropDown;
};

/// Whole rows: as many as the highest list and the room hold, but three at least, and never more than there
/// are. A list without rows is as high as one.
///
///     DropDownHeight({.rows = 50, .rowHeight = 20, .frame = 2, .room = 900});   // 142
///     DropDownHeight({.rows = 50, .rowHeight = 20, .frame = 2, .room = 10});    // 62
int DropDownHeight(const DropDownContent& content);

} // namespace korvel::internal
