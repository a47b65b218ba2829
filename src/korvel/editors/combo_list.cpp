#include "korvel/editors/combo_list.h"

namespace korvel {

CComboList::CComboList(EComboListMode mode)
    : m_model(mode, *this), m_preview(*this, {[this](CPoint point) { return HitTest(point); },
                                              [this](int row) { return GetImagePath(row); },
                                              [this](int row) { return GetRectLabel(row); }}) {}

CComboList::CComboList(const CVariantValue& value, EComboListMode mode) : CComboList(mode) {
    m_model.SetValue(value);
}

CComboList::~CComboList() {
    UnIntialize();
}

// A child of the desktop to those who look at it. It is owned all the same, so that it stays before its
// owner and dies with it.
bool CComboList::CreateDropDown(CWnd* owner, int id) {
    constexpr UINT Style = WS_POPUP | WS_BORDER | WS_VSCROLL | LVS_OWNERDRAWFIXED | LVS_REPORT;
    SetOwner(owner);
    return CreateEx(WS_EX_TOOLWINDOW, "SysListView32", "", Style, {}, owner, id);
}

void CComboList::SetOwner(CWnd* owner) {
    m_owner = owner ? owner->m_hWnd : nullptr;
}

void CComboList::SendParentComboMessage(UINT code) {
    const HWND owner = m_owner ? m_owner : korvel::GetParent(m_hWnd);
    korvel::SendMessageA(owner, WM_COMMAND, MAKEWPARAM(static_cast<unsigned>(GetDlgCtrlID()), code),
                         reinterpret_cast<LPARAM>(m_hWnd));
}

void CComboList::PreSubclassWindow() {
    ModifyStyle(0, LVS_REPORT | LVS_OWNERDRAWFIXED);
    SetTextSource([this](LPARAM data, int column) {
        return GetColumnText(*reinterpret_cast<const CTreeItem*>(data), column);
    });
}

void CComboList::Expand(CTreeItem* item) {
    if (item) {
        const ComboTree::Keep keep(m_model.Tree());
        m_model.Expand(*item);
        RedrawRow(RowOf(*item)); // also an empty group looks another
    }
}

void CComboList::Collapse(CTreeItem* item) {
    if (item) {
        const ComboTree::Keep keep(m_model.Tree());
        m_model.Collapse(*item);
        RedrawRow(RowOf(*item));
    }
}

std::string CComboList::CreateUniqueName(const std::string& base, const CTreeItem& parent) const {
    return m_model.UniqueNameUnder(parent, base);
}

void CComboList::OnRowsCame(ComboTree::RowRange rows) {
    std::vector<LPARAM> data;
    for (int row = rows.first; row < rows.first + rows.count; ++row)
        data.push_back(reinterpret_cast<LPARAM>(GetTreeItem(row)));
    if (m_pInputState)
        m_pInputState->RowsCame(rows.first, rows.count);
    InsertRows(rows.first, data.data(), rows.count, 0);
    RedrawWindow();
}

void CComboList::OnRowsWent(ComboTree::RowRange rows) {
    if (m_pInputState)
        m_pInputState->RowsWent(rows.first, rows.count);
    DeleteRowsQuietly(rows.first, rows.first + rows.count);
    RedrawWindow();
}

int CComboList::GetCurrentRow() const {
    return m_pInputState ? m_pInputState->GetCurrent() : -1;
}

void CComboList::SetCurrentRow(int row) {
    if (const auto state = m_pInputState) {
        state->SetCurrent(GetTreeItem(row) ? row : -1);
        EnsureVisible(state->GetCurrent(), false);
    }
}

void CComboList::OnAddEnumValue(IEnumValue* enumeration, long id) {
    if (!IsInitialized() || enumeration != GetEnumValue())
        return;
    const ComboTree::Keep keep(m_model.Tree());
    const CTreeItem* item = m_model.EntryCame(id);
    if (item && item->HasRow()) {
        SetCurrentRow(item->GetRow());
        RedrawWindow();
    }
}

void CComboList::OnDestroyEnumValue(IEnumValue* enumeration, long id) {
    if (IsInitialized() && enumeration == GetEnumValue())
        m_model.EntryWent(id);
}

void CComboList::OnRenameEnumValue(IEnumValue* enumeration, long id, const CVariantValue&) {
    if (IsInitialized() && enumeration == GetEnumValue()) {
        m_model.EntryRenamed(id);
        RedrawWindow();
    }
}

void CComboList::OnEventFormatChanged() {
    m_model.RefreshLabels();
    RedrawWindow();
}

std::string CComboList::GetImagePath(int row) const {
    const CTreeItem* item = GetTreeItem(row);
    auto* images = item && item->IsValue() ? dynamic_cast<EnumImages*>(GetEnumValue()) : nullptr;
    if (!images)
        return {};
    const unsigned binding = m_model.Binding();
    const std::string own = images->GetImagePath(item->GetId());
    return own.empty() && binding == m_model.Binding() ? images->GetCommonImagePath() : own;
}

} // namespace korvel
