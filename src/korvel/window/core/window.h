#pragma once

#include "korvel/window/base/messages.h"
#include "korvel/window/base/types.h"

#include <cstddef>

/// Windows in memory: the functions of a message-based window system.
///
/// A window is a record in the process-wide window table. It lives and behaves completely in memory; a
/// display (window/core/display.h) only shows it. A window belongs to the thread that made it: a send from
/// another thread runs there at its next message retrieval, and every other function called from another
/// thread becomes such a message.
///
///     const CRect place{0, 0, 400, 300};
///     HWND frame = CreateWindowExA(0, "KorvelFrame", "Objects", WS_OVERLAPPEDWINDOW, place, nullptr, 0);
///     HWND list = CreateWindowExA(0, "SysListView32", "", WS_CHILD | LVS_REPORT, place, frame, 105);
///     SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);   // 0
///
/// Every function tolerates a null or stale handle: it has no effect and returns 0, false or null.
namespace korvel {

struct CREATESTRUCTA {
    UINT exStyle = 0;
    const char* className = nullptr;
    const char* text = nullptr;
    UINT style = 0;
    CRect rect; // relative to the parent's client area, or to the screen without parent
    HWND parent = nullptr;
    int id = 0;
    void* param = nullptr;
};

/// A key or mouse message on its way to a window, as CWnd::PreTranslateMessage sees it.
struct MSG {
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

struct NMHDR {
    HWND hwndFrom = nullptr;
    std::uintptr_t idFrom = 0;
    UINT code = 0;
};

struct DRAWITEMSTRUCT;
enum class OpenAs;

/// What WM_GETMINMAXINFO carries (lParam): the sizes between which the window may be sized. The other fields
/// of the window model are not used here.
struct MINMAXINFO {
    CPoint ptMinTrackSize;
    CPoint ptMaxTrackSize;
};

/// Places for SetWindowPos beside a sibling.
inline const HWND HWND_TOP = nullptr;
inline const HWND HWND_BOTTOM = reinterpret_cast<HWND>(std::uintptr_t{1});
inline const HWND HWND_TOPMOST = reinterpret_cast<HWND>(std::intptr_t{-1});
inline const HWND HWND_NOTOPMOST = reinterpret_cast<HWND>(std::intptr_t{-2});

// --- life ---

/// Makes a window of a registered class. A window with WS_CHILD lies inside `parent`; without it, it is a
/// top-level window owned by the root of `parent`. Sends WM_CREATE; a result of -1 destroys the window
/// again and gives null. An unknown class gives null. A window with a parent is made on the parent's
/// thread: a tree of windows belongs to one thread.
KORVEL_API HWND CreateWindowExA(UINT exStyle, const char* className, const char* text, UINT style,
                                const CRect& rect, HWND parent, int id, void* param = nullptr);
/// Destroys the window, the windows that it or a descendant owns, and its children. The focus leaves
/// while the window still counts as visible; then WM_DESTROY goes down the tree and WM_NCDESTROY ends
/// each window. All of that happens also when handlers throw; the first failure comes out at the end.
KORVEL_API bool DestroyWindow(HWND window);
/// Any thread.
KORVEL_API bool IsWindow(HWND window);

/// Registers a class of windows; nothing without a name or a procedure. A second registration of a name
/// replaces the first for new windows.
/// The predefined classes: "KorvelFrame" (a plain top-level window), "#32770" (dialog),
/// "SysListView32", "SysHeader32", "SysTabControl32", "SysDateTimePick32", "msctls_progress32",
/// "msctls_trackbar32", "msctls_updown32", "tooltips_class32", "EDIT", "RICHEDIT50W", "COMBOBOX", "BUTTON",
/// "STATIC".
KORVEL_API void RegisterClassA(const char* className, WNDPROC procedure);

// --- messages ---

/// Calls the window's procedure, on the thread of the window, and returns its result.
KORVEL_API LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// Runs at the next message retrieval of the window's thread, in order. False when the window or its thread
/// has ended.
KORVEL_API bool PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// The number of a message name, whatever its case: 0xC000 to 0xFFFF, the same for the same name during the
/// process; 0 without a name or when all numbers are taken.
KORVEL_API UINT RegisterWindowMessageA(const char* name);
/// What a window without a procedure of its own does.
KORVEL_API LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KORVEL_API LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                                   LPARAM lParam);
/// GWLP_WNDPROC, GWLP_ID, GWL_STYLE, GWL_EXSTYLE, GWLP_USERDATA. The setter returns the former value; other
/// indexes have no effect and give 0.
KORVEL_API LPARAM GetWindowLongPtrA(HWND window, int index);
KORVEL_API LPARAM SetWindowLongPtrA(HWND window, int index, LPARAM value);

// --- tree ---

KORVEL_API HWND GetParent(HWND window); // the owner of a top-level window
KORVEL_API HWND GetOwner(HWND window);
/// Through parents and owners to the end; the window itself when it has none.
KORVEL_API HWND GetTopLevelParent(HWND window);
/// Moves the window, with its children, below `parent`, or makes it a top-level one (null). Returns the
/// former parent; null, and no effect, when `parent` lies below the window or is about to end.
KORVEL_API HWND SetParent(HWND window, HWND parent);
/// True for descendants at any depth.
KORVEL_API bool IsChild(HWND parent, HWND window);
/// The first child with that id.
KORVEL_API HWND GetDlgItem(HWND parent, int id);
KORVEL_API int GetDlgCtrlID(HWND window);
KORVEL_API HWND GetFirstChild(HWND window);
KORVEL_API HWND GetNextSibling(HWND window);
/// GW_CHILD: the first child; GW_HWNDNEXT: the next sibling; GW_OWNER: the owner.
KORVEL_API HWND GetWindow(HWND window, UINT command);
/// The next (previous) visible, enabled control of `parent` with WS_TABSTOP after `from`, going round. The
/// children of a control count only if it has WS_EX_CONTROLPARENT; from inside another one the way leads
/// out of it. `from` may be null.
KORVEL_API HWND GetNextDlgTabItem(HWND parent, HWND from, bool previous);
/// The next (previous) visible, enabled control of the group of `from`, going round: its siblings from one
/// with WS_GROUP to before the next. Labels and group boxes are passed over. `from` itself when there is no
/// other.
KORVEL_API HWND GetNextDlgGroupItem(HWND parent, HWND from, bool previous);

// --- place, appearance, text ---

/// `rect` is relative to the parent's client area, or to the screen for a top-level window.
KORVEL_API bool MoveWindow(HWND window, const CRect& rect, bool repaint = true);
/// Puts the window after a sibling, before all (HWND_TOP) or after all (HWND_BOTTOM), unless SWP_NOZORDER
/// says otherwise: the first sibling lies on top and is the first for Tab. A window that is no sibling leaves
/// the order. New windows come last. Top-level windows keep no order; HWND_TOP brings one to the front.
/// HWND_TOPMOST brings one there and keeps it above all that are not (WS_EX_TOPMOST) until HWND_NOTOPMOST or
/// HWND_BOTTOM; for a child window it is HWND_TOP, and HWND_NOTOPMOST does nothing. Flags: SWP_*. A window
/// with WS_THICKFRAME is asked for its limits (WM_GETMINMAXINFO) before it gets another size.
KORVEL_API bool SetWindowPos(HWND window, HWND insertAfter, const CRect& rect, UINT flags);
KORVEL_API bool BringWindowToTop(HWND window);
/// The whole window in screen coordinates.
KORVEL_API CRect GetWindowRect(HWND window);
/// Starts at (0, 0); without borders and scroll bars.
KORVEL_API CRect GetClientRect(HWND window);
KORVEL_API CPoint ClientToScreen(HWND window, CPoint point);
KORVEL_API CPoint ScreenToClient(HWND window, CPoint point);
/// SW_HIDE hides, any other command shows. True when it was shown before. A window that hides gives its
/// focus to its parent.
KORVEL_API bool ShowWindow(HWND window, int command);
/// True when it was disabled before. A window that is disabled loses focus and capture.
KORVEL_API bool EnableWindow(HWND window, bool enable);
/// True when the window and all its parents are shown (enabled).
KORVEL_API bool IsWindowVisible(HWND window);
KORVEL_API bool IsWindowEnabled(HWND window);
KORVEL_API bool SetWindowTextA(HWND window, const CString& text);
KORVEL_API CString GetWindowTextA(HWND window);
KORVEL_API CString GetClassNameA(HWND window);
/// Has a part of the client area (null: all of it) painted again.
KORVEL_API void InvalidateRect(HWND window, const CRect* rect = nullptr);
/// Nothing of its own: a display paints what is invalid before it takes the next event.
KORVEL_API void UpdateWindow(HWND window);
/// RDW_UPDATENOW paints at the latest before the next message is fetched.
KORVEL_API void RedrawWindow(HWND window, UINT flags);

// --- focus, mouse, keys, timers ---

/// Returns who had the focus; null, and no effect, for a window that cannot take it: disabled, about to
/// end, or not of the display's thread. Null takes the focus from all.
KORVEL_API HWND SetFocus(HWND window);
/// Null on other threads than the display's, like GetCapture.
KORVEL_API HWND GetFocus();
/// Sends all mouse messages to the window until ReleaseCapture; the former one gets WM_CAPTURECHANGED and
/// is returned.
KORVEL_API HWND SetCapture(HWND window);
KORVEL_API void ReleaseCapture();
KORVEL_API HWND GetCapture();
KORVEL_API CPoint GetCursorPos();      // on the screen
KORVEL_API void SetCursor(int cursor); // IDC_*
/// KeyIsDown, which is negative, while the key or mouse button is down, else 0.
KORVEL_API int GetKeyState(UINT key);
inline bool IsKeyDown(UINT key) {
    return GetKeyState(key) < 0;
}
/// A repeating timer on the display's clock; WM_TIMER with the id in wParam. The same id replaces the
/// timer; a period below 10 ms counts as 10. Returns the id; 0 for a window that the display does not show.
KORVEL_API std::uintptr_t SetTimer(HWND window, std::uintptr_t id, unsigned milliseconds);
/// False when there is no such timer.
KORVEL_API bool KillTimer(HWND window, std::uintptr_t id);

// --- the desktop ---

/// Shows a box (MB_*) and returns the button (IDOK ...). The focus leaves meanwhile and comes back.
KORVEL_API int MessageBoxA(HWND owner, const CString& text, const CString& caption, UINT type);
/// IDisplay::OpenPath of the display in force.
KORVEL_API int OpenPath(HWND owner, const CString& path, OpenAs as);
KORVEL_API COLORREF GetSysColor(int index); // COLOR_*
KORVEL_API int GetSystemMetrics(int index); // SM_*, in pixels

/// Sends WM_COMMAND or WM_NOTIFY as a control does: to the parent (the owner of a top-level control),
/// whose default handling first offers it to the control itself (CWnd::OnChildNotify).
KORVEL_API LRESULT NotifyParentCommand(HWND control, UINT code);
KORVEL_API LRESULT NotifyParent(HWND control, UINT code, NMHDR& header);

} // namespace korvel
