#pragma once

#include "korvel/window/controls/controls.h"

namespace korvel {

class CSuperGridCtrl;

namespace grid {
class CTreeItem;
}

/// The text field over a cell of a bare tree grid. Return, the loss of the focus and whatever takes the cell
/// off the screen (scrolling, a collapsed parent) hand the text to CSuperGridCtrl::OnCellTextChanged; Escape
/// drops it. The field follows its node while rows above come and go, and ends with it.
class CListEditCtrl : public CEdit {
public:
    explicit CListEditCtrl(CSuperGridCtrl& grid) : m_grid(grid) {}
    ~CListEditCtrl() override;

    /// Opens over a cell, with its text selected; ends an edit that is open. False when there is no such
    /// cell.
    bool Start(int row, int column);
    /// To be called when a node has left the tree with all below it, and before it is deleted.
    void OnUnlinked(const grid::CTreeItem& root);
    /// To be called before all nodes go.
    void Drop();

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    enum class Ending { Take, Drop };
    void End(Ending ending);
    void FollowCell();

    CSuperGridCtrl& m_grid;
    grid::CTreeItem* m_node = nullptr; // whose cell it is; null while no edit is open or ends
    int m_column = 0;
    bool m_isOpen = false;
};

} // namespace korvel
