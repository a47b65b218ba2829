#pragma once

#include "korvel/window/core/window_record.h"

namespace korvel::internal {

enum class PlaceOrigin { Program, Display };

/// Gives a window a new rectangle: WM_WINDOWPOSCHANGING, the change, WM_WINDOWPOSCHANGED, then WM_MOVE and
/// WM_SIZE as far as they apply. Nothing for the same rectangle.
void Place(WindowRecord& record, const CRect& rect, PlaceOrigin origin);

/// The sizes between which the user and MoveWindow may size a window (WM_GETMINMAXINFO); no limits for one
/// without WS_THICKFRAME and for a child window.
view::SizeRange SizesOf(const WindowRecord& record);

void TellSize(const WindowRecord& record);
void TellMove(const WindowRecord& record);

} // namespace korvel::internal
