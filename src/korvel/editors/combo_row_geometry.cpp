#include "korvel/editors/combo_row_geometry.h"

#include "korvel/editors/combo_list.h"

namespace korvel::internal {

std::optional<ComboRowGeometry> ComboRowGeometry::Of(const CComboList& list, int row) {
    const ComboTreeItem* item = list.GetTreeItem(row);
    ComboRowGeometry geometry;
    if (!item || !list.GetItemRect(row, &geometry.bounds))
        return std::nullopt;
    geometry.level = item->GetLevel();
    geometry.columnWidth = list.GetColumnWidth(0);
    geometry.hasChecks = list.HasCheckBoxes();
    geometry.hasIcons = list.HasTree();
    return geometry;
}

} // namespace korvel::internal
