#include "korvel/grid/super_grid_ctrl.h"

#include "korvel/grid/grid_row_list.h"
#include "korvel/grid/list_edit_ctrl.h"
#include "korvel/grid/row_drag.h"
#include "korvel/grid/row_keys.h"
#include "korvel/grid/row_mouse.h"
#include "korvel/grid/row_painter.h"
#include "korvel/grid/tree_rows.h"
#include "korvel/window/core/thread_queue.h"

#include <algorithm>

namespace korvel {

using namespace internal;

namespace {

constexpr COLORREF FocusRed = 0xC0;

// Where a new sibling goes; -1: after the last.
int PlaceOf(const int* position) {
    return position ? *position : -1;
}

} // namespace

CSuperGridCtrl::CSuperGridCtrl()
    : m_rowList(std::make_unique<GridRowList>(*this)), m_tree(std::make_unique<TreeRows>(*m_rowList)),
      m_drag(std::make_unique<RowDrag>(*this)) {}

CSuperGridCtrl::~CSuperGridCtrl() {
    m_cellEdit.reset();
    GuardedUntilRun([this] { DestroyWindow(); }); // rows go before their nodes
}

CSuperGridCtrl::RedrawPause::RedrawPause(CSuperGridCtrl& grid) : m_grid(grid) {
    if (m_grid.m_redrawPauses++ == 0)
        m_grid.SetRedraw(false);
}

CSuperGridCtrl::RedrawPause::~RedrawPause() {
    if (--m_grid.m_redrawPauses == 0)
        GuardedUntilRun([this] { m_grid.SetRedraw(true); });
}

const ChildList& CSuperGridCtrl::rootItems() const {
    return m_tree->Roots();
}

CSuperGridCtrl::CTreeItem* CSuperGridCtrl::AddRootNode(CItemInfo* info, const int* position) {
    CTreeItem* node = LinkNode(nullptr, info, PlaceOf(position));
    ShowNode(node);
    return node;
}

CSuperGridCtrl::CTreeItem* CSuperGridCtrl::AddChildNode(CTreeItem* parent, CItemInfo* info, int,
                                                        const int* position) {
    if (!parent)
        return nullptr;
    CTreeItem* node = LinkNode(parent, info, PlaceOf(position));
    ShowNode(node);
    return node;
}

CSuperGridCtrl::CTreeItem* CSuperGridCtrl::LinkNode(CTreeItem* parent, CItemInfo* info, int position) {
    return m_tree->Link(parent, info, position);
}

void CSuperGridCtrl::ShowNode(const CTreeItem* node) {
    m_tree->Show(node);
}

int CSuperGridCtrl::RemoveNode(CTreeItem* node) {
    return node && node->parent() && m_tree->Unlink(node);
}

int CSuperGridCtrl::RemoveRootNode(CTreeItem* node) {
    return node && !node->parent() && m_tree->Unlink(node);
}

void CSuperGridCtrl::TakeNode(CTreeItem* node) {
    m_tree->Remove(node);
}

void CSuperGridCtrl::DeleteAllNodes() {
    m_tree->Clear();
}

bool CSuperGridCtrl::IsNodeInSubtree(const CTreeItem* root, const CTreeItem* candidate) {
    while (root && candidate && candidate != root)
        candidate = candidate->parent();
    return root && candidate;
}

RowsWatch CSuperGridCtrl::WatchRows() const {
    return m_tree->Watch();
}

int CSuperGridCtrl::RowOfNode(const CTreeItem* node) const {
    return m_tree->RowOf(node);
}

CSuperGridCtrl::CTreeItem* CSuperGridCtrl::NodeAtRow(int row) const {
    return m_tree->NodeAt(row);
}

CSuperGridCtrl::CTreeItem* CSuperGridCtrl::GetSelectedNode() const {
    return NodeAtRow(GetNextItem(-1, LVNI_SELECTED));
}

int CSuperGridCtrl::ExpandNode(CTreeItem* node, int row) {
    return m_tree->Expand(node, row);
}

void CSuperGridCtrl::CollapseNode(CTreeItem* node) {
    m_tree->Collapse(node);
}

void CSuperGridCtrl::ExpandSubtree(CTreeItem* node, int* scrollRow) {
    if (node)
        m_tree->ExpandAll(node, scrollRow);
}

void CSuperGridCtrl::ExpandAll() {
    m_tree->ExpandAll(nullptr, nullptr);
}

void CSuperGridCtrl::CollapseAll() {
    m_tree->CollapseAll();
}

void CSuperGridCtrl::HideSubtree(CTreeItem* node, int, int row) {
    m_tree->Hide(node, row);
}

void CSuperGridCtrl::RenumberRows() {
    m_tree->RebuildIfNeeded();
}

void CSuperGridCtrl::RebuildRows() {
    m_tree->Rebuild();
}

int CSuperGridCtrl::RebuildFromNode(CTreeItem* node, int row, bool visible) {
    return visible ? m_tree->RebuildFrom(node, row) : row;
}

int CSuperGridCtrl::CopyNodeUnder(CTreeItem* target, const CTreeItem* src) {
    return m_tree->CopyUnder(target, src);
}

void CSuperGridCtrl::CopySubtree(CTreeItem* dest, const CTreeItem* src) {
    m_tree->CopyBelow(dest, src);
}

void CSuperGridCtrl::RefreshRowTexts(const CTreeItem* node) {
    RedrawNode(node);
}

void CSuperGridCtrl::RedrawNode(const CTreeItem* node) {
    if (m_redrawPauses > 0)
        return;
    const int row = RowOfNode(node);
    const int top = GetTopIndex();
    if (row < top || row > top + GetCountPerPage())
        return;
    RedrawItems(row, row);
    UpdateWindow();
}

void CSuperGridCtrl::SelectRow(int row) {
    constexpr UINT State = LVIS_SELECTED | LVIS_FOCUSED;
    SetItemState(row, State, State);
}

void CSuperGridCtrl::ShowColumn(int column) {
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

bool CSuperGridCtrl::HasCheckBoxes() const {
    return GetExtendedStyle() & LVS_EX_CHECKBOXES;
}

bool CSuperGridCtrl::PreTranslateMessage(MSG& message) {
    const bool isKey = message.message == WM_KEYDOWN && message.hwnd == m_hWnd && GetFocus() == m_hWnd;
    return (isKey && RowKeys(*this).Translate(static_cast<UINT>(message.wParam))) ||
           CListCtrl::PreTranslateMessage(message);
}

LRESULT CSuperGridCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_LBUTTONDOWN:
        RowMouse(*this).Press(static_cast<UINT>(wParam), PointOf(lParam));
        return 0;
    case WM_LBUTTONDBLCLK:
        RowMouse(*this).DoubleClick(PointOf(lParam));
        return 0;
    case WM_MOUSEMOVE:
        if (m_drag->IsActive())
            m_drag->Move(PointOf(lParam));
        break;
    case WM_LBUTTONUP:
        if (m_drag->IsActive()) {
            m_drag->Drop(PointOf(lParam));
            return 0;
        }
        break;
    case WM_CAPTURECHANGED:
        m_drag->Stop();
        break;
    case WM_KEYDOWN:
        // The list would toggle the row with the focus, which may be another one than the selected.
        if (wParam == VK_SPACE && HasCheckBoxes()) {
            NMLVKEYDOWN notice;
            notice.wVKey = VK_SPACE;
            NotifyParent(m_hWnd, LVN_KEYDOWN, notice.hdr);
            return 0;
        }
        break;
    default:
        break;
    }
    return CListCtrl::WindowProc(message, wParam, lParam);
}

