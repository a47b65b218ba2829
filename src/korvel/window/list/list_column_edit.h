#pragma once

#include "korvel/window/list/list_state.h"

/// Insertion, removal and widths of the columns of a list.
namespace korvel::internal {

/// Answers where the column stands; the texts that rows store move along.
int InsertColumn(ListState& list, int column, ListColumn content);
void DeleteColumn(ListState& list, int column);

/// Tells the list HDN_ITEMCHANGED when the width is another one. A column that is not there has none.
void ChangeColumnWidth(ListState& list, int column, int width);
/// The width that shows the texts of all rows; measures each of them.
int FittingWidth(const ListState& list, int column);
/// The same with the title; the last column also fills what is left of the client area.
int FittingWidthWithTitle(const ListState& list, int column);

} // namespace korvel::internal
