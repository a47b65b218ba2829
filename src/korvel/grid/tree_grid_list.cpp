#include "korvel/grid/tree_grid_list.h"

#include "korvel/window/core/thread_queue.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr COLORREF FocusRed = 0xC0;

} // namespace

TreeGridList::RedrawPause::RedrawPause(TreeGridList& list) : m_list(list) {
    if (m_list.m_redrawPauses == 0)
        m_list.SetRedraw(false);
    ++m_list.m_redrawPauses;
}

TreeGridList::RedrawPause::~RedrawPause() {
    if (--m_list.m_redrawPauses == 0)
        internal::GuardedUntilRun([this] { m_list.SetRedraw(true); });
}

bool TreeGridList::HasCheckBoxes() const {
    return GetExtendedStyle() & LVS_EX_CHECKBOXES;
}

void TreeGridList::RedrawRow(int row) {
    const int top = GetTopIndex();
    if (IsRedrawPaused() || row < top || row > top + GetCountPerPage())
        return;
    RedrawItems(row, row);
    UpdateWindow();
}

void TreeGridList::SelectRow(int row) {
    constexpr UINT State = LVIS_SELECTED | LVIS_FOCUSED;
    SetItemState(row, State, State);
}

void TreeGridList::ShowColumn(int column) {
    int left = 0;
    for (int before = 0; before < column; ++before)
        left += GetColumnWidth(before);
    CRect cell;
    if (GetItemCount() == 0 || !GetItemRect(GetTopIndex(), &cell))
        return;
    const int width = GetClientRect().Width();
    const int start = cell.left + left;
    const int end = start + GetColumnWidth(column);
    if (start < 0)
        Scroll({start, 0});
    else if (end > width)
        Scroll({std::min(end - width, start), 0});
}

CItemInfo* TreeGridList::CopyItemInfo(const CItemInfo*) {
    return nullptr;
}

int TreeGridList::GetIcon(const CTreeItem*) {
    return 0;
}

COLORREF TreeGridList::GetFocusCellColor() {
    return FocusRed;
}

void TreeGridList::OnControlLButtonDown(UINT, CPoint, LVHITTESTINFO&) {}

BOOL TreeGridList::OnNodeExpanding(CTreeItem*, int) {
    return 1;
}

BOOL TreeGridList::OnNodeExpanded(CTreeItem*, int) {
    return 1;
}

BOOL TreeGridList::OnNodeCollapsing(CTreeItem*) {
    return 1;
}

BOOL TreeGridList::OnNodeCollapsed(CTreeItem*) {
    return 1;
}

BOOL TreeGridList::OnRowDeleting(CTreeItem*, int) {
    return 1;
}

BOOL TreeGridList::OnExpandAllKey(CTreeItem*, int) {
    return 1;
}

BOOL TreeGridList::OnCollapseKey(CTreeItem*, int) {
    return 1;
}

BOOL TreeGridList::OnExpandKey(CTreeItem*, int) {
    return 1;
}

BOOL TreeGridList::OnVkReturn() {
    return 0;
}

BOOL TreeGridList::OnRowClick(LVHITTESTINFO&) {
    return 1;
}

UINT TreeGridList::GetCheckState(const CTreeItem*, int) {
    return 0;
}

void TreeGridList::OnNodeUnlinked(CTreeItem&, const CTreeItem*) {}

int TreeGridList::Reserved18() {
    return 0;
}

void TreeGridList::DrawSpezialItem(CDC&, const CTreeItem*, int, const CRect&) {}

void TreeGridList::DrawThemedFrame(CDC& dc, const CRect& rect, UINT type, UINT state) {
    dc.DrawFrameControl(rect, type, state);
}

bool TreeGridList::IsCellMarked(int, int) const {
    return false;
}

} // namespace korvel
