#include "korvel/grid/exchange_grid.h"

#include "korvel/grid/clipboard_copies.h"
#include "korvel/window/app/app.h"

namespace korvel {

using namespace internal;

ExchangeGrid::~ExchangeGrid() = default;

void ExchangeGrid::SetUpExchange(ClipboardCopies& copies) {
    m_copies = &copies;
}

std::string ExchangeGrid::GetClipboardString(const CTreeItem* node, int column) const {
    const ModuleStateGuard guard;
    std::string text;
    return node && m_copies->Texts().AddCell(text, *node, column) ? text : std::string();
}

std::string ExchangeGrid::GetClipboardString(int row, int column) const {
    return GetClipboardString(NodeAtRow(row), column);
}

std::string ExchangeGrid::CopyClipboardLine(const CTreeItem* node) const {
    const ModuleStateGuard guard;
    std::string text;
    return node && m_copies->Texts().AddLine(text, *node) ? text : std::string();
}

std::string ExchangeGrid::CopyClipboardLine(int row) const {
    return CopyClipboardLine(NodeAtRow(row));
}

void ExchangeGrid::CopyClipboardRecursive(int level, std::stringstream& out, const CTreeItem* node) const {
    const ModuleStateGuard guard;
    std::string text;
    if (node && m_copies->Texts().AddBelow(text, *node, level))
        out << text;
}

void ExchangeGrid::CopyToClipboard(const CString& text) {
    const ModuleStateGuard guard;
    m_copies->Put(text);
}

void ExchangeGrid::OnCopyClipboardValue() {
    const ModuleStateGuard guard;
    if (EndEdit())
        m_copies->CopyValue();
}

void ExchangeGrid::OnCopyClipboardColumn() {
    const ModuleStateGuard guard;
    if (EndEdit())
        m_copies->CopyColumn();
}

void ExchangeGrid::OnCopyClipboardRow() {
    const ModuleStateGuard guard;
    if (EndEdit())
        m_copies->CopyRow();
}

void ExchangeGrid::OnCopyClipboardRecursive() {
    const ModuleStateGuard guard;
    if (EndEdit())
        m_copies->CopyTree();
}

} // namespace korvel
