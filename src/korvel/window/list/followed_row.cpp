#include "korvel/window/list/followed_row.h"

namespace korvel::internal {

FollowedRow::FollowedRow(ListState& owner, int number) : list(owner), outer(owner.followedRows), row(number) {
    list.followedRows = this;
}

FollowedRow::~FollowedRow() {
    list.followedRows = outer;
}

} // namespace korvel::internal
