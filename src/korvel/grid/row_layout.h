#pragma once

#include <list>
#include <map>
#include <string>

namespace korvel::internal {

/// What the rows of an attribute grid are, and the columns in which their cells stand.
class RowLayout {
public:
    /// False: a row is a member with its value in column 1. True: a row is an object, whose members are the
    /// cells.
    bool rowsAreObjects = false;

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
    std::map<int, std::string> m_names;
    std::map<std::string, int> m_columns;
};

} // namespace korvel::internal
