#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/grid/tree_item.h"
#include "korvel/values/member_dispatch.h"

#include <string>

namespace korvel::internal {

/// The members that a grid shows, as the editing of its cells knows them.
class EditedMembers {
public:
    /// The row of a member; null when it is not shown.
    virtual grid::CTreeItem* FindRow(IMemberDispatch* disp, const std::string& name) const = 0;
    virtual int ColumnOf(const std::string& name) const = 0;
    /// Whose members a row shows, and the member of one of its cells; empty for a cell without one.
    virtual IMemberDispatch* ObjectOf(const grid::CTreeItem& row) const = 0;
    virtual std::string MemberOf(const grid::CTreeItem& row, int column) const = 0;
    /// A row is an object, and its members are the cells.
    virtual bool RowsAreObjects() const = 0;
    virtual GridOptions Options() const = 0;

    /// Writes the cell of a member anew.
    virtual void ShowValue(IMemberDispatch* disp, const std::string& name, const CVariantValue& value) = 0;
    /// The same for all angles.
    virtual void ShowAngles() = 0;
    virtual void OpenFile(const std::string& path) = 0;

protected:
    ~EditedMembers() = default;
};

} // namespace korvel::internal
