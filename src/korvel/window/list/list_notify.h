#pragma once

#include "korvel/window/list/list_state.h"

/// What a list tells its parent. Each answers what the parent answered.
namespace korvel::internal {

LRESULT Notify(ListState& list, UINT code);
LRESULT NotifyRow(ListState& list, UINT code, int row, int column = 0, CPoint point = {});
/// LVN_ITEMCHANGING and LVN_ITEMCHANGED of a row's state.
LRESULT NotifyState(ListState& list, UINT code, int row, UINT oldState, UINT newState);
void NotifyKey(ListState& list, UINT key);
LRESULT NotifyLabelEdit(ListState& list, UINT code, int row, const char* text);
/// The header's notices of a column go to the list.
LRESULT NotifyHeader(ListState& list, UINT code, int column);

} // namespace korvel::internal
