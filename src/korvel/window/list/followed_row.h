#pragma once

#include "korvel/window/list/list_state.h"

namespace korvel::internal {

/// A row that is followed by its number while handlers insert and remove others. Lives on the stack: of
/// several, the one made last dies first. Never const: the list changes its number.
struct FollowedRow {
    FollowedRow(ListState& owner, int number);
    ~FollowedRow();
    FollowedRow(const FollowedRow&) = delete;
    FollowedRow& operator=(const FollowedRow&) = delete;

    bool IsThere() const { return list.rows.Has(row); }

    ListState& list;
    FollowedRow* const outer;
    int row; // NoRow when it is gone
};

} // namespace korvel::internal
