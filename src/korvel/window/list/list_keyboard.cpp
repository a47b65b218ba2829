#include "korvel/window/list/list_keyboard.h"

#include "korvel/window/core/display.h"
#include "korvel/window/core/input_delivery.h"
#include "korvel/window/list/followed_row.h"
#include "korvel/window/list/list_notify.h"
#include "korvel/window/list/list_rows.h"
#include "korvel/window/list/list_scroll.h"
#include "korvel/window/list/list_selection.h"

#include <optional>

namespace korvel::internal {

namespace {

// The row to which a key moves the focus.
std::optional<int> TargetOf(const ListState& list, UINT key) {
    const int last = list.rows.Size() - 1;
    const int focus = list.focusRow;
    const int page = std::max(1, LayoutOf(list).rowsPerPage);
    switch (key) {
    case VK_UP:
        return focus - 1;
    case VK_DOWN:
        return focus + 1;
    case VK_HOME:
        return 0;
    case VK_END:
        return last;
    // A page key goes to the border of the page first, then on by a page.
    case VK_PRIOR:
        return focus > list.topRow ? list.topRow : focus - std::max(1, page - 1);
    case VK_NEXT: {
        const int bottom = list.topRow + page - 1;
        return focus < bottom ? bottom : focus + std::max(1, page - 1);
    }
    default:
        return std::nullopt;
    }
}

SelectionChange ChangeByKeys() {
    if (IsKeyDown(VK_SHIFT))
        return SelectionChange::Extend;
    return IsKeyDown(VK_CONTROL) ? SelectionChange::MoveFocus : SelectionChange::Replace;
}

void MoveTo(ListState& list, int target, SelectionChange change) {
    FollowedRow row(list, std::clamp(target, 0, list.rows.Size() - 1));
    if (MoveSelection(list, row.row, change) && row.IsThere())
        EnsureVisible(list, row.row, Visibility::Whole);
}

void PressSpace(ListState& list) {
    if (!list.rows.Has(list.focusRow))
        return;
    if (list.HasExtendedStyle(LVS_EX_CHECKBOXES))
        ToggleCheck(list, list.focusRow);
    else
        MoveSelection(list, list.focusRow,
                      IsKeyDown(VK_CONTROL) ? SelectionChange::Toggle : SelectionChange::Replace);
}

void Activate(ListState& list) {
    FollowedRow row(list, list.focusRow);
    Notify(list, NM_RETURN);
    if (row.IsThere())
        NotifyRow(list, LVN_ITEMACTIVATE, row.row);
}

} // namespace

bool PressKey(ListState& list, UINT key) {
    NotifyKey(list, key);
    const auto target = TargetOf(list, key);
    if (key == VK_RETURN)
        return Activate(list), false; // a dialog may want the key too
    if (key == VK_SPACE)
        PressSpace(list);
    else if (key == VK_LEFT || key == VK_RIGHT)
        HandleScrollBar(list, WM_HSCROLL, key == VK_LEFT ? SB_LINEUP : SB_LINEDOWN);
    else if (target && list.rows.Size() > 0)
        MoveTo(list, *target, ChangeByKeys());
    else
        return target.has_value();
    return true;
}

bool TypeCharacter(ListState& list, WPARAM byte) {
    const auto character = TypedText(list.Handle(), byte);
    if (!character)
        return true; // its other bytes follow
    const auto search = list.typeAhead.Type(*character, Display().Now());
    if (search.beginning.empty())
        return static_cast<unsigned char>(character->front()) >= ' '; // a blank alone checks or selects
    const int row = TypeAhead::Find(list.rows.Size(), list.focusRow, search, [&](int asked) {
        return list.rows.Has(asked) ? TextOf(list, asked, 0) : CString(); // the text source may remove rows
    });
    if (list.rows.Has(row))
        MoveTo(list, row, SelectionChange::Replace);
    return true;
}

} // namespace korvel::internal
