#include "korvel/grid/attribute_columns.h"

#include "korvel/grid/column_record.h"
#include "korvel/platform/first_failure.h"

#include <utility>

namespace korvel::internal {

void AttributeColumns::Insert(const std::string& nameTitle, const std::string& valueTitle) {
    m_hasWidths = false; // a handler may have ended the former binding while SetWidths ran
    if (m_layout.RowsAreObjects()) {
        const auto columns = m_layout.GetColumns(); // a copy: the notices of a column may change the layout
        for (const auto& [column, name] : columns)
            m_list.InsertColumn(column, name, 0);
    } else {
        m_list.InsertColumn(0, nameTitle, 0);
        m_list.InsertColumn(1, valueTitle, 0);
    }
}

void AttributeColumns::SetWidths() {
    const std::vector<SColumnInfo> kept = m_widths; // the notices of a column may change them
    if (m_layout.RowsAreObjects()) {
        const int known = static_cast<int>(kept.size());
        for (int column = 0; column < m_list.GetColumnCount(); ++column)
            m_list.SetColumnWidth(column, column < known ? kept[static_cast<std::size_t>(column)].width
                                                         : LVSCW_AUTOSIZE_USEHEADER);
    } else if (kept.size() == 2) {
        m_list.SetColumnWidth(0, kept[0].width);
        m_list.SetColumnWidth(1, kept[1].width);
    } else {
        const int width = m_list.GetClientRect().Width();
        const int names = width * 3 / 5;
        m_list.SetColumnWidth(0, names);
        m_list.SetColumnWidth(1, width - names);
    }
    m_hasWidths = true;
}

void AttributeColumns::Remove() {
    FirstFailure failure;
    if (std::exchange(m_hasWidths, false))
        failure.Try([&] { KeepWidths(); });
    for (int left = m_list.GetColumnCount(); left > 0; --left)
        failure.Try([&] { m_list.DeleteColumn(0); });
    failure.Rethrow();
}

int AttributeColumns::Count() const {
    if (const int columns = m_list.GetColumnCount(); columns > 0)
        return columns;
    return m_layout.RowsAreObjects() ? static_cast<int>(m_layout.GetColumns().size()) : 2;
}

void AttributeColumns::Keep(int column, int width) {
    if (column < 0 || column >= m_list.GetColumnCount())
        return;
    if (static_cast<std::size_t>(column) >= m_widths.size())
        KeepWidths();
    m_widths[static_cast<std::size_t>(column)].width = width;
}

void AttributeColumns::Apply(const std::vector<SColumnInfo>& columns) {
    const auto count = static_cast<std::size_t>(Count());
    const std::vector<SColumnInfo> usable = UsableColumns(columns, count);
    if (usable.empty() || (usable.size() < count && m_widths.size() < count && !m_hasWidths))
        return;
    if (usable.size() == count)
        m_widths.resize(count);
    else if (m_widths.size() < count)
        KeepWidths();
    for (const SColumnInfo& info : usable)
        m_widths[static_cast<std::size_t>(info.column)] = info;
    for (const SColumnInfo& info : usable) // the notices of a column may change the widths that are kept
        m_list.SetColumnWidth(info.column, info.width);
}

void AttributeColumns::KeepWidths() {
    const int columns = m_list.GetColumnCount();
    if (m_widths.size() < static_cast<std::size_t>(columns))
        m_widths.resize(static_cast<std::size_t>(columns));
    for (int column = 0; column < columns; ++column)
        m_widths[static_cast<std::size_t>(column)] = {column, m_list.GetColumnWidth(column)};
}

} // namespace korvel::internal
