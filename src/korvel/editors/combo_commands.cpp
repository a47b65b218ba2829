#include "korvel/editors/combo_commands.h"

#include "korvel/editors/combo_names.h"
#include "korvel/values/replace_first.h"
#include "korvel/values/text_table.h"

namespace korvel::internal {

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

bool ComboCommands::MayDelete(const ComboTreeItem* item) const {
    return item && IsEnabled(eCommandDelete, ENF_Delete);
}

bool ComboCommands::MayRename(const ComboTreeItem* item) const {
    return item && IsEnabled(eCommandRename, ENF_Rename);
}

void ComboCommands::TrackMenu(CPoint point) {
    CListCtrl& control = m_view.Control();
    control.SetFocus();
    const int row = control.HitTest(point);
    if (row != -1)
        m_input.SetCurrentRow(row);
    const std::vector<MenuEntry> menu = BuildMenu(m_view.ItemAt(row));
    if (!menu.empty())
        Run(Display().TrackMenu(control.m_hWnd, ClientToScreen(control.m_hWnd, point), menu));
}

std::vector<MenuEntry> ComboCommands::BuildMenu(const ComboTreeItem* item) const {
    std::vector<MenuEntry> menu;
    if (IsEnabled(eCommandAdd, ENF_Add))
        AddEntriesForAdding(menu);
    if (MayDelete(item))
        menu.push_back(EntryFor(DeleteThis, item->GetLabel()));
    if (MayRename(item))
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
        const std::string path = ComboNames(m_model).Path(*group);
        menu.push_back(EntryFor(AddValueHere, path));
        menu.push_back(EntryFor(AddGroupHere, path));
    }
}

ComboTreeItem* ComboCommands::CurrentItem() const {
    return m_view.ItemAt(m_input.CurrentRow());
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
        {ComboCommandDataSheet, &ComboCommands::PassOnDataSheet},
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
    if (m_view.IsDropDown())
        return false;
    return (key == VK_F2 && MayRename(CurrentItem()) && Run(ComboCommandRename)) ||
           (key == VK_DELETE && MayDelete(CurrentItem()) && Run(ComboCommandDelete));
}

void ComboCommands::PassOnDataSheet() {
    SendMessageA(m_view.Owner(), WM_COMMAND, ComboCommandDataSheet,
                 reinterpret_cast<LPARAM>(m_view.Control().m_hWnd));
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
    const LossWatch bound = m_model.Binding().Watch();
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
    const LossWatch bound = m_model.Binding().Watch();
    const ComboNames names(m_model);
    const std::string name = names.UniqueNameUnder(parent, m_baseName);
    const std::string path = names.Path(parent);
    if (!bound || !m_model.Tree().Contains(parent))
        return;
    const ComboTreeItem* item = m_model.AddValue(name, path);
    if (item && item->HasRow())
        m_input.SetCurrentRow(item->GetRow());
}

void ComboCommands::AddGroupUnder(ComboTreeItem& parent) {
    const LossWatch bound = m_model.Binding().Watch();
    const std::string name = ComboNames(m_model).UniqueNameUnder(parent, m_baseName);
    if (!bound || !m_model.Tree().Contains(parent))
        return;
    const ComboTreeItem& group = m_model.InsertGroup(parent, name);
    m_model.ExpandParent(&parent);
    m_input.SetCurrentRow(group.HasRow() ? group.GetRow() : -1);
}

void ComboCommands::Delete() {
    if (ComboTreeItem* item = CurrentItem())
        m_model.DestroySubTree(*item);
}

void ComboCommands::Rename() {
    if (CurrentItem())
        m_view.Control().SendMessageA(LVM_EDITLABEL, static_cast<WPARAM>(m_input.CurrentRow()));
}

LRESULT ComboCommands::OnBeginLabelEdit(int row) {
    const auto geometry = MayRename(m_view.ItemAt(row)) ? m_view.GeometryOf(row) : std::nullopt;
    if (geometry)
        MoveWindow(m_view.Control().GetEditControl(), geometry->Label());
    return geometry ? 0 : 1;
}

LRESULT ComboCommands::OnEndLabelEdit(int row, const char* text) {
    ComboTreeItem* item = m_view.ItemAt(row);
    if (!item || !text)
        return 0;
    const bool isRenamed = ComboNames(m_model).RenameLabel(*item, text);
    m_view.Control().RedrawWindow();
    return isRenamed;
}

} // namespace korvel::internal
