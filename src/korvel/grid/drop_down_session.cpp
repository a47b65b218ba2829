#include "korvel/grid/drop_down_session.h"

#include "korvel/editors/cell_conversion.h"
#include "korvel/editors/cell_geometry.h"
#include "korvel/editors/dialog_around.h"
#include "korvel/grid/grid_drop_down_notice.h"
#include "korvel/platform/error.h"
#include "korvel/platform/first_failure.h"
#include "korvel/platform/raised_flag.h"
#include "korvel/window/base/control_messages.h"

#include <algorithm>

namespace korvel::internal {

bool DropDownSession::IsOpen() const {
    return IsDropped() || m_controls.field.IsWindowVisible();
}

bool DropDownSession::IsPress(const MSG& message) {
    switch (message.message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
        return true;
    default:
        return false;
    }
}

bool DropDownSession::IsPressOnField(const MSG& message) const {
    return IsPress(message) &&
           (message.hwnd == m_controls.field.m_hWnd || message.hwnd == m_controls.arrow.m_hWnd);
}

bool DropDownSession::TakeMouse(const MSG& message) {
    CComboList& list = m_controls.list;
    if (message.message == WM_MOUSEWHEEL)
        return list.SendMessageA(message.message, message.wParam, message.lParam), true;
    if (message.message != WM_LBUTTONDOWN)
        return false;
    const CPoint point = ClientToScreen(message.hwnd, PointOf(message.lParam));
    if (!list.GetWindowRect().PtInRect(point))
        return false;
    const CPoint inList = ScreenToClient(list.m_hWnd, point);
    return list.SendMessageA(message.message, message.wParam, MAKELPARAM(inList.x, inList.y)), true;
}

void DropDownSession::Place(const CRect& cell) {
    const CRect arrow = RightSquare(cell);
    CRect field = cell;
    field.right = std::max(field.left, arrow.left - 1);
    m_controls.field.MoveWindow(field, false);
    m_controls.arrow.MoveWindow(arrow, false);
    if (IsDropped())
        m_controls.list.DropBelow(FieldOnScreen());
}

void DropDownSession::ShowField() {
    m_controls.field.SendMessageA(WM_SETFONT, static_cast<WPARAM>(m_grid.SendMessageA(WM_GETFONT)));
    m_controls.field.SetWindowTextA("");
    m_controls.field.EnableWindow(true);
    m_controls.field.ShowWindow(SW_SHOW);
    m_controls.arrow.EnableWindow(true);
    m_controls.arrow.ShowWindow(SW_SHOW);
}

CRect DropDownSession::FieldOnScreen() const {
    CRect field = m_controls.field.GetWindowRect();
    field.right = std::max(field.right, m_controls.arrow.GetWindowRect().right);
    return field;
}

void DropDownSession::Drop(const CRect& place, IMemberDispatch* disp, const std::string& name) {
    CVariantValue value;
    if (!m_commit.IsShown(disp, name) || !disp->GetMember(name, value) || !m_commit.IsShown(disp, name))
        return;
    if (!value.EnumValue)
        throw Error(""); // there is nothing to choose from
    CComboList& list = m_controls.list;
    list.Initialize(disp, name);
    if (!m_commit.IsShown(disp, name))
        list.UnIntialize(); // the host has ended it meanwhile
    if (!list.IsInitialized())
        return;
    list.DropBelow({place.left, place.top, place.right, place.top});
    list.ShowWindow(SW_SHOWNA);
    m_controls.droppedState = 1;
    HookAround();
    NotifyParentCommand(m_grid.m_hWnd, CBN_DROPDOWN);
    if (!IsDropped())
        return; // and the enumeration need not live any longer
    const CString text = value.ToText();
    NotifyDropped(text);
    if (IsDropped())
        ShowInField(text);
}

// In a pane, the window that is moved is not the grid's parent.
void DropDownSession::HookAround() {
    const HWND parent = korvel::GetParent(m_grid.m_hWnd);
    if (!parent)
        return;
    m_controls.hook.HookWindow(parent);
    if (const HWND frame = TopLevelAround(parent); frame != parent)
        m_controls.frameHook.HookWindow(frame);
}

void DropDownSession::NotifyDropped(const CString& text) const {
    GridDropDownNotice notice;
    notice.text = text.c_str();
    NotifyParent(m_grid.m_hWnd, GridDropDownCode, notice.hdr);
}

// Names of entries have their dashes escaped where dashes separate them.
void DropDownSession::ShowInField(const CString& text) {
    m_controls.field.SetWindowTextA(WithPlainDashes(text));
}

void DropDownSession::ShowText() {
    ShowInField(m_controls.list.GetValue().ToText());
    m_controls.field.RedrawWindow();
}

void DropDownSession::Hide() {
    if (!IsDropped() || m_isHiding)
        return;
    const RaisedFlag hiding(m_isHiding);
    FirstFailure failure;
    failure.Try([&] { ShowText(); });
    failure.Try([&] { m_controls.list.ShowWindow(SW_HIDE); });
    failure.Try([&] { m_controls.list.UnIntialize(); });
    failure.Try([&] { m_controls.hook.HookWindow(nullptr); });
    failure.Try([&] { m_controls.frameHook.HookWindow(nullptr); });
    failure.Try([&] { m_controls.field.RedrawWindow(); });
    failure.Try([&] { NotifyParentCommand(m_grid.m_hWnd, CBN_CLOSEUP); });
    m_controls.droppedState = 0;
    failure.Rethrow();
}

bool DropDownSession::Write(bool tells) {
    return m_commit.RunStep([&](HistoryStep&) {
        try {
            return m_controls.list.UpdateDisp(m_commit.Observer());
        } catch (...) {
            if (tells)
                throw;
            return false;
        }
    });
}

bool DropDownSession::End(Choice choice, bool tells) {
    bool isWritten = true;
    FirstFailure failure;
    if (IsDropped() && choice == Choice::Taken)
        failure.Try([&] { isWritten = Write(tells); });
    failure.Try([&] { Hide(); });
    for (CWnd* control : {static_cast<CWnd*>(&m_controls.field), static_cast<CWnd*>(&m_controls.arrow)}) {
        failure.Try([&] { control->ShowWindow(SW_HIDE); }); // first, so that a focus in it goes to the grid
        failure.Try([&] { control->EnableWindow(false); });
    }
    failure.Rethrow();
    return isWritten;
}

void DropDownSession::OnRenamed(const std::string& name) {
    if (IsDropped())
        m_controls.list.OnRenameMember(name);
}

} // namespace korvel::internal
