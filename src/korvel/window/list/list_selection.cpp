#include "korvel/window/list/list_selection.h"

#include "korvel/window/list/list_notify.h"
#include "korvel/window/list/list_scroll.h"

namespace korvel::internal {

namespace {

// The numbers of the state images stand from bit 12 on.
constexpr UINT UncheckedState = 1u << 12;
constexpr UINT CheckedState = 2u << 12;

void ApplyState(ListState& list, int row, UINT state) {
    list.rows.Select(row, (state & LVIS_SELECTED) != 0);
    list.rows.At(row).checked = (state & LVIS_STATEIMAGEMASK) == CheckedState;
    if ((state & LVIS_FOCUSED) != 0)
        list.focusRow = row;
    else if (list.focusRow == row)
        list.focusRow = NoRow;
    RepaintRows(list, row, row + 1);
}

void SelectRange(ListState& list, int first, int last) {
    DeselectOutside(list, first, last);
    for (int row = first; row < last && list.rows.Has(row); ++row)
        SetState(list, row, LVIS_SELECTED, LVIS_SELECTED);
}

} // namespace

UINT StateOf(const ListState& list, int row) {
    const auto& record = list.rows.At(row);
    UINT state = record.IsSelected() ? LVIS_SELECTED : 0;
    if (row == list.focusRow)
        state |= LVIS_FOCUSED;
    if (record.checked)
        state |= CheckedState;
    else if (list.HasExtendedStyle(LVS_EX_CHECKBOXES))
        state |= UncheckedState;
    return state;
}

bool SetState(ListState& list, int row, UINT state, UINT mask) {
    const UINT before = StateOf(list, row);
    const UINT wanted = (before & ~mask) | (state & mask);
    if (wanted == before)
        return true;
    const UINT gained = wanted & ~before;
    if ((gained & LVIS_FOCUSED) != 0 && list.rows.Has(list.focusRow))
        SetState(list, list.focusRow, 0, LVIS_FOCUSED);
    if ((gained & LVIS_SELECTED) != 0 && list.HasStyle(LVS_SINGLESEL))
        DeselectOutside(list, row, row + 1);
    if (!list.rows.Has(row) || NotifyState(list, LVN_ITEMCHANGING, row, before, wanted) != 0)
        return false;
    if (!list.rows.Has(row))
        return false;
    ApplyState(list, row, wanted);
    NotifyState(list, LVN_ITEMCHANGED, row, before, wanted);
    return true;
}

bool SetStateOfAll(ListState& list, UINT state, UINT mask) {
    if ((state & mask & LVIS_SELECTED) != 0 && list.HasStyle(LVS_SINGLESEL))
        return false;
    if (mask == LVIS_SELECTED && state == 0) {
        DeselectOutside(list, 0, 0);
        return true;
    }
    // Only one row can have the focus: to set it for all gives it to none.
    if ((state & LVIS_FOCUSED) != 0)
        mask &= ~LVIS_FOCUSED;
    bool allowed = true;
    for (int row = 0; row < list.rows.Size(); ++row)
        allowed = SetState(list, row, state, mask) && allowed;
    return allowed;
}

int NextRow(const ListState& list, int row, UINT flags) {
    const int first = std::clamp(row, NoRow, list.rows.Size() - 1) + 1;
    if ((flags & LVNI_FOCUSED) != 0) {
        const int focus = list.focusRow;
        const bool fits =
            (flags & LVNI_SELECTED) == 0 || (focus != NoRow && list.rows.At(focus).IsSelected());
        return focus >= first && fits ? focus : NoRow;
    }
    if ((flags & LVNI_SELECTED) != 0)
        return list.rows.FindSelected(first);
    return list.rows.Has(first) ? first : NoRow;
}

void DeselectOutside(ListState& list, int first, int last) {
    for (int row = list.rows.FindSelected(0); row != NoRow; row = list.rows.FindSelected(row + 1))
        if (row >= first && row < last)
            row = last - 1;
        else
            SetState(list, row, 0, LVIS_SELECTED);
}

void MoveSelection(ListState& list, int row, SelectionChange change) {
    constexpr UINT Both = LVIS_SELECTED | LVIS_FOCUSED;
    if (list.HasStyle(LVS_SINGLESEL))
        change = SelectionChange::Replace;
    switch (change) {
    case SelectionChange::Replace:
        list.markRow = row;
        if (row != list.focusRow && list.rows.Has(list.focusRow))
            SetState(list, list.focusRow, 0, LVIS_FOCUSED);
        DeselectOutside(list, row, row + 1);
        if (list.rows.Has(row))
            SetState(list, row, Both, Both);
        break;
    case SelectionChange::Extend: {
        if (!list.rows.Has(list.markRow))
            list.markRow = std::max(0, list.focusRow);
        const int mark = list.markRow;
        SetState(list, row, LVIS_FOCUSED, LVIS_FOCUSED);
        SelectRange(list, std::min(mark, row), std::max(mark, row) + 1);
        break;
    }
    case SelectionChange::MoveFocus:
        SetState(list, row, LVIS_FOCUSED, LVIS_FOCUSED);
        break;
    case SelectionChange::Toggle: {
        list.markRow = row;
        const UINT selected = list.rows.At(row).IsSelected() ? 0 : LVIS_SELECTED;
        SetState(list, row, selected | LVIS_FOCUSED, Both);
        break;
    }
    }
}

void ToggleCheck(ListState& list, int row) {
    const bool check = !list.rows.At(row).checked;
    const bool withSelected = list.rows.At(row).IsSelected();
    SetCheck(list, row, check);
    if (!withSelected)
        return;
    for (int other = list.rows.FindSelected(0); other != NoRow; other = list.rows.FindSelected(other + 1))
        SetCheck(list, other, check);
}

bool SetCheck(ListState& list, int row, bool check) {
    return list.rows.At(row).checked == check ||
           SetState(list, row, check ? CheckedState : UncheckedState, LVIS_STATEIMAGEMASK);
}

} // namespace korvel::internal
