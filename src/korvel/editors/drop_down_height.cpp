#include "korvel/editors/drop_down_height.h"

#include <algorithm>

namespace korvel::internal {

int DropDownHeight(const DropDownContent& content) {
    constexpr int FewestRows = 3;
    const int rowHeight = std::max(content.rowHeight, 1);
    const int fitting = (std::min(content.highest, content.room) - content.frame) / rowHeight;
    const int rows = std::min(std::max(fitting, FewestRows), std::max(content.rows, 1));
    return rows * rowHeight + content.frame;
}

} // namespace korvel::internal
