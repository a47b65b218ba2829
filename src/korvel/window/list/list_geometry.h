#pragma once

#include "korvel/window/list/list_state.h"

/// The places of the parts of a list, in its client coordinates.
namespace korvel::internal {

/// The parts of one cell. State icon and icon are empty in other columns than 0.
struct CellParts {
    CRect bounds;
    CRect stateIcon; // the check box
    CRect icon;
    CRect label;
};

struct ListHit {
    int row = NoRow;
    int column = ListColumns::None;
    UINT flags = LVHT_NOWHERE;

    /// Returns the row.
    int StoreIn(LVHITTESTINFO& info) const {
        info.flags = flags;
        info.iItem = row;
        info.iSubItem = column;
        return row;
    }
};

int RowHeight(const ListState& list);
/// 0 for a list without a header.
int HeaderHeight(const ListState& list);
CSize ClientSize(const ListState& list);

/// What follows from size, rows and columns.
struct ListLayout {
    CSize client;
    int rowsPerPage = 0; // whole rows
    int lastTopRow = 0;  // the greatest top row
    int lastScrollX = 0;
};
ListLayout LayoutOf(const ListState& list);
view::ScrollView ScrollOf(const ListState& list, const ListLayout& layout);

/// All columns of a row, on screen or not.
CRect RowBounds(const ListState& list, int row);
/// What indent, check box and icon take in column 0 in front of the label.
int WidthBeforeLabel(const ListState& list, int row);
CellParts PartsOfCell(const ListState& list, int row, int column);
/// Each point of a cell belongs to its row; right of the last column there is none.
ListHit HitTest(const ListState& list, CPoint point);

/// The rows from `first` to before `last` that a part of the client area touches.
struct RowSpan {
    int first = 0;
    int last = 0;
};
RowSpan RowsIn(const ListState& list, const CRect& area);

} // namespace korvel::internal
