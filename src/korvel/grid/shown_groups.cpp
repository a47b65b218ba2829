#include "korvel/grid/shown_groups.h"

#include <algorithm>

namespace korvel::internal {

grid::CTreeItem* ShownGroups::RowOf(IMemberDispatch* disp) const {
    const auto group = m_groups.find(disp);
    return group == m_groups.end() ? nullptr : group->second.row;
}

void ShownGroups::Enter(IMemberDispatch& disp, CTreeItem& row) {
    if (!m_groups.contains(&disp))
        m_groups.emplace(&disp, Group{m_tree.MakeSink(&disp), &row});
    TellAgain(&disp);
}

bool ShownGroups::TellAgain(IMemberDispatch* disp) {
    const auto group = m_groups.find(disp);
    if (group == m_groups.end())
        return false;
    if (m_observer)
        m_observer->AddSink(disp, group->second.sink.get());
    return true;
}

void ShownGroups::TellAllAgain() {
    std::vector<IMemberDispatch*> shown;
    shown.reserve(m_groups.size());
    for (const auto& [disp, group] : m_groups)
        shown.push_back(disp);
    for (IMemberDispatch* disp : shown)
        TellAgain(disp);
}

ShownGroups::Leaving ShownGroups::Leave(const std::vector<CTreeItem*>& rows) {
    Leaving leaving(m_observer);
    leaving.m_groups.reserve(std::min(rows.size(), m_groups.size()));
    for (const CTreeItem* row : rows) {
        const auto group = m_groups.find(row->info->disp);
        if (group != m_groups.end() && group->second.row == row)
            leaving.m_groups.push_back(m_groups.extract(group));
    }
    return leaving;
}

ShownGroups::Leaving ShownGroups::LeaveAll() {
    Leaving leaving(m_observer);
    leaving.m_groups.reserve(m_groups.size());
    while (!m_groups.empty())
        leaving.m_groups.push_back(m_groups.extract(m_groups.begin()));
    return leaving;
}

std::vector<IMemberDispatch*> ShownGroups::Leaving::GetObjects() const {
    std::vector<IMemberDispatch*> objects;
    objects.reserve(m_groups.size());
    for (const auto& group : m_groups)
        objects.push_back(group.key());
    return objects;
}

void ShownGroups::Leaving::TakeBack(FirstFailure& failure) {
    if (!m_observer)
        return;
    for (auto& group : m_groups)
        failure.Try([&] { m_observer->RemoveSink(group.key(), group.mapped().sink.get()); });
}

} // namespace korvel::internal
