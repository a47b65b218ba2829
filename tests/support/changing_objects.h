#pragma once

#include "support/fakes.h"
#include "support/plain_tree.h"

#include <algorithm>
#include <deque>
#include <random>

namespace korvel::internal {

/// Objects that change at random and say so. Nested ones are made as they are needed, and stand in one place.
class ChangingObjects {
public:
    explicit ChangingObjects(PlainTree& tree) : m_tree(tree) { Make(); }

    HostObject& GetRoot() { return m_objects.front(); }
    void Change() {
        HostObject& object = m_objects[Below(std::min<std::size_t>(m_objects.size(), 12))];
        std::list<std::string> names;
        object.GetMemberNames(names);
        if (names.empty() || Below(2) == 0) {
            const std::string name = "m" + std::to_string(m_nextName++);
            const CVariantValue value = Below(4) == 0 ? Group(&Make()) : Whole(DT_Int, m_nextName);
            object.AddMember(name, true, value);
            m_tree.rows.Add(&object, name, value);
            return;
        }
        const std::string name = *std::next(names.begin(), static_cast<int>(Below(names.size())));
        CVariantValue value;
        object.GetMember(name, value);
        switch (Below(3)) {
        case 0:
            object.RemoveMember(name);
            m_tree.rows.Remove(&object, name);
            break;
        case 1:
            object.SetMember(name, value.Type == DT_Group ? value : Whole(DT_Int, m_nextName));
            object.GetMember(name, value);
            m_tree.rows.Change(&object, name, value);
            break;
        default:
            if (value.Type == DT_Group)
                value.Value.Dispatch->SetEditFlags(EF_Rename);
            const std::string newName = "n" + std::to_string(m_nextName++);
            object.RenameMember(name, newName);
            m_tree.rows.Rename(&object, name, newName);
        }
    }

    /// What the rows are to be, as the objects have it.
    static Lines LinesOf(HostObject& object, const std::string& indent = "") {
        Lines lines;
        std::list<std::string> names;
        object.GetMemberNames(names);
        for (const std::string& name : names) {
            CVariantValue value;
            object.GetMember(name, value);
            const bool isGroup = value.Type == DT_Group;
            lines.push_back(indent + name + "|" + (isGroup ? "" : value.ToText()));
            if (!isGroup)
                continue;
            const Lines below = LinesOf(static_cast<HostObject&>(*value.Value.Dispatch), indent + " ");
            lines.insert(lines.end(), below.begin(), below.end());
        }
        return lines;
    }

private:
    std::size_t Below(std::size_t bound) { return m_random() % bound; }
    HostObject& Make() { return m_objects.emplace_back("object"); }

    PlainTree& m_tree;
    std::mt19937 m_random{5};
    std::deque<HostObject> m_objects;
    int m_nextName = 0;
};

} // namespace korvel::internal
