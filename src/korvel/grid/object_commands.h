#pragma once

#include "korvel/grid/chosen_member.h"
#include "korvel/grid/object_watch.h"

#include <cstdint>
#include <list>
#include <string>
#include <vector>

namespace korvel::internal {

/// What a context menu is about: a member, and the object whose commands follow those of the member.
struct MenuTarget {
    IMemberDispatch* owner = nullptr; // of the member; null: beside all rows
    std::string name{};
    bool isGroup = false;
    ChosenMember value{}; // what is opened and retyped: the member, in columns that of the cell
    IMemberDispatch* object =
        nullptr; // that of a group, else the owner; beside the rows the root. Null: none
};
/// `row` may be null: beside all rows. `column` is the one that was clicked.
MenuTarget TargetOf(const grid::CTreeItem* row, int column, const AttributeRows& rows);

/// Says whether all that a menu is about is still shown.
class TargetWatch {
public:
    TargetWatch(const AttributeRows& rows, const MenuTarget& target)
        : m_hasOwner(target.owner), m_owner(rows, target.owner), m_hasObject(target.object),
          m_object(rows, target.object) {}

    explicit operator bool() const { return (!m_hasOwner || m_owner) && (!m_hasObject || m_object); }

private:
    const bool m_hasOwner;
    const ObjectWatch m_owner;
    const bool m_hasObject;
    const ObjectWatch m_object;
};

/// The commands that objects put into a context menu, with the numbers that they have in it: read alike for
/// the menu and for the number that comes back from it.
///
/// Those of the member come first, then its further ones, those of the object, and its further ones. They are
/// numbered in this order, without the separators; what goes beyond GridCommand::LastObjectCommand is left
/// out. A list is asked for only where the flags of its member or object allow. Objects that throw have none.
class ObjectCommands {
public:
    struct Line {
        enum class List { Member, MemberExtra, Object };
        List list;
        std::string text; // empty: a separator
        std::uint32_t id; // as the object knows it
        unsigned number;  // in the menu
    };

    /// Both must outlive it.
    ObjectCommands(const AttributeRows& rows, const MenuTarget& target)
        : m_target(target), m_isThere(rows, target) {}

    // Each adds to the lines. False: the host has taken away what the menu is about, and no more may be asked.
    bool AddMember(std::uint32_t memberFlags);
    bool AddObject(std::uint32_t editFlags);

    const std::vector<Line>& Lines() const { return m_lines; }
    /// Null for a number that no line has.
    const Line* Find(unsigned number) const;

    /// Runs a command by its number. Kept: one of a member with the id 0 runs nothing; one of an object runs with
    /// any id.
    static void Run(const AttributeRows& rows, const MenuTarget& target, unsigned number);

private:
    void Add(Line::List list, std::list<SCommand>& commands);

    const MenuTarget& m_target;
    const TargetWatch m_isThere;
    std::vector<Line> m_lines;
    unsigned m_count = 0;
};

} // namespace korvel::internal
