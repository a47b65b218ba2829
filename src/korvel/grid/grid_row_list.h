#pragma once

#include "korvel/grid/row_list.h"
#include "korvel/window/base/types.h"

namespace korvel {
class CSuperGridCtrl;
}

namespace korvel::internal {

/// The list of a tree grid as the rows of its tree.
class GridRowList final : public RowList {
public:
    explicit GridRowList(CSuperGridCtrl& grid) : m_grid(grid) {}

    int Count() const override;
    CTreeItem* At(int row) const override;
    void Rewrite(int row, CTreeItem* node) override;
    void Insert(int row, const std::vector<CTreeItem*>& nodes) override;
    void Mark(int first, int last) override;
    void Remove(int first, int last) override;
    void RemoveQuietly(int first, int last) override;
    void RemoveAll() override;
    void Redraw(const CTreeItem& node) override;
    void ChangeMany(const std::function<void()>& change) override;
    CItemInfo* CopyInfo(const CItemInfo* source) override;
    void OnUnlinked(CTreeItem& node, const CTreeItem* formerParent) override;

private:
    void PrepareList();

    CSuperGridCtrl& m_grid;
    HWND m_preparedWindow = nullptr;
};

} // namespace korvel::internal
