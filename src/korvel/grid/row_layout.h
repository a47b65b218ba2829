#pragma once

#include "korvel/grid/grid_layout.h"

#include <list>
#include <map>
#include <string>

namespace korvel::internal {

/// What the rows of an attribute grid are, and in which columns their cells are.
class RowLayout {
public:
    /// `kind` is the grid's, and must outlive this.
    explicit RowLayout(const EGridLayout& kind) : m_kind(kind) {}

    /// Whose members are the cells; otherwise a row is a member with its value in column 1.
    bool RowsAreObjects() const { return m_kind == eMultiColumn; }

    /// The members that columns show, from column 0 on, which is the tree's.
    void SetColumns(const std::list<std::string>& names) {
        ClearColumns();
        int column = 0;
        for (const std::string& name : names) {
            m_names[column] = name;
            m_columns[name] = column++;
        }
    }
    void ClearColumns() {
        m_names.clear();
        m_columns.clear();
    }

    const std::map<int, std::string>& GetColumns() const { return m_names; }
    /// Empty for a column without a member.
    std::string NameOf(int column) const {
        const auto found = m_names.find(column);
        return found == m_names.end() ? std::string() : found->second;
    }
    /// 1 for a member without a column.
    int ColumnOf(const std::string& name) const {
        const auto found = m_columns.find(name);
        return found == m_columns.end() ? 1 : found->second;
    }

private:
    const EGridLayout& m_kind;
    std::map<int, std::string> m_names;
    std::map<std::string, int> m_columns;
};

} // namespace korvel::internal
