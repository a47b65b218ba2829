#include "korvel/layout/layout_tab_ctrl_page.h"

#include "korvel/window/app/app.h"

#include <optional>
#include <utility>

namespace korvel {

CLayoutTabCtrlPage::CLayoutTabCtrlPage(UINT templateId, CString title)
    : m_templateId(templateId), m_title(std::move(title)) {}

BOOL CLayoutTabCtrlPage::OnInitDialog() {
    const BOOL answer = CDialog::OnInitDialog();
    std::optional<ModuleStateGuard> guard;
    if (!m_useOwnModuleState)
        guard.emplace();
    Load(false);
    return answer;
}

LRESULT CLayoutTabCtrlPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        OnCreate();
        break;
    case WM_DESTROY:
        OnDestroy();
        break;
    case WM_HSCROLL:
    case WM_VSCROLL:
        return OnScroll(message, wParam, lParam);
    case WM_GETMINMAXINFO:
        if (LimitTrackSize(*reinterpret_cast<MINMAXINFO*>(lParam)))
            return 0;
        break;
    default:
        break;
    }
    const LRESULT result = CDialog::WindowProc(message, wParam, lParam);
    if (message == WM_SIZE)
        ResizeLayout(LayoutForm::Page, static_cast<int>(LOWORD(static_cast<WPARAM>(lParam))),
                     static_cast<int>(HIWORD(static_cast<WPARAM>(lParam))));
    return result;
}

void CLayoutTabCtrlPage::OnCreate() {
    if (GetModuleState().app != GetHostApp())
        m_useOwnModuleState = false;
}

void CLayoutTabCtrlPage::OnDestroy() {
    std::optional<ModuleStateGuard> guard;
    if (!m_useOwnModuleState)
        guard.emplace();
    Save();
    DestroyLayout();
}

// What comes from a scroll bar control (lParam) is no affair of the page's own bars.
LRESULT CLayoutTabCtrlPage::OnScroll(UINT message, WPARAM wParam, LPARAM lParam) {
    if (lParam == 0)
        ScrollLayout(message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(wParam),
                     static_cast<int>(HIWORD(wParam)));
    return CDialog::WindowProc(message, wParam, lParam);
}

} // namespace korvel
