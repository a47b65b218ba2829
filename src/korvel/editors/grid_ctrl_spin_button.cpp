#include "korvel/editors/grid_ctrl_spin_button.h"

#include "korvel/editors/grid_ctrl_edit.h"
#include "korvel/window/base/control_messages.h"
#include "korvel/window/core/dc.h"
#include "korvel/window/display/window_view.h"

#include <utility>

namespace korvel {

namespace {

constexpr const char* ClassName = "KorvelSpin";
constexpr std::uintptr_t TimerId = 15047;
constexpr unsigned TimerPeriod = 100; // milliseconds
constexpr int FirstRepeat = 3;        // ticks after the press

// How many steps a tick makes: one more every ten ticks.
int TimesAt(int tick) {
    return (tick + 12) / 10;
}

} // namespace

bool CGridCtrlSpinButton::Create(UINT style, const CRect& rect, CWnd* parent, int id) {
    RegisterClassA(ClassName, DefWindowProcA);
    return CreateEx(0, ClassName, "", style, rect, parent, id);
}

LRESULT CGridCtrlSpinButton::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SHOWWINDOW:
        OnShow(wParam != 0);
        break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: // the second of two quick presses
        OnPress(PointOf(lParam));
        break;
    case WM_LBUTTONUP:
        Release();
        RedrawChanged();
        break;
    case WM_TIMER:
        if (wParam == TimerId)
            return OnTick(), 0;
        break;
    case WM_ENABLE:
        Invalidate();
        break;
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        return Paint(*reinterpret_cast<CDC*>(wParam));
    default:
        break;
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

bool CGridCtrlSpinButton::IsAcross() const {
    return (GetStyle() & UDS_HORZ) != 0;
}

CRect CGridCtrlSpinButton::Half(bool isFirst) const {
    CRect rect = GetClientRect();
    const int middle = (IsAcross() ? rect.Width() : rect.Height()) / 2;
    int& border = IsAcross() ? (isFirst ? rect.right : rect.left) : (isFirst ? rect.bottom : rect.top);
    border = middle;
    return rect;
}

void CGridCtrlSpinButton::SetStates(std::uint32_t up, std::uint32_t down) {
    m_bRedraw = m_bRedraw || m_UpState != up || m_DownState != down;
    m_UpState = up;
    m_DownState = down;
}

// Hiding ends a press without a write: the edit is being ended.
void CGridCtrlSpinButton::OnShow(bool isShown) {
    EndPress();
    SetStates(0, 0);
    if (!isShown)
        KillTimer(TimerId);
    m_nTimer = isShown ? SetTimer(TimerId, TimerPeriod) : 0;
}

void CGridCtrlSpinButton::OnPress(CPoint point) {
    const CRect first = Half(true);
    const bool isFirst = IsAcross() ? point.x < first.right : point.y < first.bottom;
    if (isFirst)
        SetStates(m_UpState | Pressed, m_DownState);
    else
        SetStates(m_UpState, m_DownState | Pressed);
    if (m_bPressed)
        return RedrawChanged();
    m_bPressed = true;
    m_nTicks = 0;
    Step(isFirst, 1);
    RedrawChanged();
}

void CGridCtrlSpinButton::OnTick() {
    if (m_bPressed) {
        if (IsKeyDown(VK_LBUTTON))
            Repeat();
        else
            Release();
    }
    FollowPointer();
    RedrawChanged();
}

void CGridCtrlSpinButton::Repeat() {
    const bool isFirst = (m_UpState & Pressed) != 0;
    if (!isFirst && (m_DownState & Pressed) == 0)
        return;
    if (++m_nTicks >= FirstRepeat)
        Step(isFirst, TimesAt(m_nTicks));
}

void CGridCtrlSpinButton::Release() {
    const bool wasPressed = m_bPressed;
    EndPress();
    if (wasPressed && m_pEdit)
        Try([this] { m_writeHook ? m_writeHook() : m_pEdit->End(false); });
}

void CGridCtrlSpinButton::EndPress() {
    SetStates(m_UpState & ~Pressed, m_DownState & ~Pressed);
    m_nTicks = 0;
    m_bPressed = false;
}

void CGridCtrlSpinButton::Step(bool isFirst, int times) {
    if (m_pEdit)
        Try([&] { m_pEdit->StepValue((isFirst ? -m_Step : m_Step) * times); });
}

// A failure ends the press, so that it is told once.
void CGridCtrlSpinButton::Try(const std::function<void()>& action) {
    std::exception_ptr failure;
    try {
        action();
        return;
    } catch (...) {
        failure = std::current_exception();
    }
    EndPress();
    if (!m_failureHook)
        std::rethrow_exception(failure);
    m_failureHook(failure);
}

void CGridCtrlSpinButton::FollowPointer() {
    const CPoint point = ScreenToClient(m_hWnd, GetCursorPos());
    const auto followed = [&](std::uint32_t state, bool isFirst) {
        return Half(isFirst).PtInRect(point) ? state | Hot : state & ~Hot;
    };
    SetStates(followed(m_UpState, true), followed(m_DownState, false));
}

void CGridCtrlSpinButton::RedrawChanged() {
    if (std::exchange(m_bRedraw, false))
        RedrawWindow();
}

LRESULT CGridCtrlSpinButton::Paint(CDC& dc) const {
    const bool isEnabled = view::IsSwitchedOn(m_hWnd);
    const auto look = [&](std::uint32_t state) {
        return (isEnabled ? 0u : DFCS_INACTIVE) | (state & Pressed ? DFCS_PUSHED : 0u) |
               (state & Hot ? DFCS_HOT : 0u);
    };
    const UINT first = IsAcross() ? DFCS_SCROLLLEFT : DFCS_SCROLLUP;
    const UINT second = IsAcross() ? DFCS_SCROLLRIGHT : DFCS_SCROLLDOWN;
    dc.DrawFrameControl(Half(true), DFC_SCROLL, first | look(m_UpState));
    dc.DrawFrameControl(Half(false), DFC_SCROLL, second | look(m_DownState));
    return 0;
}

} // namespace korvel
