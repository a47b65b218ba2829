#pragma once

#include "korvel/grid/grid_layout.h"
#include "korvel/grid/row_layout.h"
#include "korvel/window/list/list_ctrl.h"

#include <string>
#include <vector>

namespace korvel::internal {

/// The columns that a list has while it shows an object: those of the layout, as wide as they were the last
/// time.
class AttributeColumns {
public:
    /// All must outlive this. `widths` may be changed between two bindings.
    AttributeColumns(CListCtrl& list, const RowLayout& layout, std::vector<SColumnInfo>& widths)
        : m_list(list), m_layout(layout), m_widths(widths) {}

    /// The titles are those of the layout without columns of its own.
    void Insert(const std::string& nameTitle, const std::string& valueTitle);
    /// To be called when the rows are there, by whose texts columns without a width are measured.
    void SetWidths();
    /// How many there are, or will be when there are rows.
    int Count() const;
    /// What is kept of former bindings and of the user.
    const std::vector<SColumnInfo>& Widths() const { return m_widths; }
    /// The user has dragged a column; without effect for no such one.
    void Keep(int column, int width);
    /// Takes widths that were kept elsewhere: of each column the first, where that is from 0 to 32,767. Where
    /// those of other columns are not known at all, nothing.
    void Apply(const std::vector<SColumnInfo>& columns);
    /// Keeps the widths of SetWidths and of the user. \throws the first exception when all is done
    void Remove();

private:
    void KeepWidths();

    CListCtrl& m_list;
    const RowLayout& m_layout;
    std::vector<SColumnInfo>& m_widths;
    bool m_hasWidths = false;
};

} // namespace korvel::internal
