#include "korvel/grid/context_menu.h"

#include "korvel/grid/member_reads.h"
#include "korvel/grid/type_commands.h"
#include "korvel/values/replace_first.h"
#include "korvel/values/text_table.h"
#include "korvel/values/type_names.h"
#include "korvel/window/menu/menu.h"

namespace korvel::internal {

namespace {

constexpr const char* ChangeTypeTitle = "<$1> \xE4ndern in"; // kept: in every language
constexpr const char* ExtraTitle = "Extras"; // the table of texts has none; read in both languages
constexpr int CopyTitle = 81;

struct Entry {
    GridCommand command;
    int text; // id in the table of texts
};

constexpr Entry FileEntries[] = {{GridCommand::OpenFile, 74}, {GridCommand::OpenFolder, 75}};
constexpr Entry CopyEntries[] = {{GridCommand::CopyValue, 77},
                                 {GridCommand::CopyColumn, 78},
                                 {GridCommand::CopyRow, 79},
                                 {GridCommand::CopyTree, 80}};
constexpr Entry DeleteEntry = {GridCommand::RemoveMember, 69};
constexpr Entry RenameEntry = {GridCommand::RenameMember, 70};
constexpr Entry ChangeEntry = {GridCommand::RenameMember, 84};
constexpr Entry ProtectEntry = {GridCommand::ToggleWriteProtection, 71};
constexpr Entry NewEntry = {GridCommand::AddMember, 11};
constexpr Entry FormatsEntry = {GridCommand::ConfigureFormats, 47};

// Appends lines, and separators where they separate something.
class MenuWriter {
public:
    explicit MenuWriter(CMenu& menu) : m_menu(menu) {}

    void Separate() { m_isSeparated = true; }
    void Add(unsigned command, const std::string& text, UINT state = MF_ENABLED) {
        WriteSeparator();
        m_menu.AppendMenuA(MF_STRING | state, command, text);
    }
    void Add(const Entry& entry, UINT state = MF_ENABLED) {
        Add(static_cast<unsigned>(entry.command), Text(entry.text), state);
    }
    template <class Fill>
    void AddPopup(const std::string& text, Fill fill) {
        CMenu popup;
        popup.CreatePopupMenu();
        MenuWriter writer(popup);
        fill(writer);
        if (popup.GetMenuItemCount() == 0)
            return;
        WriteSeparator();
        m_menu.AppendMenuA(MF_STRING, popup, text);
    }

private:
    void WriteSeparator() {
        if (m_isSeparated && m_menu.GetMenuItemCount() > 0)
            m_menu.AppendMenuA(MF_SEPARATOR);
        m_isSeparated = false;
    }

    CMenu& m_menu;
    bool m_isSeparated = false;
};

struct MemberFacts {
    EDataTyps type = DT_Void;
    std::uint32_t flags = 0;
};

// What the host said.
struct Facts {
    MemberFacts member;
    MemberFacts value;
    bool isEditable = true;
    std::uint32_t editFlags = 0;
};

bool ReadFacts(IMemberDispatch& disp, const std::string& name, const TargetWatch& isThere,
               MemberFacts& facts) {
    CVariantValue value;
    ReadMember(disp, name, value);
    facts.type = value.Type;
    if (!isThere)
        return false;
    facts.flags = ReadOr(0u, [&] { return disp.GetMemberFlags(name); });
    return bool(isThere);
}

bool ReadMemberFacts(const MenuTarget& target, const MenuPermissions& allowed, const TargetWatch& isThere,
                     Facts& facts) {
    if (!ReadFacts(*target.owner, target.name, isThere, facts.member))
        return false;
    if (allowed.edit && (facts.member.flags & MF_WriteProtect))
        facts.isEditable = ReadMemberEditable(*target.owner, target.name);
    if (target.value == ChosenMember{target.owner, target.name}) {
        facts.value = facts.member;
        return bool(isThere);
    }
    return isThere &&
           (!target.value || ReadFacts(*target.value.disp, target.value.name, isThere, facts.value));
}

void AddCommands(MenuWriter& menu, const ObjectCommands& commands, ObjectCommands::Line::List list) {
    for (const ObjectCommands::Line& line : commands.Lines())
        if (line.list == list && line.text.empty())
            menu.Separate();
        else if (line.list == list)
            menu.Add(line.number, line.text);
}

void AddTypes(MenuWriter& menu, EDataTyps type) {
    std::string title = ChangeTypeTitle;
    ReplaceFirst(title, "$1", TypeName(type));
    menu.AddPopup(title, [type](MenuWriter& popup) {
        for (const EDataTyps target : ConversionsOf(type))
            popup.Add(static_cast<unsigned>(CommandOfType(target)), TypeName(target));
    });
}

void AddMember(MenuWriter& menu, const MenuTarget& target, const MenuPermissions& allowed,
               const Facts& facts) {
    const std::uint32_t flags = facts.member.flags;
    if (facts.value.flags & MF_File)
        for (const Entry& entry : FileEntries)
            menu.Add(entry);
    menu.Separate();
    if (allowed.copy)
        menu.AddPopup(Text(CopyTitle), [](MenuWriter& popup) {
            for (const Entry& entry : CopyEntries)
                popup.Add(entry);
        });
    if (allowed.remove && (flags & MF_Delete))
        menu.Add(DeleteEntry);
    const bool hasFreeName = target.isGroup ? facts.editFlags & EF_Rename : facts.member.type != DT_Group;
    if (allowed.rename && (flags & (MF_Rename | MF_Change)) && hasFreeName)
        menu.Add(flags & MF_Rename ? RenameEntry : ChangeEntry);
    if (allowed.edit && (flags & MF_WriteProtect)) {
        menu.Separate();
        menu.Add(ProtectEntry, facts.isEditable ? MF_UNCHECKED : MF_CHECKED);
    }
    if (allowed.changeType && (facts.value.flags & MF_ChangeType))
        AddTypes(menu, facts.value.type);
}

} // namespace

bool FillContextMenu(CMenu& menu, const AttributeRows& rows, const MenuTarget& target,
                     const MenuPermissions& allowed) {
    const TargetWatch isThere(rows, target);
    ObjectCommands commands(rows, target);
    Facts facts;
    if (target.owner &&
        (!ReadMemberFacts(target, allowed, isThere, facts) || !commands.AddMember(facts.member.flags)))
        return false;
    if (target.object) {
        facts.editFlags = ReadOr(0u, [&] { return target.object->GetEditFlags(); });
        if (!isThere || !commands.AddObject(facts.editFlags))
            return false;
    }

    using List = ObjectCommands::Line::List;
    MenuWriter writer(menu);
    if (target.owner) {
        AddMember(writer, target, allowed, facts);
        AddCommands(writer, commands, List::Member);
        writer.AddPopup(ExtraTitle,
                        [&](MenuWriter& popup) { AddCommands(popup, commands, List::MemberExtra); });
    }
    if (allowed.add && (facts.editFlags & EF_Add))
        writer.Add(NewEntry);
    AddCommands(writer, commands, List::Object);
    if (allowed.formats) {
        writer.Separate();
        writer.Add(FormatsEntry);
    }
    return true;
}

} // namespace korvel::internal
