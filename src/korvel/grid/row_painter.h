#pragma once

#include "korvel/editors/cell_painter.h"
#include "korvel/grid/row_watch.h"
#include "korvel/grid/tree_grid_list.h"

namespace korvel::internal {

/// Draws one row of a tree grid: tree lines, sign, check box and icon in front of the first column's text,
/// and for each further column what the control type of its cell shows.
class RowPainter {
public:
    RowPainter(TreeGridList& list, const TreeRows& tree, CDC& dc, int row);

    void Draw();

private:
    using CTreeItem = grid::CTreeItem;

    void DrawCell(int column);
    void DrawContent(int column, const CRect& cell);
    void DrawMarks(int columns);
    void DrawTree(const CRect& bounds);
    void DrawTreeLines(const CRect& bounds, int width);
    void DrawSign(const CRect& square);
    void DrawRowCheck(const CRect& bounds);
    /// Draws what the cell has beside its text and returns the room left for the text.
    CRect DrawControl(int column, const CRect& cell);
    void DrawText(int column, const CRect& room, COLORREF ground);

    COLORREF GroundOf(int column) const;
    bool IsEnabled(int column) const;

    TreeGridList& m_list;
    CDC& m_dc;
    const int m_row;
    const RowWatch m_there;
    const CTreeItem* m_node;
    CellPainter m_cell;
    bool m_isSelected = false;
    bool m_hasFocus = false; // the grid, or an editor in it
};

} // namespace korvel::internal
