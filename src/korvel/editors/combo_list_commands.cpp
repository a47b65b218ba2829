#include "korvel/editors/combo_list.h"
#include "korvel/values/text_table.h"

namespace korvel {

namespace {

struct CommandText {
    UINT command;
    int text; // id in the table of texts
};

constexpr CommandText AddFlat = {ComboCommandAddRootItem, 13};
constexpr CommandText AddValueToTree = {ComboCommandAddRootItem, 12};
constexpr CommandText AddGroupToTree = {ComboCommandAddRootGroup, 14};
constexpr CommandText AddValueHere = {ComboCommandAddItem, 15};
constexpr CommandText AddGroupHere = {ComboCommandAddGroup, 16};
constexpr CommandText Delete = {ComboCommandDelete, 48};
constexpr CommandText Rename = {ComboCommandRename, 49};
constexpr CommandText DataSheet = {ComboCommandDataSheet, 18};

MenuEntry EntryFor(const CommandText& command, const std::string& subject = {}) {
    MenuEntry entry;
    entry.text = Text(command.text);
    ReplaceFirst(entry.text, "$1", subject);
    entry.command = command.command;
    return entry;
}

} // namespace

void CComboList::EnableCommands(std::uint32_t Commands, bool enable) {
    m_EnabledCommands = enable ? m_EnabledCommands | Commands : m_EnabledCommands & ~Commands;
}

bool CComboList::IsCommandEnabled(ECommandList command, EnumFlags flag) const {
    return (m_EnabledCommands & command) != 0 && m_model.HasFlag(flag);
}

void CComboList::OnRButtonDown(CPoint point) {
    DismissPreview();
    if (GetMode() == eDropDown)
        return;
    SetFocus();
    const int row = HitTest(point);
    if (row != -1)
        SetCurrentRow(row);
    const std::vector<MenuEntry> menu = BuildMenu(GetTreeItem(row));
    if (!menu.empty())
        RunCommand(Display().TrackMenu(m_hWnd, ClientToScreen(m_hWnd, point), menu));
}

std::vector<MenuEntry> CComboList::BuildMenu(const CTreeItem* item) const {
    std::vector<MenuEntry> menu;
    if (IsCommandEnabled(eCommandAdd, ENF_Add))
        AddMenuCommand_ADD(menu);
    if (item && IsCommandEnabled(eCommandDelete, ENF_Delete))
        menu.push_back(EntryFor(Delete, item->GetLabel()));
    if (item && IsCommandEnabled(eCommandRename, ENF_Rename))
        menu.push_back(EntryFor(Rename, item->GetLabel()));
    if (item && item->IsValue() && m_model.IsTable()) {
        if (!menu.empty())
            menu.emplace_back();
        menu.push_back(EntryFor(DataSheet));
    }
    return menu;
}

void CComboList::AddMenuCommand_ADD(std::vector<MenuEntry>& menu) const {
    if (!m_model.HasFlag(ENF_Tree)) {
        menu.push_back(EntryFor(AddFlat));
        return;
    }
    menu.push_back(EntryFor(AddValueToTree));
    menu.push_back(EntryFor(AddGroupToTree));
    if (const CTreeItem* const group = GetCurrentGroup()) {
        menu.push_back(EntryFor(AddValueHere, GetPath(*group)));
        menu.push_back(EntryFor(AddGroupHere, GetPath(*group)));
    }
}

// What new entries come under: the current item, or its group. That of an entry at the top is the root,
// whose path is empty: the menu then reads "at ''". Kept.
CComboList::CTreeItem* CComboList::GetCurrentGroup() const {
    CTreeItem* item = GetCurrentItem();
    return item && item->IsValue() ? item->GetParent() : item;
}

bool CComboList::RunCommand(UINT command) {
    struct CommandRow {
        UINT command;
        void (CComboList::*run)();
    };
    static constexpr CommandRow Commands[] = {
        {ComboCommandDataSheet, &CComboList::OnDataSheet},
        {ComboCommandAddRootItem, &CComboList::OnAddRootItem},
        {ComboCommandAddRootGroup, &CComboList::OnAddRootGroup},
        {ComboCommandAddItem, &CComboList::OnAddItem},
        {ComboCommandAddGroup, &CComboList::OnAddGroup},
        {ComboCommandDelete, &CComboList::OnDeleteEnum},
        {ComboCommandRename, &CComboList::OnRenameEnumValue},
    };
    for (const CommandRow& row : Commands) {
        if (row.command == command && IsInitialized()) {
            const ComboTree::Keep keep(m_model.Tree());
            (this->*row.run)();
            return true;
        }
    }
    return false;
}

void CComboList::OnDataSheet() {
    const HWND owner = m_owner ? m_owner : korvel::GetParent(m_hWnd);
    korvel::SendMessageA(owner, WM_COMMAND, ComboCommandDataSheet, reinterpret_cast<LPARAM>(m_hWnd));
}

void CComboList::OnAddRootItem() {
    if (TakesRootItems())
        AddEntry(m_model.Tree().Root());
}

void CComboList::OnAddRootGroup() {
    if (TakesRootItems())
        AddGroup(m_model.Tree().Root());
}

bool CComboList::TakesRootItems() const {
    const unsigned binding = m_model.Binding();
    return GetEnumValue()->GetDataType() == DT_String && binding == m_model.Binding();
}

void CComboList::OnAddItem() {
    if (CTreeItem* const group = GetCurrentGroup())
        AddEntry(*group);
}

void CComboList::OnAddGroup() {
    if (CTreeItem* const group = GetCurrentGroup())
        AddGroup(*group);
}

void CComboList::AddEntry(CTreeItem& parent) {
    const unsigned binding = m_model.Binding();
    const std::string name = CreateUniqueName(m_strValueName, parent);
    const std::string path = GetPath(parent);
    if (binding != m_model.Binding() || !m_model.IsInTree(parent))
        return;
    const CTreeItem* item = m_model.AddValue(name, path);
    if (item && item->HasRow()) {
        SetCurrentRow(item->GetRow());
        RedrawWindow();
    }
}

void CComboList::AddGroup(CTreeItem& parent) {
    const unsigned binding = m_model.Binding();
    const std::string name = CreateUniqueName(m_strValueName, parent);
    if (binding != m_model.Binding() || !m_model.IsInTree(parent))
        return;
    const CTreeItem* group = m_model.InsertItem(&parent, name);
    m_model.ExpandParent(&parent);
    SetCurrentRow(RowOf(*group));
    RedrawWindow();
}

void CComboList::OnDeleteEnum() {
    if (CTreeItem* const item = GetCurrentItem())
        m_model.DestroySubTree(*item);
}

void CComboList::OnRenameEnumValue() {
    if (GetCurrentItem())
        SendMessageA(LVM_EDITLABEL, static_cast<WPARAM>(GetCurrentRow()));
}

bool CComboList::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_NOTIFY) {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        const auto& edit = *reinterpret_cast<const NMLVDISPINFO*>(lParam);
        if (header.code == LVN_BEGINLABELEDIT) {
            *result = OnLvnBeginlabeledit(edit.iItem);
            return true;
        }
        if (header.code == LVN_ENDLABELEDIT) {
            *result = OnLvnEndlabeledit(edit.iItem, edit.pszText);
            return true;
        }
    }
    return CListCtrl::OnChildNotify(message, wParam, lParam, result);
}

// 1 forbids the edit.
LRESULT CComboList::OnLvnBeginlabeledit(int row) {
    if (!GetTreeItem(row) || !IsCommandEnabled(eCommandRename, ENF_Rename))
        return 1;
    korvel::MoveWindow(GetEditControl(), GetRectLabel(row));
    return 0;
}

// 1 when the row has its new label.
LRESULT CComboList::OnLvnEndlabeledit(int row, const char* text) {
    CTreeItem* item = GetTreeItem(row);
    if (!item || !text)
        return 0;
    const ComboTree::Keep keep(m_model.Tree());
    const bool isRenamed = m_model.RenameLabel(*item, text);
    RedrawWindow();
    return isRenamed;
}

} // namespace korvel
