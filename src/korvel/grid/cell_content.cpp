#include "korvel/grid/cell_content.h"

namespace korvel::internal {

void CellContent::StoreIn(CItemInfo& info, int cell) const {
    if (cell < 0)
        return;
    info.SetSubItem(cell, text);
    info.SetControlType(cell, control);
    info.SetCellColor(cell, color);
}

void CellContent::Move(CItemInfo& info, int from, int to) {
    if (from < 0 || from == to)
        return;
    const CellContent moved{info.GetSubItem(from), info.GetControlType(from), info.GetCellColor(from)};
    CellContent().StoreIn(info, from);
    moved.StoreIn(info, to);
}

} // namespace korvel::internal
