#include "korvel/grid/super_grid_ctrl.h"

#include "korvel/grid/branch_copies.h"
#include "korvel/grid/grid_row_list.h"
#include "korvel/grid/list_edit_ctrl.h"
#include "korvel/grid/row_drag.h"
#include "korvel/grid/row_keys.h"
#include "korvel/grid/row_mouse.h"
#include "korvel/grid/row_painter.h"
#include "korvel/grid/row_reader.h"
#include "korvel/grid/tree_rows.h"
#include "korvel/grid/tree_walk.h"
#include "korvel/window/base/list_view.h"
#include "korvel/window/core/thread_queue.h"
#include "korvel/window/list/list_mouse.h"

#include <utility>

namespace korvel {

using namespace internal;

namespace {

// Where a new sibling goes; -1: after the last.
int PlaceOf(const int* position) {
    return position ? *position : -1;
}

} // namespace

// The tree and what acts in its rows.
struct CSuperGridCtrl::Parts {
    explicit Parts(CSuperGridCtrl& grid)
        : list(grid, drag, edit), tree(list), copies(tree, list), drag(grid, tree, copies), edit(grid, tree) {
    }

    GridRowList list;
    TreeRows tree;
    BranchCopies copies;
    RowDrag drag;
    CListEditCtrl edit;
};

CSuperGridCtrl::CSuperGridCtrl() : m_parts(std::make_unique<Parts>(*this)) {}

CSuperGridCtrl::~CSuperGridCtrl() {
    GuardedUntilRun([this] { m_parts->edit.Drop(); });
    GuardedUntilRun([this] { DestroyWindow(); }); // rows go before their nodes
}

const ChildList& CSuperGridCtrl::rootItems() const {
    return m_parts->tree.Roots();
}

grid::CTreeItem* CSuperGridCtrl::AddRootNode(CItemInfo* info, const int* position) {
    CTreeItem* node = LinkNode(nullptr, std::unique_ptr<CItemInfo>(info), PlaceOf(position));
    return ShowNode(node) ? node : nullptr;
}

grid::CTreeItem* CSuperGridCtrl::AddChildNode(CTreeItem* parent, CItemInfo* info, int, const int* position) {
    if (!parent)
        return nullptr;
    CTreeItem* node = LinkNode(parent, std::unique_ptr<CItemInfo>(info), PlaceOf(position));
    return ShowNode(node) ? node : nullptr;
}

grid::CTreeItem* CSuperGridCtrl::LinkNode(CTreeItem* parent, std::unique_ptr<CItemInfo> info, int position) {
    return m_parts->tree.Link(parent, std::move(info), position);
}

bool CSuperGridCtrl::ShowNode(const CTreeItem* node) {
    return m_parts->tree.Show(node);
}

int CSuperGridCtrl::RemoveNode(CTreeItem* node) {
    return node && node->parent() && m_parts->tree.Unlink(node);
}

int CSuperGridCtrl::RemoveRootNode(CTreeItem* node) {
    return node && !node->parent() && m_parts->tree.Unlink(node);
}

void CSuperGridCtrl::TakeNode(CTreeItem* node) {
    m_parts->tree.Remove(node);
}

void CSuperGridCtrl::DeleteAllNodes() {
    m_parts->tree.Clear();
}

bool CSuperGridCtrl::IsNodeInSubtree(const CTreeItem* root, const CTreeItem* candidate) {
    return root && IsWithin(*root, candidate);
}

int CSuperGridCtrl::RowOfNode(const CTreeItem* node) const {
    return m_parts->tree.RowOf(node);
}

grid::CTreeItem* CSuperGridCtrl::NodeAtRow(int row) const {
    return m_parts->tree.NodeAt(row);
}

grid::CTreeItem* CSuperGridCtrl::GetSelectedNode() const {
    return NodeAtRow(GetNextItem(-1, LVNI_SELECTED));
}

int CSuperGridCtrl::ExpandNode(CTreeItem* node, int row) {
    return m_parts->tree.Expand(node, row);
}

void CSuperGridCtrl::CollapseNode(CTreeItem* node) {
    m_parts->tree.Collapse(node);
}

void CSuperGridCtrl::ExpandSubtree(CTreeItem* node, int* scrollRow) {
    if (node)
        m_parts->tree.ExpandAll(node, scrollRow);
}

void CSuperGridCtrl::ExpandAll() {
    m_parts->tree.ExpandAll(nullptr, nullptr);
}

void CSuperGridCtrl::CollapseAll() {
    m_parts->tree.CollapseAll();
}

void CSuperGridCtrl::HideSubtree(CTreeItem* node, int, int row) {
    m_parts->tree.Hide(node, row);
}

void CSuperGridCtrl::RenumberRows() {
    m_parts->tree.RebuildIfNeeded();
}

void CSuperGridCtrl::RebuildRows() {
    m_parts->tree.Rebuild();
}

int CSuperGridCtrl::RebuildFromNode(CTreeItem* node, int row, bool visible) {
    return visible ? m_parts->tree.RebuildFrom(node, row) : row;
}

int CSuperGridCtrl::CopyNodeUnder(CTreeItem* target, const CTreeItem* src) {
    return m_parts->copies.CopyUnder(target, src);
}

void CSuperGridCtrl::CopySubtree(CTreeItem* dest, const CTreeItem* src) {
    m_parts->copies.CopyBelow(dest, src);
}

void CSuperGridCtrl::RefreshRowTexts(const CTreeItem* node) {
    RedrawRow(RowOfNode(node));
}

bool CSuperGridCtrl::PreTranslateMessage(MSG& message) {
    const bool isKey = message.message == WM_KEYDOWN && message.hwnd == m_hWnd && GetFocus() == m_hWnd;
    if (isKey)
        ForgetLabelClick(m_hWnd); // the list does not hear of a key that is used up
    return (isKey &&
            RowKeys(*this, m_parts->tree).Translate(static_cast<UINT>(message.wParam), m_parts->edit)) ||
           CListCtrl::PreTranslateMessage(message);
}

LRESULT CSuperGridCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_LBUTTONDOWN:
        RowMouse(*this, m_parts->tree).Press(static_cast<UINT>(wParam), PointOf(lParam));
        return 0;
    case WM_LBUTTONDBLCLK:
        RowMouse(*this, m_parts->tree).DoubleClick(static_cast<UINT>(wParam), PointOf(lParam));
        return 0;
    case WM_MOUSEMOVE:
        if (m_parts->drag.IsActive())
            m_parts->drag.Move(PointOf(lParam));
        break;
    case WM_LBUTTONUP:
        if (m_parts->drag.IsActive()) {
            m_parts->drag.Drop(PointOf(lParam));
            return 0;
        }
        break;
    case WM_CAPTURECHANGED:
        m_parts->drag.Stop();
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
    case LVM_KORVEL_READLIST:
    case LVM_KORVEL_READCELL:
    case LVM_KORVEL_CHOOSECELL:
        return Describe(message, wParam, lParam);
    default:
        break;
    }
    return CListCtrl::WindowProc(message, wParam, lParam);
}

