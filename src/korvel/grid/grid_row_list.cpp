#include "korvel/grid/grid_row_list.h"

#include "korvel/grid/list_edit_ctrl.h"
#include "korvel/grid/row_drag.h"
#include "korvel/grid/row_icons.h"
#include "korvel/grid/tree_grid_list.h"
#include "korvel/platform/first_failure.h"
#include "korvel/window/list/model_rows.h"

#include <algorithm>
#include <iterator>

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
    return m_list.m_hWnd ? m_list.GetItemCount() : -1;
}

grid::CTreeItem* GridRowList::At(int row) const {
    return row < 0 ? nullptr : reinterpret_cast<CTreeItem*>(m_list.GetItemData(row));
}

void GridRowList::Rewrite(int row, CTreeItem* node) {
    if (At(row) != node)
        m_list.SetItemData(row, reinterpret_cast<LPARAM>(node));
    if (node && m_list.GetItemIndent(row) != node->indent())
        m_list.SetItemIndent(row, node->indent());
}

// The window may be made or attached in several ways; its list is prepared before the first row comes.
void GridRowList::PrepareList() {
    if (m_preparedWindow == m_list.m_hWnd)
        return;
    m_preparedWindow = m_list.m_hWnd;
    m_list.SetTextSource(TextOfRow);
    if (!m_list.GetImageList())
        m_list.SetImageList(&RowIcons());
}

void GridRowList::Insert(int row, const NodeRuns& runs) {
    const int indent = runs.front().indent;
    std::vector<LPARAM> data;
    data.reserve(CountOf(runs));
    struct IndentedRow {
        std::size_t index;
        int indent;
    };
    std::vector<IndentedRow> others;
    for (const NodeRun& run : runs) {
        if (run.indent != indent)
            for (std::size_t index = 0; index < run.nodes.size(); ++index)
                others.push_back({data.size() + index, run.indent});
        const auto asData = [](CTreeItem* node) { return reinterpret_cast<LPARAM>(node); };
        std::transform(run.nodes.begin(), run.nodes.end(), std::back_inserter(data), asData);
    }
    PrepareList();
    // In one step, so that whoever hears of a row finds all of them.
    FirstFailure failure;
    failure.Try(
        [&] { InsertModelRows(m_list.m_hWnd, row, data.data(), static_cast<int>(data.size()), indent); });
    for (const IndentedRow& other : others)
        if (const int inserted = row + static_cast<int>(other.index);
            m_list.GetItemData(inserted) == data[other.index])
            failure.Try([&] { m_list.SetItemIndent(inserted, other.indent); });
    failure.Rethrow();
}

void GridRowList::Mark(int first, int last) {
    if (!m_list.HasCheckBoxes())
        return;
    FirstFailure failure;
    for (int row = first; row < std::min(last, m_list.GetItemCount()); ++row) {
        const CTreeItem* node = At(row);
        if (node && node->info && m_list.GetCheck(row) != (node->info->checked != 0))
            failure.Try([&] { m_list.SetCheck(row, node->info->checked != 0); });
    }
    failure.Rethrow();
}

void GridRowList::Remove(int first, int last) {
    m_list.DeleteRows(first, last);
}

void GridRowList::RemoveQuietly(int first, int last) {
    DeleteModelRows(m_list.m_hWnd, first, last);
}

void GridRowList::RemoveAll() {
    FirstFailure failure;
    failure.Try([&] { m_drag.Stop(); });
    failure.Try([&] { m_edit.Drop(); });
    failure.Try([&] { m_list.DeleteAllItems(); });
    failure.Rethrow();
}

void GridRowList::Redraw(int row) {
    m_list.RedrawRow(row);
}

void GridRowList::ChangeMany(const std::function<void()>& change) {
    const TreeGridList::RedrawPause pause(m_list);
    change();
}

CItemInfo* GridRowList::CopyInfo(const CItemInfo* source) {
    return m_list.CopyItemInfo(source);
}

void GridRowList::OnUnlinked(CTreeItem& node, const CTreeItem* formerParent) {
    FirstFailure failure;
    failure.Try([&] { m_drag.Stop(); });
    failure.Try([&] { m_edit.OnUnlinked(node); });
    failure.Try([&] { m_list.OnNodeUnlinked(node, formerParent); });
    failure.Rethrow();
}

} // namespace korvel::internal
