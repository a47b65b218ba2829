#include "korvel/grid/grid_row_list.h"

#include "korvel/grid/list_edit_ctrl.h"
#include "korvel/grid/row_drag.h"
#include "korvel/grid/row_icons.h"
#include "korvel/grid/super_grid_ctrl.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {

namespace {

CString TextOfRow(LPARAM data, int column) {
    const auto* node = reinterpret_cast<const grid::CTreeItem*>(data);
    if (!node || !node->info)
        return {};
    return column == 0 ? node->info->text : node->info->GetSubItem(column - 1);
}

} // namespace

int GridRowList::Count() const {
    return m_grid.m_hWnd ? m_grid.GetItemCount() : -1;
}

grid::CTreeItem* GridRowList::At(int row) const {
    return row < 0 ? nullptr : reinterpret_cast<CTreeItem*>(m_grid.GetItemData(row));
}

void GridRowList::Rewrite(int row, CTreeItem* node) {
    if (At(row) != node)
        m_grid.SetItemData(row, reinterpret_cast<LPARAM>(node));
    if (node && m_grid.GetItemIndent(row) != node->indent())
        m_grid.SetItemIndent(row, node->indent());
}

// The window may be made or attached in several ways; its list is prepared before the first row comes.
void GridRowList::PrepareList() {
    if (m_preparedWindow == m_grid.m_hWnd)
        return;
    m_preparedWindow = m_grid.m_hWnd;
    m_grid.SetTextSource(TextOfRow);
    if (!m_grid.GetImageList())
        m_grid.SetImageList(&RowIcons());
}

void GridRowList::Insert(int row, const std::vector<CTreeItem*>& nodes) {
    PrepareList();
    std::vector<LPARAM> data;
    data.reserve(nodes.size());
    for (CTreeItem* node : nodes)
        data.push_back(reinterpret_cast<LPARAM>(node));
    const int indent = nodes.front()->indent();
    std::vector<std::pair<std::size_t, int>> others;
    for (std::size_t index = 0; index < nodes.size(); ++index)
        if (nodes[index]->indent() != indent)
            others.emplace_back(index, nodes[index]->indent());
    // In one step, so that whoever hears of a row finds all of them.
    m_grid.InsertRows(row, data.data(), static_cast<int>(data.size()), indent);
    for (const auto& [index, depth] : others)
        if (const int inserted = row + static_cast<int>(index); At(inserted) == nodes[index])
            m_grid.SetItemIndent(inserted, depth);
}

void GridRowList::Mark(int first, int last) {
    if (!m_grid.HasCheckBoxes())
        return;
    for (int row = first; row < std::min(last, m_grid.GetItemCount()); ++row) {
        const CTreeItem* node = m_grid.NodeAtRow(row);
        if (node && m_grid.GetCheck(row) != (node->info->checked != 0))
            m_grid.SetCheck(row, node->info->checked != 0);
    }
}

void GridRowList::Remove(int first, int last) {
    m_grid.DeleteRows(first, last);
}

void GridRowList::RemoveQuietly(int first, int last) {
    m_grid.DeleteRowsQuietly(first, last);
}

void GridRowList::RemoveAll() {
    m_grid.m_drag->Stop();
    if (m_grid.m_cellEdit)
        m_grid.m_cellEdit->Drop();
    m_grid.DeleteAllItems();
}

void GridRowList::Redraw(const CTreeItem& node) {
    m_grid.RedrawNode(&node);
}

void GridRowList::ChangeMany(const std::function<void()>& change) {
    const CSuperGridCtrl::RedrawPause pause(m_grid);
    change();
}

CItemInfo* GridRowList::CopyInfo(const CItemInfo* source) {
    return m_grid.CopyItemInfo(source);
}

void GridRowList::OnUnlinked(CTreeItem& node, const CTreeItem* formerParent) {
    m_grid.m_drag->Stop();
    if (m_grid.m_cellEdit)
        m_grid.m_cellEdit->OnUnlinked(node);
    m_grid.OnNodeUnlinked(node, formerParent);
}

} // namespace korvel::internal