// For whoever reads and uses the rows without looking at them (window/base/list_view.h).
LRESULT CSuperGridCtrl::Describe(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CListCtrl::WindowProc(message, wParam, lParam);
    if (!result)
        return result;
    if (message == LVM_KORVEL_READCELL)
        return RowReader(*this, m_parts->tree).Complete(*reinterpret_cast<view::CellView*>(lParam));
    if (message == LVM_KORVEL_CHOOSECELL)
        return RowKeys(*this, m_parts->tree).MoveTo(*reinterpret_cast<const view::CellPlace*>(lParam)),
               result;
    auto& view = *reinterpret_cast<view::ListView*>(lParam);
    view.current = {GetNextItem(-1, LVNI_SELECTED), currentColumn};
    if (const auto edited = m_parts->edit.EditedCell())
        view.edited = edited;
    return result;
}

bool CSuperGridCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_NOTIFY) {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        switch (header.code) {
        case LVN_KEYDOWN:
            *result = 0;
            return RowKeys(*this, m_parts->tree).Press(reinterpret_cast<const NMLVKEYDOWN*>(lParam)->wVKey);
        case LVN_BEGINDRAG:
            *result = 0;
            m_parts->drag.Begin(reinterpret_cast<const NMLISTVIEW*>(lParam)->iItem);
            return true;
        case LVN_DELETEALLITEMS:
            *result = 1; // no notice for each of the rows: what they hold is the grid's own
            return true;
        case LVN_ENDLABELEDIT: {
            auto* record = reinterpret_cast<NMLVDISPINFO*>(lParam);
            CTreeItem* node = record->pszText ? NodeAtRow(record->iItem) : nullptr;
            *result = node ? 1 : 0; // it holds the text, which the list asks for
            if (node)
                OnCellTextChanged(node, record);
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
        RowPainter(*this, m_parts->tree, *item->hDC, static_cast<int>(item->itemID)).Draw();
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

void CSuperGridCtrl::OnCellTextChanged(CTreeItem* node, NMLVDISPINFO* record) {
    if (!node || !node->info || !record || !record->pszText)
        return;
    if (record->iSubItem == 0)
        node->info->text = record->pszText;
    else
        node->info->SetSubItem(record->iSubItem - 1, record->pszText);
    RefreshRowTexts(node);
}

} // namespace korvel
