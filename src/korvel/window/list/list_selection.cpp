#include "korvel/window/list/list_selection.h"

#include "korvel/window/list/followed_row.h"
#include "korvel/window/list/list_notify.h"
#include "korvel/window/list/list_scroll.h"

namespace korvel::internal {

namespace {

// The numbers of the state images begin at bit 12.
constexpr UINT UncheckedState = 1u << 12;
constexpr UINT CheckedState = 2u << 12;

UINT Wanted(UINT before, UINT state, UINT mask) {
    return (before & ~mask) | (state & mask);
}

// Asks whether a row may take a state; not where it has it already.
bool MayChange(ListState& list, int row, UINT state, UINT mask) {
    const UINT before = StateOf(list, row);
    const UINT wanted = Wanted(before, state, mask);
    return wanted == before || NotifyState(list, LVN_ITEMCHANGING, row, before, wanted) == 0;
}

void Change(ListState& list, int row, UINT state, UINT mask) {
    const UINT before = StateOf(list, row);
    const UINT wanted = Wanted(before, state, mask);
    if (wanted == before)
        return;
    list.rows.Select(row, (wanted & LVIS_SELECTED) != 0);
    list.rows.At(row).checked = (wanted & LVIS_STATEIMAGEMASK) == CheckedState;
    if ((wanted & LVIS_FOCUSED) != 0)
        list.focusRow = row;
    else if (list.focusRow == row)
        list.focusRow = NoRow;
    if ((wanted & ~before & LVIS_SELECTED) != 0 && list.markRow == NoRow)
        list.markRow = row;
    RepaintRows(list, row, row + 1);
    NotifyState(list, LVN_ITEMCHANGED, row, before, wanted);
}

// The bits that a row gains by a change and that only one row can have.
UINT TakenBits(const ListState& list, int row, UINT state, UINT mask) {
    const UINT gained = state & mask & ~StateOf(list, row);
    return gained & (list.HasStyle(LVS_SINGLESEL) ? LVIS_FOCUSED | LVIS_SELECTED : LVIS_FOCUSED);
}

// Calls `visit` with each row that loses some of the bits to `taker`, until it returns false.
template <class Visit>
bool ForEachLoser(ListState& list, const FollowedRow& taker, UINT taken, Visit visit) {
    const int focus = list.focusRow;
    const bool focusMoves = (taken & LVIS_FOCUSED) != 0 && list.rows.Has(focus) && focus != taker.row;
    if (focusMoves && !visit(focus))
        return false;
    if ((taken & LVIS_SELECTED) == 0)
        return true;
    for (int row = list.rows.FindSelected(0); row != NoRow; row = list.rows.FindSelected(row + 1))
        if (row != taker.row && !(focusMoves && row == focus) && !visit(row))
            return false;
    return true;
}

// The row itself is asked first, then those that lose by it. Nothing has changed yet.
bool MayTake(ListState& list, const FollowedRow& row, UINT state, UINT mask) {
    const UINT taken = TakenBits(list, row.row, state, mask);
    return MayChange(list, row.row, state, mask) && row.IsThere() &&
           ForEachLoser(list, row, taken, [&](int loser) { return MayChange(list, loser, 0, taken); }) &&
           row.IsThere();
}

void Take(ListState& list, const FollowedRow& row, UINT state, UINT mask) {
    const UINT taken = TakenBits(list, row.row, state, mask);
    ForEachLoser(list, row, taken, [&](int loser) { return Change(list, loser, 0, taken), true; });
    if (row.IsThere())
        Change(list, row.row, state, mask);
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
    FollowedRow target(list, row);
    if (!MayTake(list, target, state, mask))
        return false;
    Take(list, target, state, mask);
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
    if (row < NoRow || row >= list.rows.Size())
        return NoRow;
    if ((flags & LVNI_FOCUSED) != 0) {
        const int focus = list.focusRow;
        const bool fits = (flags & LVNI_SELECTED) == 0 || (focus != NoRow && list.rows.IsSelected(focus));
        return focus != row && fits ? focus : NoRow;
    }
    const int first = row + 1;
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

bool MoveSelection(ListState& list, int row, SelectionChange change) {
    constexpr UINT Both = LVIS_SELECTED | LVIS_FOCUSED;
    if (list.HasStyle(LVS_SINGLESEL))
        change = SelectionChange::Replace;
    FollowedRow target(list, row);
    switch (change) {
    case SelectionChange::Replace:
        if (!MayTake(list, target, Both, Both))
            return false;
        list.markRow = target.row;
        DeselectOutside(list, target.row, target.row + 1);
        if (target.IsThere())
            Take(list, target, Both, Both);
        return true;
    case SelectionChange::Extend: {
        if (!list.rows.Has(list.markRow))
            list.markRow = std::max(0, list.focusRow);
        const int mark = list.markRow;
        if (!SetState(list, row, LVIS_FOCUSED, LVIS_FOCUSED))
            return false;
        SelectRange(list, std::min(mark, row), std::max(mark, row) + 1);
        return true;
    }
    case SelectionChange::MoveFocus:
        return SetState(list, row, LVIS_FOCUSED, LVIS_FOCUSED);
    case SelectionChange::Toggle: {
        const UINT selected = list.rows.IsSelected(row) ? 0 : LVIS_SELECTED;
        if (!MayTake(list, target, selected | LVIS_FOCUSED, Both))
            return false;
        list.markRow = target.row;
        Take(list, target, selected | LVIS_FOCUSED, Both);
        return true;
    }
    }
    return false;
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
