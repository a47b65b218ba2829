#pragma once

#include "korvel/window/list/list_geometry.h"

/// Which part of its content a list shows, and what of it is painted again.
namespace korvel::internal {

enum class Visibility { Whole, Part };

/// Scrolls as far as there is content; notifies the display and moves the header along.
void ScrollTo(ListState& list, std::int64_t x, std::int64_t topRow);
/// Pixels to the right; pixels down, of which whole rows count.
void ScrollBy(ListState& list, CSize size);
void EnsureVisible(ListState& list, int row, Visibility wanted);
/// WM_VSCROLL and WM_HSCROLL.
void HandleScrollBar(ListState& list, UINT message, UINT command);
/// WM_MOUSEWHEEL; false when there is nothing to scroll.
bool TurnWheel(ListState& list, int delta);

/// To be called when rows, columns, size or style have changed: scrolls back into the content, sends WM_SIZE
/// when a scroll bar appears or disappears, places the header and notifies the display. While redraw is off
/// this waits until it is on again.
void UpdateExtent(ListState& list);

/// The same after rows were inserted. Costs little once there is a scroll bar: then only the number of rows has
/// changed.
void UpdateExtentForNewRows(ListState& list);

void TellRowsThatAreRead(ListState& list, int first, int removed, int inserted);
/// Tells the display which rows have come and gone (IDisplay::RowsChanged), once a cell was read: rows may leave one by
/// one, by the million, and nobody may care.
inline void TellRows(ListState& list, int first, int removed, int inserted) {
    if (list.areCellsRead)
        TellRowsThatAreRead(list, first, removed, inserted);
}

void RepaintAll(ListState& list);
/// Tells the display, too, that they changed. Rows that are not on screen paint nothing.
void RepaintRows(ListState& list, int first, int last);
void RepaintFrom(ListState& list, int row);

} // namespace korvel::internal
