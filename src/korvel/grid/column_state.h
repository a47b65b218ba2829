#pragma once

#include "korvel/grid/attribute_columns.h"

#include <string>

namespace korvel {
class CXmlNodeBase;
struct XmlElement;
} // namespace korvel

namespace korvel::internal {

class AttributeRows;

/// Keeps the widths of a grid's columns from run to run: in an element of a document, or in the user's
/// settings below a key, as a value that is named by the grid's control id and the ident of its object.
class ColumnState {
public:
    /// All must outlive it.
    ColumnState(const CListCtrl& grid, const AttributeRows& rows, AttributeColumns& columns)
        : m_grid(grid), m_rows(rows), m_columns(columns) {}

    void Keep(int column, int width) { m_columns.Keep(column, width); }
    void Write(const CXmlNodeBase& state) const;
    void Read(const XmlElement& state);
    // A store that fails, and an object that does so when it is asked for its ident, are none: nothing is
    // saved and nothing changes.
    /// Nothing without widths.
    void Save(const std::string& key) const;
    /// Nothing for a record of another number of columns.
    void Load(const std::string& key);

private:
    std::string ValueName() const;

    const CListCtrl& m_grid;
    const AttributeRows& m_rows;
    AttributeColumns& m_columns;
};

} // namespace korvel::internal
