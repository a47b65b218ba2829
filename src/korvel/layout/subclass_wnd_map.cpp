#include "korvel/layout/subclass_wnd_map.h"

#include "korvel/window/app/app.h"
#include "korvel/window/core/current_message.h"

namespace korvel::internal {

CSubclassWndMap& CSubclassWndMap::Instance() {
    static CSubclassWndMap map;
    return map;
}

CSubclassWnd* CSubclassWndMap::Head(HWND window) const {
    const auto found = m_heads.find(window);
    return found == m_heads.end() ? nullptr : found->second;
}

void CSubclassWndMap::Add(CSubclassWnd& hook, HWND window) {
    CSubclassWnd*& head = m_heads[window];
    hook.m_pNext = head;
    hook.m_pOldWndProc = head ? head->m_pOldWndProc
                              : reinterpret_cast<WNDPROC>(SetWindowLongPtrA(
                                    window, GWLP_WNDPROC, reinterpret_cast<LPARAM>(&HookProcedure)));
    hook.m_hWnd = window;
    hook.m_age = ++m_hookings;
    head = &hook;
}

void CSubclassWndMap::Remove(CSubclassWnd& hook) {
    const auto found = m_heads.find(hook.m_hWnd);
    CSubclassWnd** link = &found->second;
    while (*link != &hook)
        link = &(*link)->m_pNext;
    *link = hook.m_pNext;
    if (!found->second) {
        m_heads.erase(found);
        SetWindowLongPtrA(hook.m_hWnd, GWLP_WNDPROC, reinterpret_cast<LPARAM>(hook.m_pOldWndProc));
    }
    hook.m_pOldWndProc = nullptr;
    hook.m_hWnd = nullptr;
}

CSubclassWnd* CSubclassWndMap::OlderThan(HWND window, std::uint64_t age) const {
    CSubclassWnd* link = Head(window);
    while (link && link->m_age >= age)
        link = link->m_pNext;
    return link;
}

LRESULT CSubclassWndMap::HookProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const ModuleStateGuard moduleState;
    const MSG current{window, message, wParam, lParam};
    const internal::CurrentMessageScope scope(current);
    CSubclassWndMap& map = Instance();
    CSubclassWnd* head = map.Head(window);
    if (!head) {
        // A procedure that was put above this one calls it after the last hook is off.
        return DefWindowProcA(window, message, wParam, lParam);
    }
    return message == WM_NCDESTROY ? map.End(window, wParam, lParam)
                                   : head->WindowProc(message, wParam, lParam);
}

LRESULT CSubclassWndMap::End(HWND window, WPARAM wParam, LPARAM lParam) {
    const WNDPROC former = Head(window)->m_pOldWndProc;
    while (CSubclassWnd* head = Head(window))
        head->HookWindow(nullptr);
    return CallWindowProcA(former, window, WM_NCDESTROY, wParam, lParam);
}

} // namespace korvel::internal
