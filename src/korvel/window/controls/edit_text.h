#pragma once

#include "korvel/window/controls/edit_state.h"

/// Changes of a text field's text and selection, with the notices that go with them.
namespace korvel::internal {

struct TextRange {
    int start = 0;
    int end = 0;
    bool IsEmpty() const { return start == end; }
};

int LengthOf(const EditState& edit);
/// The border between characters that is not after `place`, inside the text.
int BorderAt(const EditState& edit, int place);
/// In order, inside the text and between its characters even after it was changed.
TextRange SelectionOf(const EditState& edit);
/// (0, -1) selects all; a start of -1 selects nothing and puts the caret at the end of the selection.
void Select(EditState& edit, int start, int end);

enum class TextOrigin { Program, User };
/// Puts `text` in place of the selection. What the limit leaves no room for is cut off, after EN_MAXTEXT. The
/// user's text also keeps to digits-only and a single line, and is dropped when the field is read-only.
void ReplaceSelection(EditState& edit, CString text, TextOrigin origin);
void TypeText(EditState& edit, const CString& text);
/// Whether the limit lets the user type `text` whole in place of the selection.
bool HasRoomFor(const EditState& edit, const CString& text);
/// Removes the selection, or `range` when nothing is selected.
void EraseByUser(EditState& edit, TextRange range);
/// WM_SETTEXT: limit, digits-only and read-only do not count; only a single-line field sends notices.
LRESULT SetText(EditState& edit, WPARAM wParam, LPARAM lParam);
bool Undo(EditState& edit);

/// False where nothing was copied.
bool Copy(const EditState& edit);
void Cut(EditState& edit);
void Paste(EditState& edit);

} // namespace korvel::internal
