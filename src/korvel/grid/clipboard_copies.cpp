#include "korvel/grid/clipboard_copies.h"

#include "korvel/grid/cell_edit_grid.h"
#include "korvel/grid/exchange_grid.h"
#include "korvel/grid/write_frame.h"
#include "korvel/values/text_table.h"
#include "korvel/window/core/display.h"

namespace korvel::internal {

namespace {

constexpr int ClipboardCaption = 82;
constexpr int CopiedText = 83;

} // namespace

ClipboardCopies::ClipboardCopies(CellEditGrid& grid, const AttributeRows& rows, AttributeTree& tree,
                                 WriteFrame& frame, const GridOptions& options)
    : m_grid(grid), m_frame(frame), m_options(options), m_texts(grid, rows, tree) {}

void ClipboardCopies::CopyValue() {
    if (const grid::CTreeItem* node = m_grid.GetSelectedNode())
        Copy([&](std::string& text) { return m_texts.AddCell(text, *node, m_grid.GetCurrentColumn()); });
}

void ClipboardCopies::CopyColumn() {
    Copy([&](std::string& text) { return m_texts.AddColumn(text, m_grid.GetCurrentColumn()); });
}

void ClipboardCopies::CopyRow() {
    if (const grid::CTreeItem* node = m_grid.GetSelectedNode())
        Copy([&](std::string& text) { return m_texts.AddLine(text, *node); });
}

void ClipboardCopies::CopyTree() {
    const grid::CTreeItem* node = m_grid.GetSelectedNode();
    Copy([&](std::string& text) { return node ? m_texts.AddTree(text, *node) : m_texts.AddAllTrees(text); });
}

void ClipboardCopies::Copy(const std::function<bool(std::string&)>& collect) const {
    std::string text;
    bool isWhole = false;
    m_frame.RunOutside([&] { isWhole = collect(text); });
    if (isWhole && Put(text))
        TellCopied();
}

bool ClipboardCopies::Put(const std::string& text) const {
    if (text.empty())
        return false;
    const ClipboardAnswer answer = Display().SetClipboardText(text);
    if (answer.outcome == ClipboardAnswer::Outcome::NotSet)
        m_frame.Tell("Unable to set Clipboard data, error: " + std::to_string(answer.error));
    return answer.IsSet();
}

void ClipboardCopies::TellCopied() const {
    if (m_options.Has(EGridOption::QuietCopy))
        m_grid.SendParentComboMessage(GridCopied);
    else
        MessageBoxA(m_grid.m_hWnd, Text(CopiedText), Text(ClipboardCaption), MB_OK | MB_ICONINFORMATION);
}

} // namespace korvel::internal
