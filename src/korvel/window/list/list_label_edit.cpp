#include "korvel/window/list/list_label_edit.h"

#include "korvel/window/controls/edit_procedure.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/display/window_view.h"
#include "korvel/window/list/list_notify.h"
#include "korvel/window/list/list_rows.h"
#include "korvel/window/list/list_scroll.h"

namespace korvel::internal {

namespace {

constexpr int SmallestEdit = 40; // pixels: a label that is cut off can still be edited

// It replaces the procedure alone, so that a host may still attach an object to the edit.
LRESULT LabelEditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const ControlOf<ListState> list(GetParent(window));
    if (list && list->labelEdit.window == window) {
        const bool isKey = message == WM_KEYDOWN;
        if (isKey && wParam == VK_RETURN)
            return list->EndLabelEdit(LabelEditEnd::Take), 0;
        if (isKey && wParam == VK_ESCAPE)
            return list->EndLabelEdit(LabelEditEnd::Cancel), 0;
        if (message == WM_GETDLGCODE)
            return DLGC_WANTALLKEYS | DLGC_HASSETSEL;
        if (message == WM_KILLFOCUS && !ComesFocusBack()) {
            const LRESULT result = EditProcedure(window, message, wParam, lParam);
            list->EndLabelEdit(LabelEditEnd::Take);
            return result;
        }
        if (message == WM_DESTROY)
            list->labelEdit = {};
    }
    return EditProcedure(window, message, wParam, lParam);
}

CRect EditRect(const ListState& list, int row) {
    const CSize client = ClientSize(list);
    CRect rect = PartsOfCell(list, row, 0).label;
    rect.left = std::clamp(rect.left, 0, std::max(0, client.cx - SmallestEdit));
    rect.right = std::max(std::min(rect.right, client.cx), rect.left + SmallestEdit);
    return rect;
}

bool OfferText(ListState& list, LabelEditEnd end) {
    const CString text = GetWindowTextA(list.labelEdit.window);
    const bool taken = end == LabelEditEnd::Take;
    const bool accepted =
        NotifyLabelEdit(list, LVN_ENDLABELEDIT, list.labelEdit.row, taken ? text.c_str() : nullptr) != 0;
    const int row = list.labelEdit.row; // rows may have moved
    if (!taken || !accepted || !list.rows.Has(row))
        return accepted;
    if (list.textSource && !list.rows.At(row).texts)
        RepaintRows(list, row, row + 1); // the source of the text has taken it
    else
        SetText(list, row, 0, text);
    return true;
}

void Close(ListState& list) {
    const HWND edit = std::exchange(list.labelEdit, {}).window;
    const bool hadFocus = edit && GetFocus() == edit;
    DestroyWindow(edit);
    if (hadFocus)
        SetFocus(list.Handle());
}

// Whatever is thrown while the edit begins or ends, none stays open.
template <class Tell>
auto ClosedOnThrow(ListState& list, Tell tell) {
    try {
        return tell();
    } catch (...) {
        Close(list);
        throw;
    }
}

bool EndLabelEdit(ListState& list, LabelEditEnd end) {
    if (!list.labelEdit.window)
        return true;
    if (list.labelEdit.isEnding)
        return false;
    list.labelEdit.isEnding = true;
    if (!list.rows.Has(list.labelEdit.row))
        end = LabelEditEnd::Cancel; // there is nothing left to name
    const bool isAccepted = ClosedOnThrow(list, [&] { return OfferText(list, end); });
    Close(list);
    return isAccepted;
}

void FollowRow(ListState& list) {
    if (!list.rows.Has(list.labelEdit.row) || list.columns.Count() == 0)
        return;
    const CRect place = EditRect(list, list.labelEdit.row);
    if (view::Rectangle(list.labelEdit.window) != place)
        MoveWindow(list.labelEdit.window, place);
}

} // namespace

bool TakeLabel(HWND window) {
    const ControlOf<ListState> list(window);
    return !list || list->EndLabelEdit(LabelEditEnd::Take);
}

HWND BeginLabelEdit(ListState& list, int row) {
    const auto hasLabel = [&] { return list.rows.Has(row) && list.columns.Count() > 0; };
    list.EndLabelEdit(list.rows.Has(row) ? LabelEditEnd::Take : LabelEditEnd::Cancel);
    if (list.labelEdit.isEnding || !hasLabel())
        return nullptr;
    SetFocus(list.Handle());
    if (!hasLabel())
        return nullptr;
    EnsureVisible(list, row, Visibility::Whole);
    const CString text = TextOf(list, row, 0);
    if (!hasLabel())
        return nullptr;
    const HWND edit = CreateWindowExA(0, "EDIT", text.c_str(), WS_CHILD | WS_BORDER | ES_AUTOHSCROLL,
                                      EditRect(list, row), list.Handle(), 0);
    if (!edit)
        return nullptr;
    SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LPARAM>(&LabelEditProcedure));
    list.labelEdit = {edit, row, false, EndLabelEdit, FollowRow};
    const bool refused = ClosedOnThrow(
        list, [&] { return NotifyLabelEdit(list, LVN_BEGINLABELEDIT, row, text.c_str()) != 0; });
    if (list.labelEdit.window != edit)
        return nullptr; // a handler has ended it
    if (refused) {
        Close(list);
        return nullptr;
    }
    ClosedOnThrow(list, [&] {
        SendMessageA(edit, EM_SETSEL, 0, -1);
        ShowWindow(edit, SW_SHOW);
        SetFocus(edit);
    });
    return list.labelEdit.window;
}

} // namespace korvel::internal
