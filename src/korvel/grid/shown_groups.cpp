#include "korvel/grid/shown_groups.h"

#include <vector>

namespace korvel::internal {

grid::CTreeItem* ShownGroups::RowOf(IMemberDispatch* disp) const {
    const auto place = m_places.find(disp);
    return place == m_places.end() ? nullptr : place->second->row;
}

void ShownGroups::Enter(IMemberDispatch& disp, CTreeItem& row) {
    if (!m_places.contains(&disp)) {
        Groups added;
        added.push_back({&disp, &row, m_tree.MakeSink(&disp)});
        m_places.emplace(&disp, added.begin());
        m_groups.splice(m_groups.end(), added);
    }
    TellAgain(&disp);
}

bool ShownGroups::TellAgain(IMemberDispatch* disp) {
    const auto place = m_places.find(disp);
    if (place == m_places.end())
        return false;
    if (m_observer)
        m_observer->AddSink(disp, place->second->sink.get());
    return true;
}

void ShownGroups::TellAllAgain() {
    std::vector<IMemberDispatch*> shown;
    shown.reserve(m_places.size());
    for (const auto& [disp, place] : m_places)
        shown.push_back(disp);
    for (IMemberDispatch* disp : shown)
        TellAgain(disp);
}

ShownGroups::Leaving ShownGroups::LeaveNone() const {
    return Leaving(m_observer);
}

ShownGroups::Leaving ShownGroups::LeaveAll() {
    Leaving leaving(m_observer);
    while (!m_places.empty())
        Leave(m_places.begin()->first, leaving);
    return leaving;
}

void ShownGroups::Leave(IMemberDispatch* disp, Leaving& leaving) {
    const auto place = m_places.find(disp);
    leaving.m_groups.splice(leaving.m_groups.end(), m_groups, place->second);
    m_places.erase(place);
}

void ShownGroups::Leaving::TakeBack(FirstFailure& failure) {
    if (!m_observer)
        return;
    for (const Group& group : m_groups)
        failure.Try([&] { m_observer->RemoveSink(group.disp, group.sink.get()); });
}

} // namespace korvel::internal
