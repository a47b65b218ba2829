#pragma once

#include "korvel/grid/object_commands.h"

namespace korvel {
class CMenu;
}

namespace korvel::internal {

/// What a grid lets its user do by the menu.
struct MenuPermissions {
    bool edit = true;
    bool remove = true;
    bool rename = true;
    bool changeType = true;
    bool add = true;
    bool copy = true;
    bool formats = true;
};

/// Fills the context menu of a member or object, from what its flags and the grid allow. Lines are separated
/// only where there are some on both sides. Objects that throw allow nothing.
///
///     CMenu menu;
///     menu.CreatePopupMenu();
///     if (FillContextMenu(menu, rows, TargetOf(row, 1, rows), {}))
///         menu.TrackPopupMenu(TPM_RIGHTBUTTON, x, y, &grid);
///
/// False, and the menu is to be thrown away, when the host has taken away what it is about.
bool FillContextMenu(CMenu& menu, const AttributeRows& rows, const MenuTarget& target,
                     const MenuPermissions& allowed);

} // namespace korvel::internal
