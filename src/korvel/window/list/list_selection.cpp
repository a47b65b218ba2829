#include "korvel/window/list/list_selection.h"

#include "korvel/window/list/followed_row.h"
#include "korvel/window/list/list_notify.h"
#include "korvel/window/list/list_scroll.h"

#include <utility>

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

// Calls `visit` with each selected row, until it returns false. Counted, so that a handler that inserts or
// selects among the rest cannot keep this going.
template <class Visit>
bool ForEachSelected(ListState& list, Visit visit) {
    int next = 0;
    for (int left = list.rows.SelectedCount(); left > 0; --left) {
        const int row = list.rows.FindSelected(next);
        if (row == NoRow)
            break;
        FollowedRow visited(list, row);
        if (!visit(row))
            return false;
        next = visited.IsThere() ? visited.row + 1 : row;
    }
    return true;
}

// Calls `visit` with each row that loses some of the bits to `taker`, until it returns false.
template <class Visit>
bool ForEachLoser(ListState& list, const FollowedRow& taker, UINT taken, Visit visit) {
    const bool focusMoves = (taken & LVIS_FOCUSED) != 0 && list.focusRow != taker.row;
    FollowedRow focus(list, focusMoves ? list.focusRow : NoRow);
    if (focus.IsThere() && !visit(focus.row))
        return false;
    return (taken & LVIS_SELECTED) == 0 ||
           ForEachSelected(list, [&](int row) { return row == taker.row || row == focus.row || visit(row); });
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

// Deselects every row but those from `first` to `last`; what a refusal keeps stays selected.
void DeselectOutside(ListState& list, const FollowedRow& first, const FollowedRow& last) {
    ForEachSelected(
        list,
        [&](int row) {
            if (row < first.row || row > last.row)
                SetState(list, row, 0, LVIS_SELECTED);
            return true;
        });
}

void SelectRange(ListState& list, const FollowedRow& first, const FollowedRow& last) {
    DeselectOutside(list, first, last);
    int row = first.row;
    for (int left = last.row - first.row + 1; left > 0 && list.rows.Has(row); --left) {
        FollowedRow selected(list, row);
        SetState(list, row, LVIS_SELECTED, LVIS_SELECTED);
        row = selected.IsThere() ? selected.row + 1 : row;
    }
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
        DeselectAll(list);
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

int SetMark(ListState& list, int row) {
    return std::exchange(list.markRow, list.rows.Has(row) ? row : NoRow);
}

void DeselectAll(ListState& list) {
    FollowedRow none(list, NoRow);
    DeselectOutside(list, none, none);
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
        DeselectOutside(list, target, target);
        if (target.IsThere())
            Take(list, target, Both, Both);
        return true;
    case SelectionChange::Extend: {
        FollowedRow mark(list, list.rows.Has(list.markRow) ? list.markRow : std::max(0, list.focusRow));
        if (!SetState(list, row, LVIS_FOCUSED, LVIS_FOCUSED))
            return false;
        list.markRow = mark.row;
        if (mark.IsThere() && target.IsThere())
            SelectRange(list, mark.row < target.row ? mark : target, mark.row < target.row ? target : mark);
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
    FollowedRow toggled(list, row);
    SetCheck(list, row, check);
    if (withSelected)
        ForEachSelected(list, [&](int other) {
            if (other != toggled.row)
                SetCheck(list, other, check);
            return true;
        });
}

bool SetCheck(ListState& list, int row, bool check) {
    return list.rows.At(row).checked == check ||
           SetState(list, row, check ? CheckedState : UncheckedState, LVIS_STATEIMAGEMASK);
}

} // namespace korvel::internal