bool CSuperGridCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_NOTIFY) {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        switch (header.code) {
        case LVN_KEYDOWN:
            *result = 0;
            return RowKeys(*this).Press(reinterpret_cast<const NMLVKEYDOWN*>(lParam)->wVKey);
        case LVN_BEGINDRAG:
            *result = 0;
            m_drag->Begin(reinterpret_cast<const NMLISTVIEW*>(lParam)->iItem);
            return true;
        case LVN_DELETEALLITEMS:
            *result = 1; // no notice for each of the rows: what they hold is the grid's own
            return true;
        case LVN_ENDLABELEDIT: {
            auto* record = reinterpret_cast<NMLVDISPINFO*>(lParam);
            if (CTreeItem* node = NodeAtRow(record->iItem); node && record->pszText)
                OnCellTextChanged(node, record);
            *result = 0; // the node holds the text, not the list
            return true;
        }
        default:
            break;
        }
    }
    return CListCtrl::OnChildNotify(message, wParam, lParam, result);
}

void CSuperGridCtrl::DrawItem(DRAWITEMSTRUCT* item) {
    if (item && item->hDC)
        RowPainter(*this, *item->hDC, static_cast<int>(item->itemID)).Draw();
}

CItemInfo* CSuperGridCtrl::CopyItemInfo(const CItemInfo*) {
    return nullptr;
}

