#pragma once

#include "korvel/window/list/list_state.h"

/// Selection, focus and check of rows, with the notices that go with them.
namespace korvel::internal {

/// LVIS_* bits, the state image (1 unchecked, 2 checked) included.
UINT StateOf(const ListState& list, int row);
/// Changes the state of one row as far as LVN_ITEMCHANGING is not refused: what takes the focus or, with
/// LVS_SINGLESEL, the selection is first taken from its former row. False when it was refused.
bool SetState(ListState& list, int row, UINT state, UINT mask);
/// Changes all rows; selecting all is refused with LVS_SINGLESEL.
bool SetStateOfAll(ListState& list, UINT state, UINT mask);
/// The first row behind `row` (NoRow: from the start) with all of the LVNI_* flags, or NoRow.
int NextRow(const ListState& list, int row, UINT flags);
/// Removes the selection from all rows but those from `first` to before `last`.
void DeselectOutside(ListState& list, int first, int last);

/// How a key or press with Shift and Ctrl changes the selection.
enum class SelectionChange { Replace, Extend, MoveFocus, Toggle };
void MoveSelection(ListState& list, int row, SelectionChange change);

/// Inverts the check of a row and gives the new one to all selected rows when it is one of them.
void ToggleCheck(ListState& list, int row);
bool SetCheck(ListState& list, int row, bool check);

} // namespace korvel::internal
