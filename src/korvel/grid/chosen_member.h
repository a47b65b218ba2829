#pragma once

#include "korvel/grid/super_grid_ctrl.h"

#include <string>

namespace korvel::internal {

class AttributeRows;

/// A member on which the user acts by its row.
struct ChosenMember {
    IMemberDispatch* disp = nullptr; // null: none
    std::string name{};

    explicit operator bool() const { return disp != nullptr; }
    bool operator==(const ChosenMember&) const = default;
};

/// A row as a member of the object above it, in both layouts; none for null.
ChosenMember MemberOf(const grid::CTreeItem* row, const AttributeRows& rows);
/// The member whose value a row shows; where a row is an object, in one of its columns, and in column 0 that
/// row as MemberOf has it.
ChosenMember ValueIn(const grid::CTreeItem* row, int column, const AttributeRows& rows);
/// MemberOf the selected row.
ChosenMember SelectedMember(const CSuperGridCtrl& grid, const AttributeRows& rows);
/// ValueIn the selected row and the focused column, which the click that opens the context menu focuses.
ChosenMember SelectedValue(const CSuperGridCtrl& grid, const AttributeRows& rows);
/// What the label of a row names; where a row is an object, that one by its own name. None for null.
ChosenMember LabelOf(const grid::CTreeItem* row, const AttributeRows& rows);

/// The column under the pointer; -1: none.
int ColumnUnderPointer(const CListCtrl& list);

} // namespace korvel::internal
