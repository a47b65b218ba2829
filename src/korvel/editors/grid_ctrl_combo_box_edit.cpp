#include "korvel/editors/grid_ctrl_combo_box_edit.h"

#include "korvel/window/core/dc.h"
#include "korvel/window/display/window_view.h"

namespace korvel {

namespace {

constexpr const char* ClassName = "KorvelComboField";

struct FieldColors {
    int text;
    int background;
};

constexpr FieldColors Plain = {COLOR_WINDOWTEXT, COLOR_WINDOW};
constexpr FieldColors Highlighted = {COLOR_HIGHLIGHTTEXT, COLOR_HIGHLIGHT};
constexpr FieldColors Disabled = {COLOR_GRAYTEXT, COLOR_BTNFACE};

} // namespace

bool CGridCtrlComboBoxEdit::Create(UINT style, const CRect& rect, CWnd* parent, int id) {
    RegisterClassA(ClassName, DefWindowProcA);
    return CreateEx(0, ClassName, "", style, rect, parent, id);
}

LRESULT CGridCtrlComboBoxEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = m_hWnd;
    switch (message) {
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTALLKEYS | DLGC_HASSETSEL;
    case WM_CONTEXTMENU:
    case WM_LBUTTONDBLCLK:
    case WM_PASTE:
    case WM_CUT:
    case WM_CLEAR:
        return 0; // nothing edits the text
    case WM_MOUSEACTIVATE:
        return MA_NOACTIVATE;
    case WM_LBUTTONDOWN:
        OnPress();
        return 0;
    case WM_KEYDOWN:
        if (m_pParent && (wParam == VK_UP || wParam == VK_DOWN)) {
            m_pParent->OnArrowKey(wParam == VK_DOWN);
            return 0;
        }
        break;
    case WM_PAINT:
        return Paint(*reinterpret_cast<CDC*>(wParam));
    case WM_ERASEBKGND:
        return 1;
    default:
        break;
    }
    const LRESULT result = CEdit::WindowProc(message, wParam, lParam);
    switch (message) {
    case WM_SETFOCUS:
        NotifyParentCommand(window, EN_SETFOCUS);
        break;
    case WM_KILLFOCUS:
        NotifyParentCommand(window, EN_KILLFOCUS);
        break;
    case WM_MOUSEMOVE:
        SetCursor(IDC_ARROW);
        break;
    case WM_ACTIVATE:
    case WM_SETTEXT:
    case WM_ENABLE:
        korvel::InvalidateRect(window);
        break;
    case WM_MOVE:
        if (korvel::IsWindowVisible(window)) // not while it is made
            korvel::SetFocus(korvel::GetParent(window));
        break;
    default:
        break;
    }
    return result;
}

void CGridCtrlComboBoxEdit::OnPress() {
    SetFocus();
    if (m_pParent)
        m_pParent->SetDroppedState(m_pParent->GetDroppedState() == 0);
}

bool CGridCtrlComboBoxEdit::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_COMMAND && HIWORD(wParam) == EN_SETFOCUS) {
        OnSetFocus();
        return true;
    }
    if (message == WM_COMMAND && HIWORD(wParam) == EN_KILLFOCUS) {
        OnKillFocus();
        return true;
    }
    return CEdit::OnChildNotify(message, wParam, lParam, result);
}

void CGridCtrlComboBoxEdit::OnSetFocus() {
    EnableWindow(true);
    Invalidate();
    RedrawWindow();
}

void CGridCtrlComboBoxEdit::OnKillFocus() {
    const HWND window = m_hWnd;
    Invalidate();
    RedrawWindow();
    if (m_pParent)
        m_pParent->OnOK();
    korvel::EnableWindow(window, false);
}

LRESULT CGridCtrlComboBoxEdit::Paint(CDC& dc) const {
    const bool isClosed = !m_pParent || m_pParent->GetDroppedState() == 0;
    const bool isHighlighted = GetFocus() == m_hWnd && isClosed;
    const bool isEnabled = view::IsSwitchedOn(m_hWnd);
    const FieldColors colors = !isEnabled ? Disabled : isHighlighted ? Highlighted : Plain;
    CRect rect = GetClientRect();
    dc.FillSolidRect(rect, GetSysColor(colors.background));
    if (isEnabled && isHighlighted)
        dc.DrawFocusRect(rect);
    rect.left += GetSystemMetrics(SM_CXEDGE);
    dc.SetTextColor(GetSysColor(colors.text));
    dc.DrawText(GetWindowTextA(), rect, DT_VCENTER | DT_SINGLELINE);
    return 0;
}

} // namespace korvel
