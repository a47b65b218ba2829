#include "korvel/events/event_row_painter.h"

#include "korvel/events/event_columns.h"
#include "korvel/platform/code_page.h"
#include "korvel/window/base/color.h"
#include "korvel/window/core/display.h"
#include "korvel/window/list/list_metrics.h"

#include <algorithm>

namespace korvel::internal {

namespace {

constexpr COLORREF UnfocusedGround = 0xC8C8C8;
constexpr double ReadableContrast = 4.5; // WCAG 2, of texts
constexpr UINT TextFormat = DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;

// Under a dark palette the text of a window is light, and would vanish on the gray.
COLORREF TextOnUnfocused() {
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    return ContrastOf(text, UnfocusedGround) < ReadableContrast ? RGB(0, 0, 0) : text;
}

bool IsControl(char byte) {
    return static_cast<unsigned char>(byte) < ' ';
}

} // namespace

CString FittingLine(std::string_view text, int width) {
    constexpr std::size_t FirstPart = 128;       // bytes, which cost next to nothing
    constexpr std::size_t LongestPart = 1 << 14; // more has no width: marks upon marks
    std::size_t length = FirstPart;
    CString line;
    do {
        line = platform::CutCharacters(text, length);
        std::replace_if(line.begin(), line.end(), IsControl, ' ');
        length *= 2;
    } while (line.size() < text.size() && length <= LongestPart && Display().TextWidth(line) <= width);
    return line;
}

void EventRowPainter::Draw(int row, const CRect& bounds) {
    LVITEM item;
    item.mask = LVIF_IMAGE | LVIF_STATE | LVIF_PARAM;
    item.stateMask = LVIS_SELECTED;
    item.iItem = row;
    if (!m_list.SendMessageA(LVM_GETITEM, 0, reinterpret_cast<LPARAM>(&item)))
        return;
    const COLORREF formerText = m_dc.GetTextColor();
    const COLORREF formerGround = m_dc.GetBkColor();
    m_dc.FillSolidRect(bounds, SetColors(item.state));
    CRect cell = bounds;
    cell.right = cell.left + m_list.GetColumnWidth(0);
    const CRect square{cell.left, cell.top, cell.left + cell.Height(), cell.bottom};
    DrawIcon(item.iImage, square, cell);
    if (const auto* message = reinterpret_cast<const CEventMessage*>(item.lParam)) {
        DrawText(EventCellText(*message, EventColumns[0]), {square.right, cell.top, cell.right, cell.bottom});
        DrawColumns(row, *message);
    }
    m_dc.SetTextColor(formerText);
    m_dc.SetBkColor(formerGround);
}

// Returns the ground.
COLORREF EventRowPainter::SetColors(UINT state) {
    COLORREF ground = GetSysColor(COLOR_WINDOW);
    COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    if (state & LVIS_SELECTED) {
        const bool hasFocus = GetFocus() == m_list.m_hWnd;
        ground = hasFocus ? GetSysColor(COLOR_HIGHLIGHT) : UnfocusedGround;
        text = hasFocus ? GetSysColor(COLOR_HIGHLIGHTTEXT) : TextOnUnfocused();
    }
    m_dc.SetBkColor(ground);
    m_dc.SetTextColor(text);
    return ground;
}

void EventRowPainter::DrawIcon(int image, const CRect& square, const CRect& cell) {
    const Image* icon = m_icons.At(image);
    const CRect seen = cell.Intersected(m_dc.GetClipBox());
    if (!icon || seen.IsRectEmpty())
        return;
    m_dc.IntersectClipRect(seen);
    m_dc.DrawImage(*icon, square);
    m_dc.ResetClip();
}

void EventRowPainter::DrawColumns(int row, const CEventMessage& message) {
    const int count = std::min(m_list.GetColumnCount(), static_cast<int>(EventColumns.size()));
    for (int column = 1; column < count; ++column) {
        CRect room;
        if (m_list.GetSubItemRect(row, column, LVIR_BOUNDS, &room))
            DrawText(EventCellText(message, EventColumns[static_cast<std::size_t>(column)]), room);
    }
}

void EventRowPainter::DrawText(std::string_view text, CRect room) {
    if (room.Intersected(m_dc.GetClipBox()).IsRectEmpty())
        return;
    room.DeflateRect(CellTextInset, 0);
    if (!room.IsRectEmpty())
        m_dc.DrawText(FittingLine(text, room.Width()), room, TextFormat);
}

} // namespace korvel::internal
