#include "korvel/window/controls/tool_tip_ctrl.h"

namespace korvel {

namespace {

TOOLINFO ToolOf(const CWnd* window, std::uintptr_t id, const CRect* rect, const char* text) {
    const HWND handle = window ? window->m_hWnd : nullptr;
    if (rect || id != 0)
        return {0, handle, id, rect ? *rect : CRect(), text};
    return {TTF_IDISHWND, GetParent(handle), reinterpret_cast<std::uintptr_t>(handle), {}, text};
}

LRESULT Send(const CWnd& tip, UINT message, const TOOLINFO& tool) {
    return tip.SendMessageA(message, 0, reinterpret_cast<LPARAM>(&tool));
}

} // namespace

bool CToolTipCtrl::Create(CWnd* parent, UINT style) {
    return CreateEx(0, "tooltips_class32", "", WS_POPUP | style, {}, parent, 0);
}

bool CToolTipCtrl::AddTool(CWnd* window, const CString& text, const CRect* rect, std::uintptr_t id) {
    if ((rect != nullptr) != (id != 0))
        return false;
    return Send(*this, TTM_ADDTOOL, ToolOf(window, id, rect, text.c_str())) != 0;
}

void CToolTipCtrl::DelTool(CWnd* window, std::uintptr_t id) {
    Send(*this, TTM_DELTOOL, ToolOf(window, id, nullptr, nullptr));
}

void CToolTipCtrl::UpdateTipText(const CString& text, CWnd* window, std::uintptr_t id) {
    Send(*this, TTM_UPDATETIPTEXT, ToolOf(window, id, nullptr, text.c_str()));
}

int CToolTipCtrl::GetToolCount() const {
    return static_cast<int>(SendMessageA(TTM_GETTOOLCOUNT));
}

void CToolTipCtrl::Activate(bool activate) {
    SendMessageA(TTM_ACTIVATE, activate);
}

void CToolTipCtrl::RelayEvent(MSG* message) {
    SendMessageA(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(message));
}

void CToolTipCtrl::Pop() {
    SendMessageA(TTM_POP);
}

int CToolTipCtrl::SetMaxTipWidth(int pixels) {
    return static_cast<int>(SendMessageA(TTM_SETMAXTIPWIDTH, 0, pixels));
}

int CToolTipCtrl::GetMaxTipWidth() const {
    return static_cast<int>(SendMessageA(TTM_GETMAXTIPWIDTH));
}

void CToolTipCtrl::SetDelayTime(UINT which, int milliseconds) {
    SendMessageA(TTM_SETDELAYTIME, which, milliseconds);
}

void CToolTipCtrl::SetDelayTime(int milliseconds) {
    SetDelayTime(TTDT_AUTOMATIC, milliseconds);
}

int CToolTipCtrl::GetDelayTime(UINT which) const {
    return static_cast<int>(SendMessageA(TTM_GETDELAYTIME, which));
}

} // namespace korvel
