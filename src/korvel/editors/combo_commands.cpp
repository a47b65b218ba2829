#include "korvel/editors/combo_commands.h"

#include "korvel/editors/combo_list.h"
#include "korvel/editors/combo_names.h"
#include "korvel/values/replace_first.h"
#include "korvel/values/text_table.h"

namespace korvel::internal {

namespace {

constexpr UINT F2Key = 0x71;

struct CommandText {
    UINT command;
    int text; // id in the table of texts
};

constexpr CommandText AddFlat = {ComboCommandAddRootItem, 13};
constexpr CommandText AddValueToTree = {ComboCommandAddRootItem, 12};
constexpr CommandText AddGroupToTree = {ComboCommandAddRootGroup, 14};
constexpr CommandText AddValueHere = {ComboCommandAddItem, 15};
constexpr CommandText AddGroupHere = {ComboCommandAddGroup, 16};
constexpr CommandText DeleteThis = {ComboCommandDelete, 48};
constexpr CommandText RenameThis = {ComboCommandRename, 49};
constexpr CommandText DataSheet = {ComboCommandDataSheet, 18};

MenuEntry EntryFor(const CommandText& command, const std::string& subject = {}) {
    MenuEntry entry;
    entry.text = Text(command.text);
    ReplaceFirst(entry.text, "$1", subject);
    entry.command = command.command;
    return entry;
}

} // namespace

void ComboCommands::Enable(std::uint32_t commands, bool enable) {
    m_enabled = enable ? m_enabled | commands : m_enabled & ~commands;
}

bool ComboCommands::IsEnabled(std::uint32_t command, EnumFlags flag) const {
    return (m_enabled & command) != 0 && m_model.Binding().HasFlag(flag);
}

void ComboCommands::TrackMenu(CPoint point) {
    m_list.SetFocus();
    const int row = m_list.HitTest(point);
    if (row != -1)
        m_list.SetCurrentRow(row);
    const std::vector<MenuEntry> menu = BuildMenu(m_list.GetTreeItem(row));
    if (!menu.empty())
        Run(Display().TrackMenu(m_list.m_hWnd, ClientToScreen(m_list.m_hWnd, point), menu));
}

std::vector<MenuEntry> ComboCommands::BuildMenu(const ComboTreeItem* item) const {
    std::vector<MenuEntry> menu;
    if (IsEnabled(CComboList::eCommandAdd, ENF_Add))
        AddEntriesForAdding(menu);
    if (item && IsEnabled(CComboList::eCommandDelete, ENF_Delete))
        menu.push_back(EntryFor(DeleteThis, item->GetLabel()));
    if (item && IsEnabled(CComboList::eCommandRename, ENF_Rename))
        menu.push_back(EntryFor(RenameThis, item->GetLabel()));
    if (item && item->IsValue() && m_model.Binding().IsTable()) {
        if (!menu.empty())
            menu.emplace_back();
        menu.push_back(EntryFor(DataSheet));
    }
    return menu;
}

void ComboCommands::AddEntriesForAdding(std::vector<MenuEntry>& menu) const {
    if (!m_model.Binding().HasFlag(ENF_Tree)) {
        menu.push_back(EntryFor(AddFlat));
        return;
    }
    menu.push_back(EntryFor(AddValueToTree));
    menu.push_back(EntryFor(AddGroupToTree));
    if (const ComboTreeItem* group = CurrentGroup()) {
        const std::string path = m_list.GetPath(*group);
        menu.push_back(EntryFor(AddValueHere, path));
        menu.push_back(EntryFor(AddGroupHere, path));
    }
}

ComboTreeItem* ComboCommands::CurrentItem() const {
    return m_list.GetTreeItem(m_list.GetCurrentRow());
}

// What new entries are added under: the current item, or its group. That of an entry at the top is the root,
// whose path is empty: the menu then reads "at ''". Kept.
ComboTreeItem* ComboCommands::CurrentGroup() const {
    ComboTreeItem* item = CurrentItem();
    return item && item->IsValue() ? item->GetParent() : item;
}

bool ComboCommands::Run(UINT command) {
    struct CommandRow {
        UINT command;
        void (ComboCommands::*run)();
    };
    static constexpr CommandRow Commands[] = {
        {ComboCommandDataSheet, &ComboCommands::TellDataSheet},
        {ComboCommandAddRootItem, &ComboCommands::AddRootItem},
        {ComboCommandAddRootGroup, &ComboCommands::AddRootGroup},
        {ComboCommandAddItem, &ComboCommands::AddItem},
        {ComboCommandAddGroup, &ComboCommands::AddGroup},
        {ComboCommandDelete, &ComboCommands::Delete},
        {ComboCommandRename, &ComboCommands::Rename},
    };
    for (const CommandRow& row : Commands) {
        if (row.command == command && m_model.Binding().IsOpen()) {
            const ComboTree::KeepItems keep(m_model.Tree());
            (this->*row.run)();
            return true;
        }
    }
    return false;
}

bool ComboCommands::RunByKey(UINT key) {
    if (m_list.GetMode() == eDropDown || !CurrentItem())
        return false;
    if (key == F2Key && IsEnabled(CComboList::eCommandRename, ENF_Rename))
        return Run(ComboCommandRename);
    if (key == VK_DELETE && IsEnabled(CComboList::eCommandDelete, ENF_Delete))
        return Run(ComboCommandDelete);
    return false;
}

void ComboCommands::TellDataSheet() {
    korvel::SendMessageA(m_list.GetOwnerWindow(), WM_COMMAND, ComboCommandDataSheet,
                         reinterpret_cast<LPARAM>(m_list.m_hWnd));
}

void ComboCommands::AddRootItem() {
    if (TakesRootItems())
        AddEntryUnder(m_model.Tree().Root());
}

void ComboCommands::AddRootGroup() {
    if (TakesRootItems())
        AddGroupUnder(m_model.Tree().Root());
}

bool ComboCommands::TakesRootItems() const {
    const BindingWatch bound(m_model.Binding());
    return m_model.Binding().Enumeration()->GetDataType() == DT_String && bound;
}

void ComboCommands::AddItem() {
    if (ComboTreeItem* group = CurrentGroup())
        AddEntryUnder(*group);
}

void ComboCommands::AddGroup() {
    if (ComboTreeItem* group = CurrentGroup())
        AddGroupUnder(*group);
}

void ComboCommands::AddEntryUnder(ComboTreeItem& parent) {
    const BindingWatch bound(m_model.Binding());
    const ComboNames names(m_model);
    const std::string name = names.UniqueNameUnder(parent, m_baseName);
    const std::string path = names.Path(parent);
    if (!bound || !m_model.Tree().Contains(parent))
        return;
    const ComboTreeItem* item = m_model.AddValue(name, path);
    if (item && item->HasRow()) {
        m_list.SetCurrentRow(item->GetRow());
        m_list.RedrawWindow();
    }
}

void ComboCommands::AddGroupUnder(ComboTreeItem& parent) {
    const BindingWatch bound(m_model.Binding());
    const std::string name = ComboNames(m_model).UniqueNameUnder(parent, m_baseName);
    if (!bound || !m_model.Tree().Contains(parent))
        return;
    const ComboTreeItem& group = m_model.InsertGroup(parent, name);
    m_model.ExpandParent(&parent);
    m_list.SetCurrentRow(group.HasRow() ? group.GetRow() : -1);
    m_list.RedrawWindow();
}

void ComboCommands::Delete() {
    if (ComboTreeItem* item = CurrentItem())
        m_model.DestroySubTree(*item);
}

void ComboCommands::Rename() {
    if (CurrentItem())
        m_list.SendMessageA(LVM_EDITLABEL, static_cast<WPARAM>(m_list.GetCurrentRow()));
}

LRESULT ComboCommands::OnBeginLabelEdit(int row) {
    if (!m_list.GetTreeItem(row) || !IsEnabled(CComboList::eCommandRename, ENF_Rename))
        return 1;
    korvel::MoveWindow(m_list.GetEditControl(), m_list.GetRectLabel(row));
    return 0;
}

LRESULT ComboCommands::OnEndLabelEdit(int row, const char* text) {
    ComboTreeItem* item = m_list.GetTreeItem(row);
    if (!item || !text)
        return 0;
    const bool isRenamed = ComboNames(m_model).RenameLabel(*item, text);
    m_list.RedrawWindow();
    return isRenamed;
}

} // namespace korvel::internal
