#include "korvel/grid/shown_objects.h"

#include <utility>
#include <vector>

namespace korvel::internal {

grid::CTreeItem* ShownObjects::RowOf(IMemberDispatch* disp) const {
    const auto place = m_places.find(disp);
    return place == m_places.end() ? nullptr : place->second->row;
}

ShownObjects::Place ShownObjects::PlaceOf(IMemberDispatch* disp) const {
    if (disp && disp == m_root)
        return {true, nullptr};
    CTreeItem* row = disp ? RowOf(disp) : nullptr;
    return {row != nullptr, row};
}

void ShownObjects::TellRoot() {
    if (!m_observer)
        return;
    m_isRootTold = true;
    m_observer->AddSink(m_root, m_rootSink.get());
}

void ShownObjects::Enter(IMemberDispatch& disp, CTreeItem& row) {
    if (!m_places.contains(&disp)) {
        Groups added;
        added.push_back({&disp, &row, m_tree.MakeSink(&disp)});
        m_places.emplace(&disp, added.begin());
        m_groups.splice(m_groups.end(), added);
    }
    TellAgain(&disp);
}

bool ShownObjects::TellAgain(IMemberDispatch* disp) {
    const auto place = m_places.find(disp);
    if (place == m_places.end())
        return false;
    if (m_observer)
        m_observer->AddSink(disp, place->second->sink.get());
    return true;
}

void ShownObjects::TellAllAgain() {
    std::vector<IMemberDispatch*> shown;
    shown.reserve(m_places.size());
    for (const auto& [disp, place] : m_places)
        shown.push_back(disp);
    for (IMemberDispatch* disp : shown)
        TellAgain(disp);
}

void ShownObjects::TellWithoutSink(IMemberDispatch& disp) {
    if (m_observer)
        m_observer->AddSink(&disp, nullptr);
}

ShownObjects::Leaving ShownObjects::LeaveNone() const {
    return Leaving(m_observer);
}

ShownObjects::Leaving ShownObjects::LeaveAll() {
    Leaving leaving(m_observer);
    while (!m_places.empty())
        Leave(m_places.begin()->first, leaving);
    leaving.m_root = std::exchange(m_root, nullptr);
    leaving.m_rootSink = m_rootSink.get();
    leaving.m_isRootLeaving = std::exchange(m_isRootTold, false);
    return leaving;
}

void ShownObjects::Leave(IMemberDispatch* disp, Leaving& leaving) {
    const auto place = m_places.find(disp);
    leaving.m_groups.splice(leaving.m_groups.end(), m_groups, place->second);
    m_places.erase(place);
}

void ShownObjects::Leaving::TakeBack(FirstFailure& failure) {
    if (!m_observer)
        return;
    for (const Group& group : m_groups)
        failure.Try([&] { m_observer->RemoveSink(group.disp, group.sink.get()); });
    if (m_isRootLeaving)
        failure.Try([&] { m_observer->RemoveSink(m_root, m_rootSink); });
}

} // namespace korvel::internal
