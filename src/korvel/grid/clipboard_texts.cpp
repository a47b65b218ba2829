#include "korvel/grid/clipboard_texts.h"

#include "korvel/editors/cell_conversion.h"
#include "korvel/grid/attribute_rows.h"
#include "korvel/grid/tree_walk.h"
#include "korvel/platform/one_line.h"

#include <algorithm>
#include <vector>

namespace korvel::internal {

using platform::AppendInOneLine;

namespace {

// Rows may come while a host is asked, so nobody may walk the tree or the list then: those that are there at
// the beginning are copied.
using Nodes = std::vector<const grid::CTreeItem*>;

Nodes AllBelow(const grid::CTreeItem& top) {
    Nodes nodes;
    TreeWalk walk(top);
    while (const grid::CTreeItem* node = walk.Next()) {
        nodes.push_back(node);
        walk.Enter(*node);
    }
    return nodes;
}

// A line feed stands between what `add` adds for each node. False as soon as that is false.
template <class Add>
bool AddJoined(std::string& text, const Nodes& nodes, Add add) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (i > 0)
            text += '\n';
        if (!add(nodes[i]))
            return false;
    }
    return true;
}

} // namespace

bool ClipboardTexts::AddCell(std::string& text, const CTreeItem& node, int column) const {
    if (!node.info || column < 0)
        return true;
    if (column == 0) {
        AppendInOneLine(text, node.info->text);
        return true;
    }
    const bool isColumn = m_rows.layout.RowsAreObjects();
    const std::string name = isColumn ? m_rows.layout.NameOf(column) : node.info->text;
    IMemberDispatch* disp = m_rows.ObjectOf(&node);
    if (!disp || (isColumn && name.empty()))
        return true;
    const LossWatch rows = m_rows.WatchRows();
    CVariantValue value;
    std::string cell;
    if (disp->GetMember(name, value) && rows) {
        auto control = CItemInfo::ctEdit;
        m_tree.ConvertToOutput(disp, name, value, cell, control);
        if (rows)
            UnescapeDashes(value, cell);
    }
    if (!rows)
        return false;
    AppendInOneLine(text, cell);
    return true;
}

bool ClipboardTexts::AddTableCell(std::string& text, const CTreeItem& node, int column,
                                  std::size_t indent) const {
    const std::size_t start = text.size();
    text.append(indent, ' ');
    const bool isWhole = AddCell(text, node, column);
    platform::QuoteTableCell(text, start);
    return isWhole;
}

bool ClipboardTexts::AddLine(std::string& text, const CTreeItem& node, std::size_t indent) const {
    for (int column = 0; column < m_grid.GetColumnCount(); ++column) {
        if (column > 0)
            text += '\t';
        if (!AddTableCell(text, node, column, column > 0 ? 0 : indent))
            return false;
    }
    return true;
}

bool ClipboardTexts::AddColumn(std::string& text, int column) const {
    Nodes nodes;
    for (int row = 0; row < m_grid.GetItemCount(); ++row)
        nodes.push_back(m_grid.NodeAtRow(row));
    return AddJoined(text, nodes,
                     [&](const CTreeItem* node) { return !node || AddTableCell(text, *node, column); });
}

bool ClipboardTexts::AddTree(std::string& text, const CTreeItem& top) const {
    return AddLine(text, top) && AddBelow(text, top, 1);
}

bool ClipboardTexts::AddBelow(std::string& text, const CTreeItem& top, int level) const {
    const auto firstLevel = static_cast<std::size_t>(std::max(level, 0));
    const int firstIndent = top.indent() + 1;
    const Nodes nodes = AllBelow(top);
    return std::all_of(nodes.begin(), nodes.end(), [&](const CTreeItem* node) {
        text += '\n';
        return AddLine(text, *node,
                       2 * (firstLevel + static_cast<std::size_t>(node->indent() - firstIndent)));
    });
}

bool ClipboardTexts::AddAllTrees(std::string& text) const {
    const Nodes roots(m_grid.rootItems().begin(), m_grid.rootItems().end());
    return AddJoined(text, roots, [&](const CTreeItem* root) { return AddTree(text, *root); });
}

} // namespace korvel::internal
