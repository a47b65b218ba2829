#pragma once

#include "korvel/window/base/types.h"

/// Rows of a list that follow a model: they come and go without notices, as what they show has changed
/// already. A host's own insertions and removals (CListCtrl) always notify.
namespace korvel::internal {

/// Inserts `count` rows with `data[i]` and `indent` in one step. With a text source the rows store nothing
/// else. Returns the first of them, or -1 for a row below 0; beyond the end appends.
int InsertModelRows(HWND list, int row, const LPARAM* data, int count, int indent);

/// Removes the rows from `first` to before `last` at once; false when they are not all there. A label edit in
/// one of them is cancelled when they are gone.
bool DeleteModelRows(HWND list, int first, int last);

} // namespace korvel::internal
