#include "korvel/window/list/list_mouse.h"

#include "korvel/window/core/focus.h"
#include "korvel/window/list/followed_row.h"
#include "korvel/window/list/list_geometry.h"
#include "korvel/window/list/list_label_edit.h"
#include "korvel/window/list/list_notify.h"
#include "korvel/window/list/list_selection.h"

#include <cstdlib>
#include <utility>

namespace korvel::internal {

namespace {

constexpr int DragDistance = 4; // pixels that the pointer moves before a press becomes a drag
// The timer of the slow second click; out of the way of the ids that hosts use.
constexpr std::uintptr_t LabelEditTimer = 0xFFFFFF01;
constexpr unsigned LabelEditDelay = 500; // milliseconds: longer than a double click

SelectionChange ChangeByFlags(UINT flags) {
    if ((flags & MK_SHIFT) != 0)
        return SelectionChange::Extend;
    return (flags & MK_CONTROL) != 0 ? SelectionChange::Toggle : SelectionChange::Replace;
}

bool IsOnlySelected(const ListState& list, int row) {
    return list.rows.SelectedCount() == 1 && list.rows.At(row).IsSelected() && list.focusRow == row;
}

// A press on a selected row keeps the others selected, because they might be dragged or get a menu; a
// left release then selects the one row.
void SelectByPress(ListState& list, UINT button, UINT flags, const ListHit& hit) {
    const auto change = ChangeByFlags(flags);
    if (change != SelectionChange::Replace && button == MK_LBUTTON) {
        MoveSelection(list, hit.row, change);
    } else if (!list.rows.IsSelected(hit.row)) {
        MoveSelection(list, hit.row, SelectionChange::Replace);
    } else {
        list.press.selectsAtRelease = button == MK_LBUTTON && list.rows.SelectedCount() > 1;
        MoveSelection(list, hit.row, SelectionChange::MoveFocus);
    }
}

void PressRow(ListState& list, UINT button, UINT flags, const ListHit& hit) {
    if (button == MK_LBUTTON && hit.flags == LVHT_ONITEMSTATEICON)
        return ToggleCheck(list, hit.row);
    list.press.editsAtRelease = button == MK_LBUTTON && list.HasStyle(LVS_EDITLABELS) && hit.column == 0 &&
                                hit.flags == LVHT_ONITEMLABEL && IsOnlySelected(list, hit.row) &&
                                ChangeByFlags(flags) == SelectionChange::Replace;
    SelectByPress(list, button, flags, hit);
}

void Press(ListState& list, UINT button, UINT flags, const ListHit& hit, CPoint point) {
    KillTimer(list.Handle(), LabelEditTimer);
    list.press = {button, point, hit.row, std::max(hit.column, 0)};
    if (hit.row != NoRow)
        PressRow(list, button, flags, hit);
    else if (ChangeByFlags(flags) == SelectionChange::Replace)
        DeselectAll(list);
}

} // namespace

bool BeginPress(HWND window) {
    const bool isTaken = TakeLabel(window); // one that waits has no focus to lose
    SetFocus(window);
    const bool isRefused = !isTaken || (GetFocus() != window && CanTakeFocus(window));
    if (const ControlOf<ListState> list(window); list)
        list->isPressRefused = isRefused;
    return !isRefused;
}

bool WasPressRefused(HWND window) {
    const ControlOf<ListState> list(window);
    return list && list->isPressRefused;
}

void PressButton(ListState& list, UINT button, UINT flags, CPoint point) {
    const bool hadFocus = GetFocus() == list.Handle();
    if (!BeginPress(list.Handle()))
        return;
    Press(list, button, flags, HitTest(list, point), point);
    if (!hadFocus)
        list.press.editsAtRelease = false;
}

void ForgetLabelClick(HWND window) {
    if (const ControlOf<ListState> list(window); list) {
        list->press.editsAtRelease = false;
        KillTimer(window, LabelEditTimer);
    }
}

void DoubleClick(ListState& list, UINT flags, CPoint point) {
    if (list.isPressRefused)
        return;
    const ListHit hit = HitTest(list, point);
    FollowedRow pressed(list, hit.row);
    Press(list, MK_LBUTTON, flags, hit, point);
    list.press = {};
    NotifyRow(list, NM_DBLCLK, pressed.row, std::max(hit.column, 0), point);
    if (pressed.IsThere() && hit.flags != LVHT_ONITEMSTATEICON)
        NotifyRow(list, LVN_ITEMACTIVATE, pressed.row, std::max(hit.column, 0), point);
}

void MovePointer(ListState& list, UINT flags, CPoint point) {
    if (list.press.button == 0)
        return;
    if ((flags & list.press.button) == 0) {
        list.press = {}; // released somewhere else
        return;
    }
    const bool isFar = std::abs(point.x - list.press.point.x) >= DragDistance ||
                       std::abs(point.y - list.press.point.y) >= DragDistance;
    if (!isFar || list.press.button != MK_LBUTTON || list.press.row == NoRow)
        return;
    const ListPress press = std::exchange(list.press, {});
    NotifyRow(list, LVN_BEGINDRAG, press.row, press.column, press.point);
}

bool ReleaseButton(ListState& list, UINT button, CPoint point) {
    if (list.press.button != button)
        return false;
    const ListPress press = std::exchange(list.press, {});
    FollowedRow pressed(list, press.row);
    if (press.selectsAtRelease && pressed.IsThere())
        MoveSelection(list, pressed.row, SelectionChange::Replace);
    if (press.editsAtRelease && pressed.IsThere()) {
        list.slowClickRow = pressed.row;
        SetTimer(list.Handle(), LabelEditTimer, LabelEditDelay);
    }
    return NotifyRow(list, button == MK_LBUTTON ? NM_CLICK : NM_RCLICK, pressed.row, press.column, point) !=
           0;
}

bool FireLabelEditTimer(ListState& list, std::uintptr_t id) {
    if (id != LabelEditTimer)
        return false;
    KillTimer(list.Handle(), LabelEditTimer);
    const int row = std::exchange(list.slowClickRow, NoRow);
    if (GetFocus() == list.Handle() && list.rows.Has(row) && IsOnlySelected(list, row))
        BeginLabelEdit(list, row);
    return true;
}

} // namespace korvel::internal
