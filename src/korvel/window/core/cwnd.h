#pragma once

#include "korvel/window/core/wait_cursor.h"
#include "korvel/window/core/window.h"

namespace korvel {

namespace internal {
struct WindowAccess;
}

/// An object attached to one window. Derived classes override WindowProc and the handlers below; what they
/// leave alone goes on to the procedure that the window had before, and at last to DefWindowProcA.
///
///     class CBlink : public CWnd {
///         LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
///             if (message == WM_TIMER) { Invalidate(); return 0; }
///             return CWnd::WindowProc(message, wParam, lParam);
///         }
///     };
///
/// Destroying the object destroys its window, and a window that ends first detaches its object. A handler
/// may destroy the window, its parent or any other, at any time; it must not delete the C++ object whose
/// handler it is: whoever wants that posts a message to another window, and deletes there. Exceptions of a
/// handler go to the sender of the message. Called on the thread that made the window, unless said
/// otherwise.
class KORVEL_API CWnd {
public:
    CWnd() = default;
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    HWND m_hWnd = nullptr; // null while no window is attached
    HWND GetSafeHwnd() const { return m_hWnd; }

    /// Makes a window of `className` (core/window.h: CreateWindowExA) and attaches it before its first
    /// message. False, and no window, when the object has one already or CreateWindowExA gives null.
    bool CreateEx(UINT exStyle, const char* className, const char* text, UINT style, const CRect& rect,
                  CWnd* parent, int id);
    /// Attaches to a window that exists; its procedure becomes the one that Default() calls. False when the
    /// object has a window, or that one is null, stale, about to end or has an object.
    bool SubclassWindow(HWND window);
    /// The same for a child of `parent` (may be null: false).
    bool SubclassDlgItem(int id, CWnd* parent);
    /// Detaches and puts the former procedure back, unless someone has put another one above it since.
    /// Returns the window. Nothing for a temporary object.
    HWND UnsubclassWindow();
    /// False without a window.
    virtual bool DestroyWindow();
    /// The message that the calling thread handles now; all zero outside of any.
    static MSG GetCurrentMessage();
    /// The object attached to a window, or null. Any thread.
    static CWnd* FromHandlePermanent(HWND window);
    /// The object attached to a window; for a window without one a temporary object that only calls it and
    /// gets none of its messages. Null for a window that is gone. The temporary one belongs to the library:
    /// there is one for a window, it lives as long as the window, and after that without a window until its
    /// thread next dispatches messages. On the thread of the window.
    ///
    ///     CWnd* button = CWnd::FromHandle(GetDlgItem(dialog, IDOK));
    ///     button->EnableWindow(false);
    static CWnd* FromHandle(HWND window);

    LRESULT SendMessageA(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return korvel::SendMessageA(m_hWnd, message, wParam, lParam);
    }
    /// The objects of the parent and of the first child with that id, as FromHandle gives them.
    CWnd* GetParent() const { return FromHandle(korvel::GetParent(m_hWnd)); }
    CWnd* GetDlgItem(int id) const { return FromHandle(korvel::GetDlgItem(m_hWnd, id)); }
    int GetDlgCtrlID() const { return korvel::GetDlgCtrlID(m_hWnd); }
    CRect GetClientRect() const { return korvel::GetClientRect(m_hWnd); }
    CRect GetWindowRect() const { return korvel::GetWindowRect(m_hWnd); }
    void MoveWindow(const CRect& rect, bool repaint = true) { korvel::MoveWindow(m_hWnd, rect, repaint); }
    /// Flags: SWP_*; see korvel::SetWindowPos.
    bool SetWindowPos(HWND insertAfter, const CRect& rect, UINT flags) {
        return korvel::SetWindowPos(m_hWnd, insertAfter, rect, flags);
    }
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
    void BeginWaitCursor() { korvel::BeginWaitCursor(); }
    void EndWaitCursor() { korvel::EndWaitCursor(); }
    void RestoreWaitCursor() { korvel::RestoreWaitCursor(); }

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
    /// A control's WM_NOTIFY; true: handled, `*result` is what the control gets back. The base offers it to
    /// the control itself.
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
