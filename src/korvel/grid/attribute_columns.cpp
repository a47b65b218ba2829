#include "korvel/grid/attribute_columns.h"

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

void AttributeColumns::KeepWidths() {
    const int columns = m_list.GetColumnCount();
    if (m_widths.size() < static_cast<std::size_t>(columns))
        m_widths.resize(static_cast<std::size_t>(columns));
    for (int column = 0; column < columns; ++column)
        m_widths[static_cast<std::size_t>(column)] = {column, m_list.GetColumnWidth(column)};
}

} // namespace korvel::internal
