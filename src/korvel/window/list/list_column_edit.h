#pragma once

#include "korvel/window/list/list_state.h"

/// Insertion, removal and widths of the columns of a list.
namespace korvel::internal {

/// Returns the number of the column, or None for a column below 0; beyond the end appends. The texts that
/// rows store move along with their columns; but when a column comes or goes at 0 they stay, as column 0
/// shows the labels whichever column it is.
int InsertColumn(ListState& list, int column, ListColumn content);
void DeleteColumn(ListState& list, int column);

/// Pixels, LVSCW_AUTOSIZE or LVSCW_AUTOSIZE_USEHEADER; false without such a column.
bool SetColumnWidth(ListState& list, int column, int width);
/// Sends HDN_ITEMCHANGED to the list when the width is another one. Does nothing without such a column.
void ChangeColumnWidth(ListState& list, int column, int width);
/// The width that shows the texts of all rows; measures each of them.
int FittingWidth(const ListState& list, int column);
/// The same with the title; the last column also fills what is left of the client area.
int FittingWidthWithTitle(const ListState& list, int column);

} // namespace korvel::internal
