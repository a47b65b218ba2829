#pragma once

#include "korvel/grid/tree_grid_list.h"
#include "korvel/window/base/list_view.h"

namespace korvel::internal {

class CListEditCtrl;
class RowWatch;
class TreeRows;

/// What keys do in a tree grid; for the time of one key.
class RowKeys {
public:
    RowKeys(TreeGridList& list, TreeRows& tree) : m_list(list), m_tree(tree) {}

    /// Before the list has the key: moves the column, starts the edit of a cell. True: the key is used up.
    bool Translate(UINT key, CListEditCtrl& edit);
    /// The row of the cell was chosen without a key: its column is the current one, too, unless another row is
    /// selected after all.
    void MoveTo(view::CellPlace cell);
    /// A key that the list had: acts on the selected row. False when there is nothing to do.
    bool Press(UINT key);

private:
    enum class Step { Left = -1, Right = 1 };

    void MoveColumn(Step step);
    void MoveToColumn(int column);
    bool StartCellEdit(CListEditCtrl& edit);
    void ToggleMarks(const RowWatch& first, int number);
    void Delete(const RowWatch& row, int number);
    void ExpandAll(const RowWatch& row, int number);
    void Expand(const RowWatch& row, int number);
    void Collapse(const RowWatch& row, int number);
    int SelectedRow() const { return m_list.GetNextItem(-1, LVNI_SELECTED); }

    TreeGridList& m_list;
    TreeRows& m_tree;
};

} // namespace korvel::internal
