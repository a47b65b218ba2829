#pragma once

#include "korvel/window/core/window.h"
#include "korvel/window/list/list_ctrl.h"

#include <vector>

/// What a display reads of a window.
namespace korvel::view {

/// How a display shows a window: natively, or as a plain surface that input::Paint fills.
enum class Kind { Painted, List, Edit, Button, Static };

KORVEL_API Kind KindOf(HWND window);
KORVEL_API UINT Style(HWND window);
KORVEL_API UINT ExStyle(HWND window);
/// Relative to the parent's client area, or to the screen for a top-level window.
KORVEL_API CRect Rectangle(HWND window);
/// The client area in the window's own coordinates: without border and scroll bars.
KORVEL_API CRect ClientRectangle(HWND window);
/// The window's own flags, whatever its parents are.
KORVEL_API bool IsShown(HWND window);
KORVEL_API bool IsSwitchedOn(HWND window);
KORVEL_API std::vector<HWND> Children(HWND window);
/// True for windows of the thread that installed the display.
KORVEL_API bool BelongsToDisplay(HWND window);

struct EditView {
    int selectionStart = 0;
    int selectionEnd = 0;
    int limit = 0; // 0: none
    bool readOnly = false;
};
KORVEL_API EditView Edit(HWND window);
KORVEL_API int ButtonCheck(HWND window);

/// Where a list is scrolled to, and how far it can be.
struct ScrollView {
    int x = 0; // pixels
    int contentWidth = 0;
    int pageWidth = 0;
    int topRow = 0;
    int rowCount = 0;
    int rowsPerPage = 0; // whole rows
};
KORVEL_API ScrollView Scroll(HWND window);

} // namespace korvel::view
