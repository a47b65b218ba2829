#include "korvel/grid/exchange_grid.h"

#include "korvel/documents/xml_element.h"
#include "korvel/documents/xml_node.h"
#include "korvel/grid/clipboard_copies.h"
#include "korvel/grid/column_state.h"
#include "korvel/window/app/app.h"
#include "korvel/window/core/registered_messages.h"

namespace korvel {

using namespace internal;

namespace {

constexpr WPARAM Writes = 1; // of both messages of the state; any other one reads

} // namespace

ExchangeGrid::~ExchangeGrid() = default;

void ExchangeGrid::SetUpExchange(ClipboardCopies& copies, ColumnState& columnState) {
    m_copies = &copies;
    m_columnState = &columnState;
}

LRESULT ExchangeGrid::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DLG_STATE)
        return OnDlgState(wParam, lParam);
    if (message == WM_DLG_STATE_REGISTRY)
        return OnRegistryDlgState(wParam, lParam);
    return CellEditGrid::WindowProc(message, wParam, lParam);
}

bool ExchangeGrid::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    auto* header = reinterpret_cast<NMHDR*>(lParam);
    if (header->code == HDN_ENDTRACK)
        OnHdnEndtrack(header, result);
    return CellEditGrid::OnNotify(wParam, lParam, result);
}

void ExchangeGrid::OnHdnEndtrack(NMHDR* header, LRESULT* result) {
    const auto& dragged = *reinterpret_cast<const NMHEADER*>(header);
    m_columnState->Keep(dragged.iItem, dragged.cxy);
    *result = 0;
}

LRESULT ExchangeGrid::OnDlgState(WPARAM wParam, LPARAM lParam) {
    const ModuleStateGuard guard;
    if (lParam && wParam == Writes)
        m_columnState->Write(*reinterpret_cast<const CXmlNode*>(lParam));
    else if (lParam)
        m_columnState->Read(*reinterpret_cast<const XmlElement*>(lParam));
    return 0;
}

LRESULT ExchangeGrid::OnRegistryDlgState(WPARAM wParam, LPARAM lParam) {
    const ModuleStateGuard guard;
    const auto* key = reinterpret_cast<const char*>(lParam);
    if (key && wParam == Writes)
        m_columnState->Save(key);
    else if (key)
        m_columnState->Load(key);
    return 0;
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
