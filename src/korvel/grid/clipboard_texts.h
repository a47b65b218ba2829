#pragma once

#include "korvel/grid/super_grid_ctrl.h"

#include <string>

namespace korvel::internal {

class AttributeRows;
class AttributeTree;

/// The rows of an attribute grid as text: a cell after the other with a tab between, a row on each line with
/// a line feed between. A tab, the end of a line and a zero byte within a cell each become one blank;
/// a cell that begins with a quotation mark stands in quotation marks, unless it is added alone.
///
///     std::string text;
///     texts.AddTree(text, *group);   // "axis\t\n  length\t12,50 m\n  name\tA 7"
///
/// What a cell shows of a value is asked of the object anew. What the host throws passes through, and an
/// operation that returns false has been given up, as rows went while it was asked; `text` then holds a part.
class ClipboardTexts {
public:
    using CTreeItem = grid::CTreeItem;

    /// All must outlive it.
    ClipboardTexts(const CSuperGridCtrl& grid, const AttributeRows& rows, AttributeTree& tree)
        : m_grid(grid), m_rows(rows), m_tree(tree) {}

    /// A cell alone; nothing for one without a member.
    bool AddCell(std::string& text, const CTreeItem& node, int column) const;
    /// `indent` blanks stand before the cell of the first column.
    bool AddLine(std::string& text, const CTreeItem& node, std::size_t indent = 0) const;
    /// The cells of one column, of all rows that the list has.
    bool AddColumn(std::string& text, int column) const;
    /// A row and all below it, collapsed ones included.
    bool AddTree(std::string& text, const CTreeItem& top) const;
    /// What is below a row alone, each after a line feed and further in by two blanks a level. `level` is that
    /// of the children; below 0 it is 0.
    bool AddBelow(std::string& text, const CTreeItem& top, int level) const;
    bool AddAllTrees(std::string& text) const;

private:
    bool AddTableCell(std::string& text, const CTreeItem& node, int column, std::size_t indent = 0) const;

    const CSuperGridCtrl& m_grid;
    const AttributeRows& m_rows;
    AttributeTree& m_tree;
};

} // namespace korvel::internal
