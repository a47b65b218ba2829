#pragma once

#include "korvel/window/core/cwnd.h"

#include <cstdint>
#include <exception>
#include <functional>

namespace korvel {

class CDC;
class CGridCtrlEdit;

/// Two arrows beside a text field that step its number, faster while one is held; the step is written when it
/// is released.
///
///     CGridCtrlSpinButton spin;
///     spin.Create(0x40000040, right, &grid, 15046);
///     spin.m_pEdit = &edit;
///     edit.m_CompanionWindows.insert(spin.m_hWnd);
///     spin.m_Step = -1.0;               // the first arrow raises
///
/// The arrows lie one above the other, with UDS_HORZ side by side. It paints itself on every display. While
/// it is shown, a timer looks at the mouse every 100 ms.
class KORVEL_API CGridCtrlSpinButton : public CWnd {
public:
    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);

    /// Called with what a step or the write after it throws; the press has ended then. Without a hook the
    /// exception goes to the sender of the message.
    using FailureHook = std::function<void(std::exception_ptr)>;
    void SetFailureHook(FailureHook hook) { m_failureHook = std::move(hook); }
    /// Called at the end of a press in place of the field's End(false), for owners that have more to do.
    void SetWriteHook(std::function<void()> hook) { m_writeHook = std::move(hook); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    /// Of an arrow.
    enum State : std::uint32_t { Hot = 1, Pressed = 2 };

    void* m_pTheme = nullptr;         ///< kept for hosts that name it: the displays draw the arrows
    std::uintptr_t m_nTimer = 0;      ///< 0 while hidden
    CGridCtrlEdit* m_pEdit = nullptr; ///< what is stepped; may be null, must outlive the button
    std::uint32_t m_UpState = 0;      ///< bits of State of the upper or left arrow
    std::uint32_t m_DownState = 0;    ///< of the lower or right one
    std::int32_t m_nTicks = 0;        ///< of the timer, since the press
    bool m_bRedraw = false;           ///< a state has changed
    bool m_bPressed = false;          ///< a press is running
    double m_Step = 1.0;              ///< of one click; the first arrow takes it away, the second one adds it

private:
    bool IsAcross() const;
    CRect Half(bool isFirst) const;
    void SetStates(std::uint32_t up, std::uint32_t down);
    void OnShow(bool isShown);
    void OnPress(CPoint point);
    void OnTick();
    void Repeat();
    void Release();
    void EndPress();
    void Step(bool isFirst, int times);
    void Try(const std::function<void()>& action);
    void FollowPointer();
    void RedrawChanged();
    LRESULT Paint(CDC& dc) const;

    FailureHook m_failureHook;
    std::function<void()> m_writeHook;
};

} // namespace korvel
