#include "korvel/grid/super_grid_ctrl.h"

#include "korvel/grid/list_edit_ctrl.h"

namespace korvel {

namespace {

constexpr COLORREF FocusRed = 0xC0;

} // namespace

CSuperGridCtrl::CSuperGridCtrl() : m_forest(CTreeItem::MakeForest()) {}

CSuperGridCtrl::~CSuperGridCtrl() {
    m_cellEdit.reset();
    DestroyWindow(); // rows go before their nodes
}

LRESULT CSuperGridCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_LBUTTONDOWN:
        OnLButtonDown(static_cast<UINT>(wParam), PointOf(lParam));
        return 0;
    case WM_LBUTTONDBLCLK:
        OnLButtonDblClk(PointOf(lParam));
        return 0;
    case WM_MOUSEMOVE:
        if (m_draggedNode)
            OnDragMove(PointOf(lParam));
        break;
    case WM_LBUTTONUP:
        if (m_draggedNode) {
            OnDragEnd(PointOf(lParam));
            return 0;
        }
        break;
    case WM_CAPTURECHANGED:
        StopDrag();
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
            return OnKeyDown(reinterpret_cast<const NMLVKEYDOWN*>(lParam)->wVKey);
        case LVN_BEGINDRAG:
            *result = 0;
            OnBeginDrag(reinterpret_cast<const NMLISTVIEW*>(lParam)->iItem);
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

CItemInfo* CSuperGridCtrl::CopyItemInfo(const CItemInfo*) {
    return nullptr;
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
