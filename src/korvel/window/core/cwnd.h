#pragma once

#include "korvel/window/core/window.h"

namespace korvel {

namespace internal {
struct WindowAccess;
}

/// An object attached to one window. Derived classes override WindowProc and the handlers below; what
/// they leave alone goes on to the procedure that the window had before, and at last to DefWindowProcA.
///
///     class CBlink : public CWnd {
///         LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
///             if (message == WM_TIMER) { Invalidate(); return 0; }
///             return CWnd::WindowProc(message, wParam, lParam);
///         }
///     };
///
/// The object does not own its memory's end: destroying it destroys an attached window, and a window
/// that dies first detaches its object. Exceptions of a handler go to the sender of the message.
class KORVEL_API CWnd {
public:
    CWnd() = default;
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    HWND m_hWnd = nullptr;
    HWND GetSafeHwnd() const { return m_hWnd; }

    /// Makes a window of `className` and attaches it. False when the window system refuses.
    bool CreateEx(UINT exStyle, const char* className, const char* text, UINT style, const CRect& rect,
                  CWnd* parent, int id);
    /// Attaches to a window that exists; its procedure becomes the one that Default() calls.
    bool SubclassWindow(HWND window);
    bool SubclassDlgItem(int id, CWnd* parent);
    /// Detaches and puts the former procedure back. Answers the window.
    HWND UnsubclassWindow();
    bool DestroyWindow();
    /// The message that the calling thread handles now; all zero outside of any.
    static MSG GetCurrentMessage();
    /// The object attached to a window, or null.
    static CWnd* FromHandlePermanent(HWND window);

    LRESULT SendMessageA(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return korvel::SendMessageA(m_hWnd, message, wParam, lParam);
    }
    CWnd* GetParent() const { return FromHandlePermanent(korvel::GetParent(m_hWnd)); }
    int GetDlgCtrlID() const { return korvel::GetDlgCtrlID(m_hWnd); }
    CRect GetClientRect() const { return korvel::GetClientRect(m_hWnd); }
    CRect GetWindowRect() const { return korvel::GetWindowRect(m_hWnd); }
    void MoveWindow(const CRect& rect, bool repaint = true) { korvel::MoveWindow(m_hWnd, rect, repaint); }
    void ShowWindow(int command) { korvel::ShowWindow(m_hWnd, command); }
    void EnableWindow(bool enable) { korvel::EnableWindow(m_hWnd, enable); }
    bool IsWindowVisible() const { return korvel::IsWindowVisible(m_hWnd); }
    bool IsWindowEnabled() const { return korvel::IsWindowEnabled(m_hWnd); }
    HWND SetFocus() { return korvel::SetFocus(m_hWnd); }
    void SetWindowTextA(const CString& text) { korvel::SetWindowTextA(m_hWnd, text); }
    CString GetWindowTextA() const { return korvel::GetWindowTextA(m_hWnd); }
    void Invalidate() { korvel::InvalidateRect(m_hWnd); }
    void InvalidateRect(const CRect* rect) { korvel::InvalidateRect(m_hWnd, rect); }
    void UpdateWindow() { korvel::UpdateWindow(m_hWnd); }
    void RedrawWindow(UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE) {
        korvel::RedrawWindow(m_hWnd, flags);
    }
    /// While off, the control keeps its state but neither scrolls, notifies the display nor repaints;
    /// switching on repaints it whole.
    void SetRedraw(bool redraw = true) { SendMessageA(WM_SETREDRAW, redraw); }
    void ModifyStyle(UINT remove, UINT add);
    void ModifyStyleEx(UINT remove, UINT add);
    UINT GetStyle() const { return static_cast<UINT>(GetWindowLongPtrA(m_hWnd, GWL_STYLE)); }
    std::uintptr_t SetTimer(std::uintptr_t id, unsigned milliseconds) {
        return korvel::SetTimer(m_hWnd, id, milliseconds);
    }
    bool KillTimer(std::uintptr_t id) { return korvel::KillTimer(m_hWnd, id); }

    /// Every message of the window. The base offers WM_COMMAND and WM_NOTIFY to OnCommand and OnNotify
    /// and passes the rest to DefWindowProc.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// The procedure that the window had before the object was attached.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// Sees each key and mouse message before the window does, innermost window first, up to the
    /// top-level window; true drops the message.
    virtual bool PreTranslateMessage(MSG& message);
    /// Called when a window was attached, before its first message.
    virtual void PreSubclassWindow() {}

protected:
    /// A control's WM_COMMAND; true: handled. The base offers it to the control itself.
    virtual bool OnCommand(WPARAM wParam, LPARAM lParam);
    /// A control's WM_NOTIFY; true: handled, `*result` is the answer. The base offers it to the control
    /// itself.
    virtual bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    /// A notification that this control sent its parent and that the parent left to it (reflection):
    /// WM_COMMAND, WM_NOTIFY, WM_DRAWITEM. True: handled.
    virtual bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    /// The message that is being handled, passed on unchanged.
    LRESULT Default();

private:
    friend struct internal::WindowAccess;
};

} // namespace korvel
