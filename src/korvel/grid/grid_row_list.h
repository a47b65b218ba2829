#pragma once

#include "korvel/grid/row_list.h"
#include "korvel/window/base/types.h"

namespace korvel {
class TreeGridList;
}

namespace korvel::internal {

class CListEditCtrl;
class RowDrag;

/// The list of a tree grid as the rows of its tree. A drag and an edit of a cell end with their nodes.
class GridRowList final : public RowList {
public:
    /// All must outlive it; `drag` and `edit` are not used before the first row.
    GridRowList(TreeGridList& list, RowDrag& drag, CListEditCtrl& edit)
        : m_list(list), m_drag(drag), m_edit(edit) {}

    int Count() const override;
    CTreeItem* At(int row) const override;
    void Rewrite(int row, CTreeItem* node) override;
    void Insert(int row, const NodeRuns& runs) override;
    void Mark(int first, int last) override;
    void Remove(int first, int last) override;
    void RemoveQuietly(int first, int last) override;
    void RemoveAll() override;
    void Redraw(int row) override;
    void ChangeMany(const std::function<void()>& change) override;
    CItemInfo* CopyInfo(const CItemInfo* source) override;
    void OnUnlinked(CTreeItem& node, const CTreeItem* formerParent) override;

private:
    void PrepareList();

    TreeGridList& m_list;
    RowDrag& m_drag;
    CListEditCtrl& m_edit;
    HWND m_preparedWindow = nullptr;
};

} // namespace korvel::internal
