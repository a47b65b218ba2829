#include "korvel/grid/row_painter.h"

namespace korvel::internal {

namespace {

constexpr COLORREF RefusedColor = RGB(220, 30, 30); // stands out from light and from dark grounds

} // namespace

RowPainter::RowPainter(TreeGridList& list, const TreeRows& tree, CDC& dc, int row)
    : m_list(list), m_dc(dc), m_row(row), m_there(tree, row), m_node(m_there.Node()),
      m_cell(dc, [&list, &dc](const CRect& rect, UINT type, UINT state) {
          list.DrawThemedFrame(dc, rect, type, state);
      }) {
    const HWND focus = GetFocus();
    m_hasFocus = focus && (focus == list.m_hWnd || IsChild(list.m_hWnd, focus));
    m_isSelected = list.GetItemState(row, LVIS_SELECTED) & LVIS_SELECTED;
}

void RowPainter::Draw() {
    const int columns = m_list.GetColumnCount();
    for (int column = 0; column < columns && m_there && m_node->info; ++column)
        DrawCell(column);
    CRect bounds;
    if (m_there && m_hasFocus && m_list.GetItemState(m_row, LVIS_FOCUSED) &&
        m_list.GetItemRect(m_row, &bounds))
        m_dc.DrawFocusRect(bounds);
    DrawMarks(columns); // over the frames of the focus, which is in that cell
}

void RowPainter::DrawMarks(int columns) {
    CRect cell;
    for (int column = 1; column < columns && m_there; ++column)
        if (m_list.IsCellMarked(m_row, column) && m_list.GetSubItemRect(m_row, column, LVIR_LABEL, &cell))
            m_dc.FrameRect(cell, RefusedColor);
}

void RowPainter::DrawCell(int column) {
    CRect cell;
    if (!m_list.GetSubItemRect(m_row, column, column == 0 ? LVIR_BOUNDS : LVIR_LABEL, &cell))
        return;
    if (column == 0)
        cell.right = cell.left + m_list.GetColumnWidth(0); // LVIR_BOUNDS is the whole row
    const CRect seen = cell.Intersected(m_dc.GetClipBox());
    if (seen.IsRectEmpty())
        return;
    m_dc.IntersectClipRect(seen);
    DrawContent(column, cell);
    m_dc.ResetClip();
}

void RowPainter::DrawContent(int column, const CRect& cell) {
    const COLORREF ground = GroundOf(column);
    m_dc.FillSolidRect(cell, ground);
    CRect room = cell;
    if (column == 0) {
        DrawTree(cell);
        CRect label;
        if (m_list.GetSubItemRect(m_row, 0, LVIR_LABEL, &label))
            room.left = label.left;
    } else {
        room = DrawControl(column, cell);
    }
    if (!m_there)
        return;
    DrawText(column, room, ground);
    if (m_isSelected && m_hasFocus && column == m_list.GetCurrentColumn())
        m_dc.FrameRect(cell, m_list.GetFocusCellColor());
    if (m_there)
        m_list.DrawSpezialItem(m_dc, m_node, column, cell);
}

COLORREF RowPainter::GroundOf(int column) const {
    if (m_isSelected)
        return GetSysColor(m_hasFocus ? COLOR_HIGHLIGHT : COLOR_BTNFACE);
    const CItemInfo& info = *m_node->info;
    if (column > 0 && !CItemInfo::IsSwatch(info.GetControlType(column - 1)))
        if (const COLORREF color = info.GetCellColor(column - 1); color != CItemInfo::NoColor)
            return color & 0xFFFFFF;
    return info.rowColor != CItemInfo::NoColor ? info.rowColor & 0xFFFFFF : GetSysColor(COLOR_WINDOW);
}

bool RowPainter::IsEnabled(int column) const {
    return column == 0 || m_node->info->IsCellEnabled(column - 1);
}

void RowPainter::DrawText(int column, const CRect& room, COLORREF ground) {
    const CItemInfo& info = *m_node->info;
    const CString& text = column == 0 ? info.text : info.GetSubItem(column - 1);
    CellGround kind = CellGround::Plain;
    if (m_isSelected)
        kind = m_hasFocus ? CellGround::Highlighted : CellGround::Selected;
    m_cell.DrawText(text, room, ground, kind, IsEnabled(column));
}

void RowPainter::DrawTree(const CRect& bounds) {
    CRect icon;
    if (!m_list.GetSubItemRect(m_row, 0, LVIR_ICON, &icon))
        return;
    const CImageList* icons = m_list.GetImageList();
    const int width = icons ? icons->GetImageSize().cx : 0;
    DrawTreeLines(bounds, width);
    if (m_list.HasCheckBoxes())
        DrawRowCheck({bounds.left + m_node->indent() * width, bounds.top, icon.left, bounds.bottom});
    if (!icons || !m_there)
        return;
    const int index = m_list.GetIcon(m_node);
    icons = m_list.GetImageList(); // the host may have set another one
    if (const Image* image = icons ? icons->GetImage(index) : nullptr) {
        const int height = icons->GetImageSize().cy;
        const int top = bounds.top + (bounds.Height() - height) / 2;
        m_dc.DrawImage(*image, {icon.left, top, icon.left + width, top + height});
    }
}

// Each depth has a square in front of the icon; the last one holds the sign. A line goes down through the
// squares of all ancestors that have siblings still to come.
void RowPainter::DrawTreeLines(const CRect& bounds, int width) {
    const COLORREF color = GetSysColor(m_isSelected && m_hasFocus ? COLOR_HIGHLIGHTTEXT : COLOR_BTNSHADOW);
    m_dc.SelectPen(PS_DOT, color);
    const int middle = bounds.top + bounds.Height() / 2;
    int depth = m_node->indent();
    for (const CTreeItem* node = m_node; node; node = node->parent(), --depth) {
        const int left = bounds.left + (depth - 1) * width;
        const int x = left + width / 2;
        const bool isOwn = node == m_node;
        const bool goesOn = !node->IsLastChild();
        if (isOwn) {
            m_dc.MoveTo({x, middle});
            m_dc.LineTo({left + width, middle});
        }
        if (!isOwn && !goesOn)
            continue;
        const bool isVeryFirst = isOwn && m_row == 0;
        m_dc.MoveTo({x, isVeryFirst ? middle : bounds.top});
        m_dc.LineTo({x, goesOn ? bounds.bottom : middle});
    }
    if (m_node->CanExpand()) {
        const int left = bounds.left + (m_node->indent() - 1) * width;
        DrawSign({left, bounds.top, left + width, bounds.bottom});
    }
}

void RowPainter::DrawSign(const CRect& square) {
    constexpr int Size = 9;
    const CRect box = square.Centered({Size, Size});
    const CPoint center{box.left + Size / 2, box.top + Size / 2};
    const COLORREF ink = GetSysColor(COLOR_WINDOWTEXT);
    m_dc.FillSolidRect(box, GetSysColor(COLOR_WINDOW));
    m_dc.FrameRect(box, GetSysColor(COLOR_BTNSHADOW));
    m_dc.FillSolidRect({box.left + 2, center.y, box.right - 2, center.y + 1}, ink);
    if (m_node->collapsed())
        m_dc.FillSolidRect({center.x, box.top + 2, center.x + 1, box.bottom - 2}, ink);
}

void RowPainter::DrawRowCheck(const CRect& bounds) {
    constexpr int Size = 13;
    const UINT state = DFCS_BUTTONCHECK | (m_node->info->checked ? DFCS_CHECKED : 0);
    m_list.DrawThemedFrame(m_dc, bounds.Centered({Size, Size}), DFC_BUTTON, state);
}

CRect RowPainter::DrawControl(int column, const CRect& cell) {
    const CItemInfo& info = *m_node->info;
    CellLook look;
    look.control = info.GetControlType(column - 1);
    look.isEnabled = IsEnabled(column);
    look.isChosen = m_isSelected;
    if (CItemInfo::IsSwatch(look.control))
        look.swatch = info.GetCellColor(column - 1);
    if (look.control == CItemInfo::ctCheck)
        look.checkState = m_list.GetCheckState(m_node, column); // last: the host may remove the row
    return m_cell.DrawControl(look, cell);
}

} // namespace korvel::internal