std::unique_ptr<CImageList> CSuperGridCtrl::CreateRowDragImage(int row) {
    const CTreeItem* node = NodeAtRow(row);
    if (!node)
        return nullptr;
    auto picture = std::make_unique<CImageList>(iconWidth, iconHeight);
    const int index = GetIcon(node);
    const CImageList* icons = GetImageList(); // after the host was asked, who may set another
    if (const Image* icon = icons ? icons->GetImage(index) : nullptr)
        picture->Add(*icon);
    return picture;
}

int CSuperGridCtrl::GetIcon(const CTreeItem*) {
    return 0;
}

COLORREF CSuperGridCtrl::GetFocusCellColor() {
    return FocusRed;
}

void CSuperGridCtrl::OnCellTextChanged(CTreeItem* node, NMLVDISPINFO* record) {
    if (!node || !node->info || !record || !record->pszText)
        return;
    if (record->iSubItem == 0)
        node->info->text = record->pszText;
    else
        node->info->SetSubItem(record->iSubItem - 1, record->pszText);
    RefreshRowTexts(node);
}

void CSuperGridCtrl::OnControlLButtonDown(UINT, CPoint, LVHITTESTINFO&) {}

BOOL CSuperGridCtrl::OnNodeExpanding(CTreeItem*, int) {
    return 1;
}

BOOL CSuperGridCtrl::OnNodeExpanded(CTreeItem*, int) {
    return 1;
}

BOOL CSuperGridCtrl::OnNodeCollapsing(CTreeItem*) {
    return 1;
}

BOOL CSuperGridCtrl::OnNodeCollapsed(CTreeItem*) {
    return 1;
}

BOOL CSuperGridCtrl::OnRowDeleting(CTreeItem*, int) {
    return 1;
}

BOOL CSuperGridCtrl::OnExpandAllKey(CTreeItem*, int) {
    return 1;
}

BOOL CSuperGridCtrl::OnCollapseKey(CTreeItem*, int) {
    return 1;
}

BOOL CSuperGridCtrl::OnExpandKey(CTreeItem*, int) {
    return 1;
}

BOOL CSuperGridCtrl::OnVkReturn() {
    return 0;
}

BOOL CSuperGridCtrl::OnRowClick(LVHITTESTINFO&) {
    return 1;
}

UINT CSuperGridCtrl::GetCheckState(const CTreeItem*, int) {
    return 0;
}

void CSuperGridCtrl::OnNodeUnlinked(CTreeItem&, const CTreeItem*) {}

int CSuperGridCtrl::Reserved18() {
    return 0;
}

void CSuperGridCtrl::DrawSpezialItem(CDC&, const CTreeItem*, int, const CRect&) {}

void CSuperGridCtrl::DrawThemedFrame(CDC& dc, const CRect& rect, UINT type, UINT state) {
    dc.DrawFrameControl(rect, type, state);
}

} // namespace korvel
