#pragma once

#include "korvel/events/event_icons.h"
#include "korvel/events/event_message.h"
#include "korvel/window/list/list_ctrl.h"

namespace korvel::internal {

/// Draws one row of an event list.
class EventRowPainter {
public:
    EventRowPainter(const CListCtrl& list, const EventIcons& icons, CDC& dc)
        : m_list(list), m_icons(icons), m_dc(dc) {}

    void Draw(int row, const CRect& bounds);

private:
    COLORREF SetColors(UINT state);
    void DrawIcon(int image, const CRect& square, const CRect& cell);
    void DrawColumns(int row, const CEventMessage& message);
    void DrawText(std::string_view text, CRect room);

    const CListCtrl& m_list;
    const EventIcons& m_icons;
    CDC& m_dc;
};

/// As much of a text as a line `width` pixels wide can show, and a little more where that is not all of it, so
/// that an ellipsis follows. Control characters are blanks. Only that much of a long text is measured.
CString FittingLine(std::string_view text, int width);

} // namespace korvel::internal
