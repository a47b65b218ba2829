#include "korvel/editors/combo_row_painter.h"

#include "korvel/editors/combo_tree_bitmap.h"

#include <algorithm>

namespace korvel::internal {

namespace {

constexpr COLORREF TreeLineColor = 0xB8B8B8;
constexpr int ButtonMargin = 2; // between the sign of a tree button and its frame
constexpr int BoxMargin = 2;    // around a check box, whose region is as high as the row
constexpr int TextInset = 2;    // left of a text

// What the button takes of its box: an odd square around the box's center.
CRect ButtonRect(const CRect& box) {
    const int reach = box.Height() / 4;
    const CPoint center{box.left + box.Width() / 2, box.top + box.Height() / 2};
    return {center.x - reach, center.y - reach, center.x + reach + 1, center.y + reach + 1};
}

} // namespace

void ComboRowPainter::Draw(int row, UINT itemState) {
    const ComboTreeItem* item = m_view.ItemAt(row);
    const auto geometry = m_view.GeometryOf(row);
    if (!item || !geometry)
        return;
    const bool isSelected = (itemState & ODS_SELECTED) != 0;
    const COLORREF background = GetSysColor(isSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW);
    m_dc.SetBkColor(background);
    m_dc.SetTextColor(GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    m_dc.FillSolidRect(geometry->bounds, background);
    if (geometry->hasIcons)
        DrawTree(*item, *geometry);
    if (geometry->hasChecks) {
        const UINT check = item->GetChecked() > 0 ? DFCS_CHECKED : 0;
        CRect box = geometry->CheckBox();
        box.DeflateRect(BoxMargin, BoxMargin);
        m_dc.DrawFrameControl(box, DFC_BUTTON, DFCS_BUTTONCHECK | check);
    }
    if (geometry->hasIcons)
        DrawIcon(*item, geometry->Icon());
    DrawDispValue(geometry->Label(), item->GetLabel());
    DrawColumns(row, *item);
    if (HasKeyboard(row))
        m_dc.DrawFocusRect(geometry->bounds);
}

// Where no row is current, the arrows begin at the first.
bool ComboRowPainter::HasKeyboard(int row) const {
    const bool hasFocus = !m_view.IsDropDown() && GetFocus() == m_view.Control().m_hWnd;
    return hasFocus && row == std::max(m_currentRow, 0);
}

void ComboRowPainter::DrawTree(const ComboTreeItem& item, const ComboRowGeometry& geometry) {
    const CRect box = geometry.TreeBox();
    const int height = geometry.bounds.Height();
    const int middle = box.top + height / 2;
    m_dc.SelectPen(PS_DOT, TreeLineColor);
    int column = box.left + height / 2;
    Line(column, middle, box.right, middle);
    Line(column, box.top, column, item.GetNextSibling() ? box.bottom : middle);
    // Only what is on screen: a path may be deeper than the list is wide.
    for (const ComboTreeItem* level = item.GetParent(); level && level->GetParent();
         level = level->GetParent()) {
        column -= height;
        if (column >= 0 && level->GetNextSibling())
            Line(column, box.top, column, box.bottom);
    }
    if (item.HasChildren())
        DrawTreeButton(item.IsExpanded(), ButtonRect(box));
}

void ComboRowPainter::DrawTreeButton(bool expanded, const CRect& box) {
    m_dc.Rectangle(box);
    m_dc.SelectPen(PS_SOLID, GetSysColor(COLOR_WINDOWTEXT));
    const CPoint center{box.left + box.Width() / 2, box.top + box.Height() / 2};
    Line(box.left + ButtonMargin, center.y, box.right - ButtonMargin, center.y);
    if (!expanded)
        Line(center.x, box.top + ButtonMargin, center.x, box.bottom - ButtonMargin);
}

void ComboRowPainter::DrawIcon(const ComboTreeItem& item, const CRect& rect) {
    ComboTreeCell cell = ComboTreeCell::Entry;
    if (!item.IsValue() || item.HasChildren())
        cell = item.IsExpanded() ? ComboTreeCell::OpenGroup : ComboTreeCell::ClosedGroup;
    m_dc.DrawImage(ComboTreeBitmap(cell), rect);
}

void ComboRowPainter::DrawColumns(int row, const ComboTreeItem& item) {
    const CListCtrl& control = m_view.Control();
    for (int column = 1; column < control.GetColumnCount(); ++column) {
        CRect rect;
        if (control.GetSubItemRect(row, column, LVIR_BOUNDS, &rect))
            DrawDispValue(rect, m_view.Columns().TextOf(item, column));
    }
}

void ComboRowPainter::DrawDispValue(CRect rect, const CString& text) {
    rect.left += TextInset;
    if (!rect.Intersected(m_dc.GetClipBox()).IsRectEmpty())
        m_dc.DrawText(text, rect, DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
}

void ComboRowPainter::Line(int fromX, int fromY, int toX, int toY) {
    m_dc.MoveTo({fromX, fromY});
    m_dc.LineTo({toX, toY});
}

} // namespace korvel::internal
