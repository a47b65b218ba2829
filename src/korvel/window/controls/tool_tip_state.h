#pragma once

#include "korvel/window/controls/tool_tip_ctrl.h"
#include "korvel/window/core/dc.h"
#include "korvel/window/core/window_record.h"

#include <chrono>
#include <list>
#include <utility>
#include <vector>

namespace korvel::internal {

/// Something that has a tip.
struct Tool {
    HWND owner = nullptr; // it and the id name the tool
    std::uintptr_t id = 0;
    HWND window = nullptr; // where the pointer has to be, the whole of it or a part
    bool isWhole = false;
    CRect part;
    CString text;

    bool IsAt(HWND where, CPoint point) const;
    /// False for one that the user does not see, or cannot use.
    bool IsReachable() const;
};

/// How long a tip waits, in milliseconds.
struct TipDelays {
    int initial = 500;
    int reshow = 100;
    int autopop = 5000;
};

/// The state of a tooltip: its tools, and the one that the pointer is on.
class ToolTipState : public ControlState {
public:
    explicit ToolTipState(WindowRecord& window);

    /// True: the tool exists now, with what `info` says.
    bool Add(const TOOLINFO& info);
    void Remove(const TOOLINFO& info);
    void SetToolText(const TOOLINFO& info);
    int ToolCount() const { return static_cast<int>(m_tools.size()); }
    void Activate(bool isActive);
    void SetDelay(UINT which, int milliseconds);
    int Delay(UINT which) const;
    int SetMaxWidth(int pixels) { return std::exchange(m_maxWidth, pixels); }
    int MaxWidth() const { return m_maxWidth; }

    void Relay(const MSG& message);
    void OnTimer(std::uintptr_t id);
    void Hide();
    void Paint(CDC& dc) const;

private:
    Tool* Find(const TOOLINFO& info);
    const Tool* ToolAt(HWND window, CPoint point) const;
    void Hover(HWND window, CPoint point);
    void Show();
    void Leave();
    std::vector<CString> Lines() const;

    WindowRecord& m_record;
    std::list<Tool> m_tools;
    const Tool* m_current = nullptr; // under the pointer, whether its tip is shown or not
    TipDelays m_delays;
    std::chrono::milliseconds m_nextUntil{
        0}; // when the pointer has left a tip, for as long another one follows
    int m_maxWidth = -1;
    bool m_isActive = true;
};

} // namespace korvel::internal
