#pragma once

#include "korvel/window/list/list_state.h"

/// Presses, releases and moves of the mouse over the rows.
namespace korvel::internal {

/// Takes the name that is being edited and gives the list the focus, as each press does first. False when the
/// name was refused, or what was being edited elsewhere, which has the focus still: the press was about that,
/// and does nothing else.
bool BeginPress(HWND list);
/// Whether the last press was such a one; a double click that it begins does nothing either.
bool WasPressRefused(HWND list);

/// `button`: MK_LBUTTON or MK_RBUTTON; `flags`: MK_* as the message carries them.
void PressButton(ListState& list, UINT button, UINT flags, CPoint point);
void DoubleClick(ListState& list, UINT flags, CPoint point);
void MovePointer(ListState& list, UINT flags, CPoint point);
/// The press that is still down, or the click before, begins no label edit.
void ForgetLabelClick(HWND list);
/// NM_CLICK or NM_RCLICK. True: the parent has handled the click.
bool ReleaseButton(ListState& list, UINT button, CPoint point);
/// The timer that begins a label edit by a second, slow click; false for another timer.
bool FireLabelEditTimer(ListState& list, std::uintptr_t id);

} // namespace korvel::internal
