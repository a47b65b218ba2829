#pragma once

#include "korvel/window/base/messages.h"
#include "korvel/window/base/types.h"

#include <utility>
#include <vector>

namespace korvel::internal {

struct ListColumn {
    CString title;
    int width = 0; // pixels, 0 or more
    int format = LVCFMT_LEFT;
};

/// The columns of a report list, which its header shares. Places are pixels of the content: column 0
/// begins at 0, however the list is scrolled.
class ListColumns {
public:
    static constexpr int None = -1;

    int Count() const { return static_cast<int>(m_columns.size()); }
    bool Has(int column) const { return column >= 0 && column < Count(); }
    const ListColumn& operator[](int column) const { return m_columns[column]; }

    /// Beyond the end appends; a width below 0 is none. Returns the number of the column.
    int Insert(int column, ListColumn content);
    void Erase(int column) { m_columns.erase(m_columns.begin() + column); }
    void SetWidth(int column, int width);
    void SetTitle(int column, CString title) { m_columns[column].title = std::move(title); }
    void SetFormat(int column, int format) { m_columns[column].format = format; }
    /// 0 for a column that does not exist.
    int WidthOf(int column) const { return Has(column) ? m_columns[column].width : 0; }
    /// How the text of a column is drawn (DT_*). The texts of column 0 always begin at its left.
    UINT DrawFormat(int column) const;

    /// With the number of columns: where the content ends.
    int Left(int column) const;
    int TotalWidth() const { return Left(Count()); }
    /// The column that covers x, or None.
    int At(int x) const;
    /// The column whose right border can be taken at x, or None. Of several narrow ones it is the last,
    /// so that a column of width 0 can be drawn open again.
    int DividerAt(int x) const;

private:
    std::vector<ListColumn> m_columns;
};

} // namespace korvel::internal
