#pragma once

#include "korvel/grid/cell_actions.h"
#include "korvel/grid/super_grid_ctrl.h"

namespace korvel::internal {

/// Moves the focus on from a grid or its control, as the dialog around it does where there is one. False:
/// there is no tab stop.
bool LeaveGridByTab(HWND grid);

/// The keys by which cells are edited, under EGridOption::KeyboardEditing; for the time of one key.
class CellKeyboard {
public:
    CellKeyboard(CSuperGridCtrl& grid, const EditedMembers& members, const CellActions& actions)
        : m_grid(grid), m_members(members), m_actions(actions) {}

    /// False for a key that means nothing in the selected row.
    bool Press(const MSG& message);

private:
    bool PressInCell(CellKey key, const grid::CTreeItem& node);

    CSuperGridCtrl& m_grid;
    const EditedMembers& m_members;
    const CellActions& m_actions;
};

} // namespace korvel::internal
