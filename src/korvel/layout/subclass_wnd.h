#pragma once

#include "korvel/window/core/window.h"

#include <cstdint>

namespace korvel {

namespace internal {
class CSubclassWndMap;
}

/// One link in a chain of hooks on a window: sees its messages before the window does. Several objects that
/// know nothing of each other may hook one window, and leave it in any order; the newest sees a message
/// first.
///
///     class CMoveWatch : public CSubclassWnd {
///         LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
///             if (message == WM_MOVE) ++moves;
///             return CSubclassWnd::WindowProc(message, wParam, lParam);   // on to the next hook
///         }
///     };
///     watch.HookWindow(frame);
///     watch.HookWindow(nullptr);   // off again
///
/// Inside a hook CWnd::GetCurrentMessage returns the message of the hooked window. No hook hears
/// WM_NCDESTROY: it takes all of them off, newest first, before the window ends. A destroyed hook takes
/// itself off. All of it happens on the window's thread.
class KORVEL_API CSubclassWnd {
public:
    CSubclassWnd();
    virtual ~CSubclassWnd();
    CSubclassWnd(const CSubclassWnd&) = delete;
    CSubclassWnd& operator=(const CSubclassWnd&) = delete;

    /// Hooks a window; null, or a window that does not exist, leaves the hook off. Always returns 1. Unhook
    /// from the former window first. A hook that is still on another window is taken off it: it can be in one
    /// chain only.
    BOOL HookWindow(HWND window);
    /// Null while the hook is off.
    HWND GetHookedWindow() const { return m_hWnd; }
    /// True while `hook` is on the window. The hook itself is not looked at: it may be gone already.
    static bool IsHooking(const CSubclassWnd* hook, HWND window);

    /// The base passes the message on to the next older hook, and at last to the window. This also works
    /// for a hook that took itself off while it handled the message.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

private:
    friend class internal::CSubclassWndMap;

    LRESULT PassOnDetached(UINT message, WPARAM wParam, LPARAM lParam) const;

    HWND m_hWnd = nullptr;
    WNDPROC m_pOldWndProc = nullptr; // the window's own; the same in every link of a chain
    CSubclassWnd* m_pNext = nullptr; // the next older hook
    std::uint64_t m_age = 0;         // counts on with every hooking
};

} // namespace korvel
