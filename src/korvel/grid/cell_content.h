#pragma once

#include "korvel/grid/item_info.h"

namespace korvel::internal {

/// What one cell of a row shows of a value. The empty cell is a CellContent as it is made.
struct CellContent {
    CString text;
    CItemInfo::CONTROLTYPE control = CItemInfo::ctEdit;
    COLORREF color = CItemInfo::NoColor;

    /// `cell` as CItemInfo counts them; a member that is named as the tree's column has cell -1, which shows
    /// nothing.
    void StoreIn(CItemInfo& info, int cell) const;
    /// Moves what a cell shows to another one; the former becomes empty.
    static void Move(CItemInfo& info, int from, int to);
};

} // namespace korvel::internal
