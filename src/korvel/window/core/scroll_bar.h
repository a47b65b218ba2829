#pragma once

#include "korvel/window/base/messages.h"
#include "korvel/window/base/types.h"

/// The standard scroll bars of a plain window: SB_HORZ at its lower edge, SB_VERT at its right one.
///
///     SetScrollRange(page, SB_VERT, 0, 120);   // the bar appears, the client area gets narrower: WM_SIZE
///     SetScrollPos(page, SB_VERT, 40);         // returns 0, where it was
///     ScrollWindow(page, 0, -40);              // the content follows
///     SetScrollRange(page, SB_VERT, 0, 0);     // the bar disappears: WM_SIZE again
///
/// The user's scrolling arrives as WM_HSCROLL or WM_VSCROLL: the low word of wParam is SB_*, the high word of
/// SB_THUMBTRACK and SB_THUMBPOSITION the low 16 bits of where the thumb is. The window decides; nothing
/// moves by itself.
///
/// A window that is made with WS_HSCROLL or WS_VSCROLL has that bar with a range of 0 to 100. Lists, edits
/// and other native controls scroll themselves: on them these functions have no effect, as for a bar that is
/// neither SB_HORZ nor SB_VERT.
namespace korvel {

/// 0 for a bar that has never been shown.
KORVEL_API int GetScrollPos(HWND window, int bar);
/// The position becomes the nearest in the range. Returns the former one.
KORVEL_API int SetScrollPos(HWND window, int bar, int position);
/// False, and both untouched, for a window that has no such bar.
KORVEL_API bool GetScrollRange(HWND window, int bar, int& minimum, int& maximum);
/// Shows the bar where `maximum` is above `minimum`, and hides it otherwise. Where the client area gets
/// another size by that, WM_SIZE is sent before this returns. A range of more than 31 bits is refused: false.
KORVEL_API bool SetScrollRange(HWND window, int bar, int minimum, int maximum);
/// Moves all children by a distance and has the client area painted again.
KORVEL_API bool ScrollWindow(HWND window, int dx, int dy);

} // namespace korvel
