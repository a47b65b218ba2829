#pragma once

#include "korvel/window/controls/edit_text.h"

namespace korvel::internal {

/// WM_KEYDOWN: caret, selection, Delete and the clipboard keys. False: no key of a text field.
bool PressKey(EditState& edit, UINT key);
bool IsUndoKey(UINT key);
/// What the characters of a key type, without those that type nothing.
CString TextOfCharacters(const EditState& edit, const CString& characters);
/// WM_CHAR: typing, Backspace, and Return in a field of several lines. False: nothing to type.
bool TypeCharacter(EditState& edit, const CString& character);

/// A press of the mouse puts the caret there; with Shift it extends the selection.
void PressMouse(EditState& edit, CPoint point, bool extend);
void DragMouse(EditState& edit, CPoint point);
void SelectWordAt(EditState& edit, CPoint point);

} // namespace korvel::internal
