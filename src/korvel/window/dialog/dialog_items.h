#pragma once

#include "korvel/window/core/window.h"

/// The controls of a dialog by their ids (the first child with that id), and its units. A control that does
/// not exist gives false, 0 or an empty text.
namespace korvel {

KORVEL_API bool SetDlgItemTextA(HWND dialog, int id, const CString& text);
KORVEL_API CString GetDlgItemTextA(HWND dialog, int id);
KORVEL_API LRESULT SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
/// `check`: BST_UNCHECKED or BST_CHECKED.
KORVEL_API bool CheckDlgButton(HWND dialog, int id, int check);
KORVEL_API int IsDlgButtonChecked(HWND dialog, int id);
/// Checks the button `checked` and takes the check from the others with an id from `first` to `last`.
KORVEL_API bool CheckRadioButton(HWND dialog, int first, int last, int checked);

/// Turns a rectangle of dialog units into pixels, each edge rounded to the nearest. Every dialog uses the
/// font of the display. Nothing for a window that is gone.
///
///     CRect margin{7, 7, 7, 7};
///     MapDialogRect(dialog, margin);
KORVEL_API void MapDialogRect(HWND dialog, CRect& rect);

} // namespace korvel
