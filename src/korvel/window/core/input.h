#pragma once

#include "korvel/window/base/list_view.h"
#include "korvel/window/base/surface.h"
#include "korvel/window/base/types.h"

/// What the user does, as a display reports it. The functions are called on the display's thread. What a
/// handler throws goes to the exception handler and does not leave them; under a headless display without
/// exception handler it comes out to the caller. Input to a window that is gone, disabled or inside a
/// disabled one is dropped.
///
///     input::Mouse(list, WM_LBUTTONDOWN, MK_LBUTTON, {30, 25});
///     if (!input::Key(edit, WM_KEYDOWN, 'A', "a"))
///         ...   // nobody wanted the key: the native widget types it
namespace korvel::input {

/// WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN or WM_SYSKEYUP with the key's code and the characters that it
/// makes (each follows as WM_CHAR or WM_SYSCHAR). True: consumed; false: the message and all its
/// characters were left to the window's default, and a native widget may act on the event.
KORVEL_API bool Key(HWND window, UINT message, UINT key, const CString& characters);
/// The key that Key delivers now. For a window that takes over the keys of the one with the focus in
/// PreTranslateMessage: a key that is taken there makes no WM_CHAR.
struct KeyOnTheWay {
    HWND window = nullptr; // where the user typed it
    UINT key = 0;
    CString characters;
};
/// Null while the calling thread delivers none.
KORVEL_API const KeyOnTheWay* CurrentKey();
/// A mouse message (WM_MOUSEMOVE to WM_MOUSEWHEEL, WM_NC*BUTTONDOWN, WM_MOUSELEAVE) at a client point.
/// `flags` are MK_*; `wheel` the delta of WM_MOUSEWHEEL. True: consumed.
KORVEL_API bool Mouse(HWND window, UINT message, UINT flags, CPoint point, int wheel = 0);
/// The focus went to this window without the library having moved it, or to no window of the library
/// (null).
KORVEL_API void FocusMoved(HWND window);
/// The user went to another program: no window has the focus until they come back, and FocusMoved says where.
/// An open edit in a cell waits for them.
KORVEL_API void ProgramLeft();
/// The user changed the text of an edit in its native widget; the selection is in bytes of the text.
KORVEL_API void Edited(HWND window, const CString& text, int selectionStart, int selectionEnd);
/// The user changed the check of a button, the choice of a combo box or tab control, the position of a slider
/// or the date of a date control (not-a-number: none); a push button is clicked with 1.
KORVEL_API void Value(HWND window, double value);
/// The user moved a slider by a step, which is TB_LINEUP, TB_LINEDOWN, TB_PAGEUP or TB_PAGEDOWN: the window
/// says where it is then.
KORVEL_API void Stepped(HWND window, UINT code);
/// The user opened or closed the list of a combo box or the calendar of a date control. A list opens only
/// when the window says so (view::Choice), and a choice reported by Value closes it.
KORVEL_API void Dropped(HWND window, bool isOpen);
/// The user chose a cell of a list without pressing it: the list gets the focus where it takes one, and the row
/// becomes the only one selected, as with an arrow key. Nothing happens for no such cell, and while another
/// control keeps the focus because its text is refused; view::List says what is current then.
KORVEL_API void CellChosen(HWND list, view::CellPlace place);
/// The user moved or sized a top-level window (screen coordinates), or a layout sized an embedded one.
KORVEL_API void Placed(HWND window, const CRect& rect);
/// The user scrolled: the new positions, in pixels to the right and in rows down.
KORVEL_API void Scrolled(HWND window, int x, int row);
/// The user acted on a scroll bar of a plain window (SB_HORZ, SB_VERT): WM_HSCROLL or WM_VSCROLL with that
/// code (SB_*). `position` is where the thumb was dragged to. The window says afterwards where the bar is.
KORVEL_API void ScrollBarUsed(HWND window, int bar, UINT code, int position);
/// The user closes a top-level window: WM_CLOSE.
KORVEL_API void Close(HWND window);
/// A host's widget that holds the window is deleted: DestroyWindow.
KORVEL_API void Destroy(HWND window);
/// A top-level window became (in)active: WM_ACTIVATE.
KORVEL_API void Activated(HWND window, bool active);

/// Paints what `clip` (client coordinates) covers of one window, without its children.
KORVEL_API void Paint(HWND window, Surface& surface, const CRect& clip);
/// Sends WM_TIMER for every timer that is due and sets the next alarm.
KORVEL_API void FireTimers();
/// Runs the sends of other threads and the posted messages of the calling thread: the display's, or another
/// one that has windows of its own.
KORVEL_API void DispatchMessages();

} // namespace korvel::input
