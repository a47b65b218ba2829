#include "desktop/closed_combo.h"

namespace korvel::inspector {

namespace {

constexpr int ListId = 106;
constexpr int ArrowId = 107;
constexpr int FieldId = 108;

bool IsPress(UINT message) {
    return message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
}

bool IsListKey(WPARAM key) {
    return key >= VK_PRIOR && key <= VK_DOWN;
}

} // namespace

bool ClosedCombo::Create(const CRect& rect, CWnd* parent, int id) {
    constexpr UINT OwnStyle = WS_EX_CLIENTEDGE | WS_EX_CONTROLPARENT; // Tab goes to the field
    if (!CreateEx(OwnStyle, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, rect, parent, id))
        return false;
    const bool done = m_field.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, {}, this, FieldId) &&
                      m_arrow.Create("", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, {}, this, ArrowId) &&
                      m_list.CreateDropDown(this, ListId);
    Place();
    return done;
}

void ClosedCombo::Place() {
    CRect field = GetClientRect();
    CRect arrow = field;
    arrow.left = arrow.right - arrow.Height();
    field.right = arrow.left;
    m_field.MoveWindow(field);
    m_arrow.MoveWindow(arrow);
}

void ClosedCombo::Show(const CVariantValue& value) {
    Close(Choice::Dropped);
    m_value = value;
    m_field.SetWindowTextA(m_value.ToText());
}

void ClosedCombo::SetDroppedState(int state) {
    if (state != 0)
        Open();
    else
        Close(Choice::Taken);
}

void ClosedCombo::OnArrowKey(bool down) {
    if (m_dropped == 0)
        Open();
    else
        m_list.SendMessageA(WM_KEYDOWN, down ? VK_DOWN : VK_UP);
}

void ClosedCombo::SendParentComboMessage(UINT code) {
    NotifyParentCommand(m_hWnd, code);
}

void ClosedCombo::Open() {
    if (m_dropped != 0 || !m_value.EnumValue)
        return;
    m_list.Initialize("", m_value);
    m_list.DropBelow(GetWindowRect());
    m_list.ShowWindow(SW_SHOWNA);
    m_dropped = 1;
    m_hook.HookWindow(korvel::GetParent(m_hWnd));
    m_field.Invalidate();
}

// Closed before the parent is notified: it may show something else here then.
void ClosedCombo::Close(Choice choice) {
    if (m_dropped == 0)
        return;
    m_dropped = 0;
    const CVariantValue chosen = m_list.GetValue();
    m_hook.HookWindow(nullptr);
    m_list.ShowWindow(SW_HIDE);
    m_list.UnIntialize();
    const bool changed = choice == Choice::Taken && chosen != m_value;
    if (changed)
        m_value = chosen;
    m_field.SetWindowTextA(m_value.ToText());
    if (changed)
        SendParentComboMessage(ComboListChanged);
}

LRESULT ClosedCombo::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
    if (message == WM_SETFOCUS)
        m_field.SetFocus();
    if (message == WM_SIZE && m_arrow.m_hWnd)
        Place();
    return result;
}

bool ClosedCombo::PreTranslateMessage(MSG& message) {
    // A press on the arrow must not take the focus: the field would close the list, and the arrow open it.
    if (IsPress(message.message) && message.hwnd == m_arrow.m_hWnd) {
        m_field.SetFocus();
        SetDroppedState(m_dropped == 0);
        return true;
    }
    if (message.message == WM_MOUSEWHEEL && m_dropped != 0) {
        PassToList(message);
        return true;
    }
    const bool isKey = message.message >= WM_KEYDOWN && message.message <= WM_KEYLAST;
    return (isKey && HandleKey(message)) || CWnd::PreTranslateMessage(message);
}

bool ClosedCombo::HandleKey(const MSG& message) {
    const bool isDown = message.message == WM_KEYDOWN;
    const bool isArrow = message.wParam == VK_UP || message.wParam == VK_DOWN;
    const bool toggles = (isDown && message.wParam == VK_F4) || (message.message == WM_SYSKEYDOWN && isArrow);
    const bool isPrintable = message.message == WM_CHAR && message.wParam >= ' ';
    if (toggles) {
        SetDroppedState(m_dropped == 0);
        return true;
    }
    if (m_dropped == 0 && isPrintable)
        Open();
    if (m_dropped == 0)
        return false;
    if (isDown && (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE)) {
        Close(message.wParam == VK_RETURN ? Choice::Taken : Choice::Dropped);
        return true;
    }
    if (isDown && message.wParam == VK_TAB) {
        Close(Choice::Taken);
        return false;
    }
    // Other keys go on, for the letters that come of them.
    const bool isForList = message.message == WM_CHAR || (isDown && IsListKey(message.wParam));
    if (isForList)
        PassToList(message);
    return isForList;
}

bool ClosedCombo::OnCommand(WPARAM wParam, LPARAM lParam) {
    const int id = LOWORD(wParam);
    const UINT code = HIWORD(wParam);
    if (id == ListId && code == ComboListChanged) {
        m_field.SetWindowTextA(m_list.GetValue().ToText());
        return true;
    }
    if (id == ListId && code == ComboListFinished) {
        Close(Choice::Taken);
        return true;
    }
    const bool result = CWnd::OnCommand(wParam, lParam);
    if (id == FieldId && code == EN_KILLFOCUS)
        m_field.EnableWindow(true); // a press reaches it again
    return result;
}

} // namespace korvel::inspector
