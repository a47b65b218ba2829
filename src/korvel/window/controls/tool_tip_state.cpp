#include "korvel/window/controls/tool_tip_state.h"

#include "korvel/window/base/access_mark.h"
#include "korvel/window/base/color.h"
#include "korvel/window/controls/tip_lines.h"
#include "korvel/window/core/display.h"
#include "korvel/window/core/screens.h"
#include "korvel/window/core/window_changes.h"

#include <algorithm>
#include <array>

namespace korvel::internal {
namespace {

constexpr std::uintptr_t ShowTimer = 1;
constexpr std::uintptr_t HideTimer = 2;
constexpr CSize Inset{6, 4}; // between the frame and the text
constexpr int PointerHeight = 20;
constexpr int AbovePointer = 4;

struct DelayRow {
    UINT which;
    int TipDelays::*delay;
};

constexpr std::array Delays{DelayRow{TTDT_RESHOW, &TipDelays::reshow},
                            DelayRow{TTDT_AUTOPOP, &TipDelays::autopop},
                            DelayRow{TTDT_INITIAL, &TipDelays::initial}};

// Below the pointer, or above it where there is no room.
CRect PlaceOf(CSize size) {
    const CPoint pointer = GetCursorPos();
    const auto at = [&](int top) {
        return WhollyOnScreen({pointer.x, top, pointer.x + size.cx, top + size.cy}, pointer);
    };
    const int below = pointer.y + PointerHeight;
    const CRect place = at(below);
    return place.top == below ? place : at(pointer.y - AbovePointer - size.cy);
}

} // namespace

bool Tool::IsAt(HWND where, CPoint point) const {
    return where == window && (isWhole ? GetClientRect(window) : part).PtInRect(point);
}

bool Tool::IsReachable() const {
    return IsWindowVisible(window) && IsWindowEnabled(window);
}

ToolTipState::ToolTipState(WindowRecord& window) : m_record(window) {
    if (!(window.style & WS_CHILD))
        window.style |= WS_POPUP;
    window.exStyle |= WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
}

Tool* ToolTipState::Find(const TOOLINFO& info) {
    const auto found = std::ranges::find_if(
        m_tools, [&](const Tool& tool) { return tool.owner == info.hwnd && tool.id == info.uId; });
    return found == m_tools.end() ? nullptr : &*found;
}

bool ToolTipState::Add(const TOOLINFO& info) {
    const bool isWhole = (info.uFlags & TTF_IDISHWND) != 0;
    const HWND window = isWhole ? reinterpret_cast<HWND>(info.uId) : info.hwnd;
    if (!IsWindow(window))
        return false;
    const auto isGone = [](const Tool& tool) { return !IsWindow(tool.window); };
    if (m_current && isGone(*m_current))
        Leave();
    m_tools.remove_if(isGone);
    Tool* known = Find(info);
    Tool& tool = known ? *known : m_tools.emplace_back();
    tool = {info.hwnd, info.uId, window, isWhole, info.rect, info.lpszText ? info.lpszText : ""};
    return true;
}

void ToolTipState::Remove(const TOOLINFO& info) {
    if (m_current && m_current == Find(info))
        Leave();
    if (const Tool* tool = Find(info))
        m_tools.remove_if([&](const Tool& each) { return &each == tool; });
}

void ToolTipState::SetToolText(const TOOLINFO& info) {
    Tool* tool = Find(info);
    if (!tool)
        return;
    tool->text = info.lpszText ? info.lpszText : "";
    if (tool == m_current && m_record.IsShown())
        Show();
}

void ToolTipState::Activate(bool isActive) {
    m_isActive = isActive;
    if (!isActive)
        Hide();
}

void ToolTipState::SetDelay(UINT which, int milliseconds) {
    constexpr int Longest = 0x7FFF; // as in the window model
    const int delay = std::min(milliseconds, Longest);
    if (which == TTDT_AUTOMATIC)
        m_delays =
            milliseconds < 0 ? TipDelays() : TipDelays{delay, delay / 5, std::min(delay * 10, Longest)};
    for (const DelayRow& row : Delays)
        if (row.which == which)
            m_delays.*row.delay = milliseconds < 0 ? TipDelays().*row.delay : delay;
}

int ToolTipState::Delay(UINT which) const {
    const auto found =
        std::ranges::find(Delays, which == TTDT_AUTOMATIC ? TTDT_INITIAL : which, &DelayRow::which);
    return found == Delays.end() ? 0 : m_delays.*found->delay;
}

void ToolTipState::Relay(const MSG& message) {
    switch (message.message) {
    case WM_MOUSEMOVE:
        return Hover(message.hwnd, PointOf(message.lParam));
    case WM_MOUSELEAVE: // a desktop tells it before the move to the next tool
        if (m_record.IsShown())
            m_nextUntil = Display().Now() + std::chrono::milliseconds(m_delays.reshow);
        return Leave();
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_MOUSEWHEEL:
        return Hide();
    default:
        return;
    }
}

const Tool* ToolTipState::ToolAt(HWND window, CPoint point) const {
    const auto found =
        std::ranges::find_if(m_tools, [&](const Tool& tool) { return tool.IsAt(window, point); });
    return found == m_tools.end() ? nullptr : &*found;
}

void ToolTipState::Hover(HWND window, CPoint point) {
    if (ToolAt(window, point) == m_current)
        return;
    const bool isNext = m_record.IsShown() || Display().Now() < m_nextUntil;
    Hide(); // a handler may remove tools
    m_current = ToolAt(window, point);
    if (m_current && m_isActive)
        SetTimer(m_record.handle, ShowTimer,
                 static_cast<unsigned>(isNext ? m_delays.reshow : m_delays.initial));
}

void ToolTipState::OnTimer(std::uintptr_t id) {
    KillTimer(m_record.handle, id);
    if (id == ShowTimer)
        Show();
    else
        Hide();
}

void ToolTipState::Hide() {
    KillTimer(m_record.handle, ShowTimer);
    KillTimer(m_record.handle, HideTimer);
    ShowWindow(m_record.handle, SW_HIDE);
}

void ToolTipState::Leave() {
    Hide();
    m_current = nullptr;
}

std::vector<CString> ToolTipState::Lines() const {
    return TipLines(m_record.text, m_maxWidth);
}

void ToolTipState::Show() {
    if (!m_current || !m_isActive || m_current->text.empty() || !m_current->IsReachable())
        return Hide();
    const HWND window = m_record.handle;
    SetWindowTextA(window, m_record.style & TTS_NOPREFIX ? m_current->text : WithoutMarks(m_current->text));
    const std::vector<CString> lines = Lines();
    int width = 0;
    for (const CString& line : lines)
        width = std::max(width, Display().TextWidth(line));
    const int height = static_cast<int>(lines.size()) * GetSystemMetrics(SM_KORVEL_TEXTHEIGHT);
    SetWindowPos(window, HWND_TOPMOST, PlaceOf({width + 2 * Inset.cx, height + 2 * Inset.cy}),
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
    Repaint(m_record);
    SetTimer(window, HideTimer, static_cast<unsigned>(m_delays.autopop));
}

void ToolTipState::Paint(CDC& dc) const {
    const CRect client = GetClientRect(m_record.handle);
    const COLORREF back = GetSysColor(COLOR_INFOBK);
    const COLORREF text = GetSysColor(COLOR_INFOTEXT);
    dc.FillSolidRect(client, back);
    dc.FrameRect(client, Mix(back, text, 1, 3));
    dc.SetTextColor(text);
    CRect line = client;
    line.DeflateRect(Inset.cx, Inset.cy);
    line.bottom = line.top + GetSystemMetrics(SM_KORVEL_TEXTHEIGHT);
    for (const CString& each : Lines()) {
        dc.DrawText(each, line, DT_SINGLELINE);
        line.OffsetRect(0, line.Height());
    }
}

} // namespace korvel::internal
