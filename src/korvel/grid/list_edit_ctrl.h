#pragma once

#include "korvel/grid/tree_grid_list.h"
#include "korvel/window/base/list_view.h"
#include "korvel/window/controls/edit.h"

#include <optional>

namespace korvel::internal {

class TreeRows;

/// The text field over a cell of a bare tree grid. Return, the loss of the focus and whatever takes the cell
/// off the screen (scrolling, a collapsed parent) hand the text to OnCellTextChanged, also when a handler
/// throws on the way; Escape drops it. The field follows its node while rows above come and go, and ends with
/// it.
class CListEditCtrl final : public CEdit {
public:
    /// Both must outlive it.
    CListEditCtrl(TreeGridList& list, const TreeRows& tree) : m_list(list), m_tree(tree) {}

    /// Opens over a cell, with its text selected; ends an edit that is open. False when there is no such
    /// cell, when its window cannot be made, and when a handler removes the node meanwhile; true also when a
    /// handler of the focus has ended the edit already.
    bool Start(int row, int column);
    /// To be called when a node has left the tree with all below it, and before it is deleted.
    void OnUnlinked(const grid::CTreeItem& root);
    /// Closes without its text.
    void Drop();

    /// Nothing while it is closed.
    std::optional<view::CellPlace> EditedCell() const;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void End();
    void HandOver(grid::CTreeItem& node, const CString& text);
    void FollowCell();

    TreeGridList& m_list;
    const TreeRows& m_tree;
    grid::CTreeItem* m_node = nullptr; // takes the text; null: nothing does
    int m_column = 0;
    bool m_isOpen = false;
};

} // namespace korvel::internal
