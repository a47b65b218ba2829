#include "korvel/grid/row_icons.h"
#include "korvel/grid/rows_watch.h"
#include "korvel/grid/super_grid_ctrl.h"
#include "korvel/grid/tree_walk.h"

namespace korvel {

CSuperGridCtrl::RedrawPause::RedrawPause(CSuperGridCtrl& grid) : m_grid(grid) {
    if (m_grid.m_redrawPauses++ == 0)
        m_grid.SetRedraw(false);
}

CSuperGridCtrl::RedrawPause::~RedrawPause() {
    if (--m_grid.m_redrawPauses == 0)
        m_grid.SetRedraw(true);
}

// The window may be made or attached in several ways; its list is prepared before the first row comes.
void CSuperGridCtrl::PrepareList() {
    if (m_preparedWindow == m_hWnd)
        return;
    m_preparedWindow = m_hWnd;
    SetTextSource([](LPARAM data, int column) {
        const auto* node = reinterpret_cast<const CTreeItem*>(data);
        if (!node || !node->info)
            return CString();
        return column == 0 ? node->info->text : node->info->GetSubItem(column - 1);
    });
    if (!GetImageList())
        SetImageList(&RowIcons());
}

internal::RowsWatch CSuperGridCtrl::WatchRows() const {
    return internal::RowsWatch(m_removals);
}

int CSuperGridCtrl::RowOfNode(const CTreeItem* node) const {
    return node && node->Top() == m_forest.get() ? node->row() : -1;
}

CSuperGridCtrl::CTreeItem* CSuperGridCtrl::NodeAtRow(int row) const {
    return row < 0 ? nullptr : reinterpret_cast<CTreeItem*>(GetItemData(row));
}

CSuperGridCtrl::CTreeItem* CSuperGridCtrl::GetSelectedNode() const {
    return NodeAtRow(GetNextItem(-1, LVNI_SELECTED));
}

bool CSuperGridCtrl::HasCheckBoxes() const {
    return GetExtendedStyle() & LVS_EX_CHECKBOXES;
}

void CSuperGridCtrl::ShowNode(const CTreeItem* node) {
    const unsigned removals = m_removals;
    if (const CTreeItem* parent = node->parent(); parent && parent->children().size() == 1)
        RefreshRowTexts(parent); // its sign comes
    if (m_removals != removals)
        return; // who painted the parent has removed nodes; this one may be gone
    const int row = RowOfNode(node);
    if (row < 0 || !m_hWnd)
        return;
    if (GetItemCount() + node->rows() == m_forest->children().GetTally().rows)
        InsertNodeRows(row, {const_cast<CTreeItem*>(node)}, node->indent());
    else
        RebuildRows();
}

void CSuperGridCtrl::InsertNodeRows(int row, const std::vector<CTreeItem*>& nodes, int indent) {
    if (nodes.empty() || !m_hWnd)
        return;
    PrepareList();
    std::vector<LPARAM> data;
    data.reserve(nodes.size());
    for (CTreeItem* node : nodes)
        data.push_back(reinterpret_cast<LPARAM>(node));
    InsertRows(row, data.data(), static_cast<int>(data.size()), indent);
    if (!HasCheckBoxes())
        return;
    for (const CTreeItem* node : nodes)
        SetCheck(row++, node->info->checked != 0);
}

int CSuperGridCtrl::ExpandNode(CTreeItem* node, int row) {
    const int place = RowOfNode(node);
    if (place < 0)
        return -1;
    if (!node->CanExpand() || !node->collapsed())
        return row;
    node->CollapseBelow(); // what was left open below a collapsed node stays out
    node->SetCollapsed(false);
    InsertChildRows(*node, place + 1);
    RedrawNode(node);
    return place + node->children().size();
}

void CSuperGridCtrl::InsertChildRows(const CTreeItem& node, int row) {
    std::vector<CTreeItem*> nodes;
    nodes.reserve(static_cast<std::size_t>(node.children().size()));
    for (const auto& block : node.children().GetBlocks())
        nodes.insert(nodes.end(), block->items.begin(), block->items.end());
    InsertNodeRows(row, nodes, node.indent() + 1);
}

void CSuperGridCtrl::ExpandSubtree(CTreeItem* node, int* scrollRow) {
    if (!node)
        return;
    const RedrawPause pause(*this);
    std::vector<CTreeItem*> open{node};
    while (!open.empty()) {
        CTreeItem* family = open.back();
        open.pop_back();
        if (family->children().empty())
            continue;
        const int last = family->collapsed() ? ExpandNode(family, -1) : RowOfNode(family);
        if (scrollRow)
            *scrollRow = last;
        // The last child lies on the stack first, so that families open in the order of their rows.
        const auto& blocks = family->children().GetBlocks();
        for (auto block = blocks.rbegin(); block != blocks.rend(); ++block)
            if ((*block)->tally.families > 0)
                open.insert(open.end(), (*block)->items.rbegin(), (*block)->items.rend());
    }
}

void CSuperGridCtrl::ExpandAll() {
    const RedrawPause pause(*this);
    for (CTreeItem* root : rootItems())
        ExpandSubtree(root, nullptr);
}

void CSuperGridCtrl::CollapseAll() {
    const RedrawPause pause(*this);
    const std::vector<CTreeItem*> roots(rootItems().begin(), rootItems().end());
    const internal::RowsWatch rows = WatchRows();
    // From the last root up, so that no rows move that are deleted later.
    for (auto root = roots.rbegin(); root != roots.rend() && rows; ++root)
        CollapseNode(*root);
}

void CSuperGridCtrl::CollapseNode(CTreeItem* node) {
    if (!node || !node->CanExpand())
        return;
    const RedrawPause pause(*this);
    const int row = RowOfNode(node);
    HideSubtree(node, 0, row < 0 ? -1 : row + 1);
}

void CSuperGridCtrl::HideSubtree(CTreeItem* node, int, int row) {
    if (!node || node->collapsed() || !node->CanExpand())
        return;
    const int hidden = node->rows() - 1;
    node->SetCollapsed(true);
    node->CollapseBelow();
    if (row >= 0 && hidden > 0)
        DeleteRows(row, std::min(row + hidden, GetItemCount()));
}

void CSuperGridCtrl::RenumberRows() {
    if (m_hWnd && GetItemCount() != m_forest->children().GetTally().rows)
        RebuildRows();
}

void CSuperGridCtrl::RebuildRows() {
    if (!m_hWnd)
        return;
    const RedrawPause pause(*this);
    int row = 0;
    for (CTreeItem* root : rootItems())
        row = RebuildFromNode(root, row, true);
    DropSurplusRows(row);
}

int CSuperGridCtrl::RebuildFromNode(CTreeItem* node, int row, bool visible) {
    if (!node || !visible)
        return row;
    OverwriteRow(row++, node);
    if (node->collapsed())
        return row;
    TreeWalk walk(node->children());
    while (const CTreeItem* shown = walk.Next()) {
        OverwriteRow(row++, shown);
        if (!shown->collapsed())
            walk.Enter(shown->children());
    }
    return row;
}

void CSuperGridCtrl::OverwriteRow(int row, const CTreeItem* node) {
    if (row >= GetItemCount()) {
        InsertNodeRows(row, {const_cast<CTreeItem*>(node)}, node->indent());
        return;
    }
    if (NodeAtRow(row) != node)
        SetItemData(row, reinterpret_cast<LPARAM>(node));
    if (GetItemIndent(row) != node->indent())
        SetItemIndent(row, node->indent());
    if (HasCheckBoxes() && GetCheck(row) != (node->info->checked != 0))
        SetCheck(row, node->info->checked != 0);
}

void CSuperGridCtrl::DropSurplusRows(int from) {
    const int count = GetItemCount();
    for (int row = from; row < count; ++row)
        SetItemData(row, 0); // who hears of the deletion must not meet a node that is gone
    if (from < count)
        DeleteRows(from, count);
}

// Rows that the caller has not removed yet must not lead to a node that is deleted.
void CSuperGridCtrl::ForgetRowsOf(const CTreeItem& node) {
    const int first = RowOfNode(&node);
    if (first < 0 || NodeAtRow(first) != &node)
        return;
    const int last = std::min(first + node.rows(), GetItemCount());
    for (int row = first; row < last; ++row)
        SetItemData(row, 0);
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

} // namespace korvel
