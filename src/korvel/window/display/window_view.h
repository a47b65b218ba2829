#pragma once

#include "korvel/window/base/control_view.h"
#include "korvel/window/base/list_view.h"
#include "korvel/window/base/types.h"

#include <optional>
#include <vector>

/// What a display reads of a window. On the display's thread; for a handle that is gone everything is 0,
/// empty or false.
///
///     if (view::KindOf(window) == view::Kind::Edit)
///         ShowText(GetWindowTextA(window), view::Edit(window).readOnly);
namespace korvel::view {

KORVEL_API Kind KindOf(HWND window);
KORVEL_API UINT Style(HWND window);
KORVEL_API UINT ExStyle(HWND window);
/// Relative to the parent's client area, or to the screen for a top-level window.
KORVEL_API CRect Rectangle(HWND window);
/// The client area in the window's own coordinates: without border and scroll bars.
KORVEL_API CRect ClientRectangle(HWND window);
/// The window's own flags, whatever those of its parents are.
KORVEL_API bool IsShown(HWND window);
KORVEL_API bool IsSwitchedOn(HWND window);
/// The first lies on top.
KORVEL_API std::vector<HWND> Children(HWND window);
/// True for windows of the thread that installed the display.
KORVEL_API bool BelongsToDisplay(HWND window);
/// The label that names a field: the one before it among its siblings. Null without one, and for what shows a
/// text of its own: buttons, labels.
KORVEL_API HWND LabelOf(HWND window);
/// The field that a label names.
KORVEL_API HWND Labelled(HWND window);
/// What a field is called for those who cannot see it: its label, else the title or name of its parent. Empty for buttons
/// and labels. A control that is open over a cell of a list is called like the row, and so is the list that drops
/// from it.
KORVEL_API CString NameOf(HWND window);

KORVEL_API EditView Edit(HWND window);
/// Of a top-level window. What its handler throws goes to the exception handler; there are no limits then.
KORVEL_API SizeRange SizesOf(HWND window);
KORVEL_API ButtonView Button(HWND window);

KORVEL_API ScrollView Scroll(HWND window);
/// SB_HORZ or SB_VERT of a window that does not scroll itself. It lies beside the client rectangle.
KORVEL_API BarView ScrollBar(HWND window, int bar);

KORVEL_API RangeView Range(HWND window);

KORVEL_API ChoiceView Choice(HWND window);
/// The text of an entry; empty when there is no such entry.
KORVEL_API CString ChoiceText(HWND window, int index);

KORVEL_API DateView Date(HWND window);

/// Of a list; everything is 0 for another window. What its object throws goes to the exception handler, as with
/// the two that follow.
KORVEL_API ListView List(HWND window);
/// Nothing for no such cell; of TitleRow, the title of a column.
KORVEL_API std::optional<CellView> Cell(HWND window, CellPlace place);
/// The cell or title at a client point.
KORVEL_API std::optional<CellView> CellAt(HWND window, CPoint point);

/// The value of a window that paints itself and shows but one, see WM_KORVEL_READVALUE. What its object throws
/// goes to the exception handler.
KORVEL_API std::optional<ValueView> ValueOf(HWND window);

/// How the depth of a cell in a tree is said, in the language of the process.
KORVEL_API CString LevelText(int level);

/// The text to show while the pointer rests at a client point; empty: none.
KORVEL_API CString Tip(HWND window, CPoint point);

} // namespace korvel::view
