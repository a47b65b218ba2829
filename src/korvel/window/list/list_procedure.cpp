#include "korvel/window/core/dc.h"
#include "korvel/window/core/window_class.h"
#include "korvel/window/list/list_geometry.h"
#include "korvel/window/list/list_header.h"
#include "korvel/window/list/list_item_messages.h"
#include "korvel/window/list/list_keyboard.h"
#include "korvel/window/list/list_label_edit.h"
#include "korvel/window/list/list_mouse.h"
#include "korvel/window/list/list_notify.h"
#include "korvel/window/list/list_paint.h"
#include "korvel/window/list/list_reading.h"
#include "korvel/window/list/list_rows.h"
#include "korvel/window/list/list_scroll.h"
#include "korvel/window/list/list_selection.h"

#include <optional>

namespace korvel::internal {

namespace {

// What the list did not act on goes on to the default of all windows.
std::optional<LRESULT> AnsweredIf(bool handled) {
    return handled ? std::optional<LRESULT>(0) : std::nullopt;
}

// Selected rows look different with and without the focus.
LRESULT ChangeFocus(ListState& list, UINT notice) {
    RepaintAll(list);
    Notify(list, notice);
    return 0;
}

std::optional<LRESULT> HandleMouse(ListState& list, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto flags = static_cast<UINT>(LOWORD(wParam));
    const CPoint point = PointOf(lParam);
    switch (message) {
    case WM_LBUTTONDOWN:
        return PressButton(list, MK_LBUTTON, flags, point), 0;
    case WM_RBUTTONDOWN:
        return PressButton(list, MK_RBUTTON, flags, point), 0;
    case WM_LBUTTONDBLCLK:
        return DoubleClick(list, flags, point), 0;
    case WM_MOUSEMOVE:
        return MovePointer(list, flags, point), 0;
    case WM_LBUTTONUP:
        return ReleaseButton(list, MK_LBUTTON, point), 0;
    case WM_RBUTTONUP: // a click that was handled asks for no menu
        return AnsweredIf(ReleaseButton(list, MK_RBUTTON, point));
    case WM_MOUSEWHEEL:
        return AnsweredIf(TurnWheel(list, static_cast<std::int16_t>(HIWORD(wParam))));
    default:
        return std::nullopt;
    }
}

LRESULT SetItemState(ListState& list, int row, const LVITEM& change) {
    if (row == NoRow)
        return SetStateOfAll(list, change.state, change.stateMask);
    return list.rows.Has(row) && SetState(list, row, change.state, change.stateMask);
}

LRESULT EnsureRowVisible(ListState& list, int row, bool partialOk) {
    if (!list.rows.Has(row))
        return 0;
    EnsureVisible(list, row, partialOk ? Visibility::Part : Visibility::Whole);
    return 1;
}

LRESULT DeleteRow(ListState& list, int row) {
    if (!list.rows.Has(row))
        return 0;
    DeleteRows(list, row, row + 1);
    return 1;
}

std::optional<LRESULT> HandleListMessage(ListState& list, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto row = static_cast<int>(wParam);
    switch (message) {
    case LVM_GETITEMCOUNT:
        return list.rows.Size();
    case LVM_DELETEITEM:
        return DeleteRow(list, row);
    case LVM_DELETEALLITEMS:
        return DeleteAllRows(list), 1;
    case LVM_GETNEXTITEM:
        return NextRow(list, row, static_cast<UINT>(lParam));
    case LVM_ENSUREVISIBLE:
        return EnsureRowVisible(list, row, lParam != 0);
    case LVM_EDITLABEL:
        return reinterpret_cast<LRESULT>(BeginLabelEdit(list, row));
    case LVM_GETEDITCONTROL:
        return reinterpret_cast<LRESULT>(list.labelEdit.window);
    case LVM_GETCOLUMNWIDTH:
        return list.columns.WidthOf(row);
    case LVM_SETITEMSTATE:
        return lParam ? SetItemState(list, row, *reinterpret_cast<const LVITEM*>(lParam)) : 0;
    case LVM_GETITEMSTATE:
        return list.rows.Has(row) ? StateOf(list, row) & static_cast<UINT>(lParam) : 0;
    default:
        return std::nullopt;
    }
}

std::optional<LRESULT> HandleWindow(ListState& list, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        CreateHeader(list);
        return 0;
    case WM_NCDESTROY: // what they refer to may be gone
        list.textSource = nullptr;
        list.cellsMoved = nullptr;
        return std::nullopt;
    case WM_SIZE:
        list.toldClientSize = ClientSize(list);
        list.areRowsInvalid = false;
        UpdateExtent(list);
        return 0;
    case WM_STYLECHANGED:
        RepaintAll(list);
        UpdateExtent(list);
        return 0;
    case WM_ENABLE:
        RepaintAll(list);
        return 0;
    case WM_SETREDRAW: {
        const LRESULT result = DefWindowProcA(list.Handle(), message, wParam, lParam);
        UpdateExtent(list);
        return result;
    }
    case WM_PAINT:
        PaintList(list, *reinterpret_cast<CDC*>(wParam));
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_SETFOCUS: {
        const HWND window = list.Handle();
        const bool waits = IsWindowVisible(list.labelEdit.window); // another one is just beginning
        ChangeFocus(list, NM_SETFOCUS);
        if (waits)
            TakeLabel(window);
        return 0;
    }
    case WM_KILLFOCUS:
        return ChangeFocus(list, NM_KILLFOCUS);
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_SYSKEYDOWN:
        ForgetLabelClick(list.Handle());
        return std::nullopt;
    case WM_KEYDOWN:
        ForgetLabelClick(list.Handle()); // the user goes on by the keyboard, perhaps in another row
        return AnsweredIf(PressKey(list, static_cast<UINT>(wParam)));
    case WM_CHAR:
        return AnsweredIf(TypeCharacter(list, wParam));
    case WM_VSCROLL:
    case WM_HSCROLL:
        HandleScrollBar(list, message, LOWORD(wParam));
        return 0;
    case WM_TIMER:
        return AnsweredIf(FireLabelEditTimer(list, wParam));
    default:
        return std::nullopt;
    }
}

LRESULT ListProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (const ControlOf<ListState> list(window); list) {
        for (const auto handle :
             {HandleWindow, HandleMouse, HandleListMessage, HandleItemMessage, HandleReading})
            if (const auto answer = handle(*list, message, wParam, lParam))
                return *answer;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

[[maybe_unused]] const bool Registered = RegisterControlClass<ListState>("SysListView32", ListProcedure);

} // namespace

} // namespace korvel::internal
