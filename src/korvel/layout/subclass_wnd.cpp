#include "korvel/layout/subclass_wnd.h"

#include "korvel/layout/subclass_wnd_map.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

using internal::CSubclassWndMap;

// The map must outlive every hook, also one that lives until the process ends.
CSubclassWnd::CSubclassWnd() {
    CSubclassWndMap::Instance();
}

CSubclassWnd::~CSubclassWnd() {
    HookWindow(nullptr);
}

BOOL CSubclassWnd::HookWindow(HWND window) {
    if (m_hWnd)
        CSubclassWndMap::Instance().Remove(*this);
    if (IsWindow(window))
        CSubclassWndMap::Instance().Add(*this, window);
    return 1;
}

bool CSubclassWnd::IsHooking(const CSubclassWnd* hook, HWND window) {
    const CSubclassWnd* link = CSubclassWndMap::Instance().Head(window);
    while (link && link != hook)
        link = link->m_pNext;
    return link != nullptr;
}

LRESULT CSubclassWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!m_hWnd)
        return PassOnDetached(message, wParam, lParam);
    return m_pNext ? m_pNext->WindowProc(message, wParam, lParam)
                   : CallWindowProcA(m_pOldWndProc, m_hWnd, message, wParam, lParam);
}

// The former neighbor may be gone as well; an older hook that is still there has not seen the message yet.
LRESULT CSubclassWnd::PassOnDetached(UINT message, WPARAM wParam, LPARAM lParam) const {
    const HWND window = CWnd::GetCurrentMessage().hwnd;
    CSubclassWndMap& map = CSubclassWndMap::Instance();
    if (CSubclassWnd* older = map.OlderThan(window, m_age))
        return older->WindowProc(message, wParam, lParam);
    const CSubclassWnd* head = map.Head(window);
    const WNDPROC own =
        head ? head->m_pOldWndProc : reinterpret_cast<WNDPROC>(GetWindowLongPtrA(window, GWLP_WNDPROC));
    return CallWindowProcA(own, window, message, wParam, lParam);
}

} // namespace korvel
