#include "korvel/grid/object_commands.h"

#include "korvel/grid/grid_command.h"
#include "korvel/grid/member_reads.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {

namespace {

constexpr auto FirstNumber = static_cast<unsigned>(GridCommand::FirstObjectCommand);
constexpr auto LastNumber = static_cast<unsigned>(GridCommand::LastObjectCommand);

template <class Ask>
std::list<SCommand> ReadCommands(Ask ask) {
    std::list<SCommand> commands;
    if (!ReadOr(false, [&] { return ask(commands), true; }))
        commands.clear();
    return commands;
}

} // namespace

MenuTarget TargetOf(const grid::CTreeItem* row, int column, const AttributeRows& rows) {
    const ChosenMember member = MemberOf(row, rows);
    if (!member)
        return {.object = rows.GetRoot()};
    IMemberDispatch* group = row->info->disp;
    return {member.disp, member.name, group != nullptr, ValueIn(row, column, rows),
            group ? group : member.disp};
}

bool ObjectCommands::AddMember(std::uint32_t memberFlags) {
    if (!(memberFlags & MF_Commands))
        return true;
    using List = Line::List;
    IMemberDispatch& owner = *m_target.owner;
    const std::string& name = m_target.name;
    auto commands = ReadCommands([&](auto& list) { owner.GetMemberCommands(name, list); });
    if (!m_isThere)
        return false;
    Add(List::Member, commands);
    auto further = ReadCommands([&](auto& list) { owner.GetMemberExtraCommands(name, list); });
    Add(List::MemberExtra, further);
    return bool(m_isThere);
}

bool ObjectCommands::AddObject(std::uint32_t editFlags) {
    if (!(editFlags & EF_Commands))
        return true;
    IMemberDispatch& object = *m_target.object;
    auto commands = ReadCommands([&](auto& list) { object.GetCommands(list); });
    if (!m_isThere)
        return false;
    Add(Line::List::Object, commands);
    auto further = ReadCommands([&](auto& list) { object.GetExtraCommands(list); });
    Add(Line::List::Object, further);
    return bool(m_isThere);
}

void ObjectCommands::Add(Line::List list, std::list<SCommand>& commands) {
    for (SCommand& command : commands) {
        const unsigned number = FirstNumber + m_count;
        if (number > LastNumber)
            return;
        const bool isSeparator = command.text.empty();
        const bool isAfterOne =
            !m_lines.empty() && m_lines.back().list == list && m_lines.back().text.empty();
        if (isSeparator && isAfterOne)
            continue; // a million of them is one
        m_lines.push_back({list, std::move(command.text), command.id, isSeparator ? 0 : number});
        m_count += !isSeparator;
    }
}

const ObjectCommands::Line* ObjectCommands::Find(unsigned number) const {
    const auto found = std::ranges::find_if(
        m_lines, [=](const Line& line) { return !line.text.empty() && line.number == number; });
    return found == m_lines.end() ? nullptr : &*found;
}

void ObjectCommands::Run(const AttributeRows& rows, const MenuTarget& target, unsigned number) {
    const TargetWatch isThere(rows, target);
    ObjectCommands commands(rows, target);
    if (IMemberDispatch* owner = target.owner) {
        const auto flags = ReadOr(0u, [&] { return owner->GetMemberFlags(target.name); });
        if (!isThere || !commands.AddMember(flags))
            return;
        const Line* line = commands.Find(number);
        if (line && line->id != 0) {
            owner->OnMemberCommand(target.name, line->id);
            return;
        }
    }
    IMemberDispatch* object = target.object;
    if (!object)
        return;
    const auto flags = ReadOr(0u, [&] { return object->GetEditFlags(); });
    if (!isThere || !commands.AddObject(flags))
        return;
    const Line* line = commands.Find(number);
    if (line && line->list == Line::List::Object)
        object->OnCommand(line->id);
}

} // namespace korvel::internal
