#include "korvel/qt/cell_table.h"

#include "korvel/qt/cell_interface.h"
#include "korvel/qt/list_surface.h"
#include "korvel/window/display/window_view.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace korvel::internal {

namespace {

// So many changes that do not adjoin are followed at once, as each makes the next one dearer; fewer wait until
// somebody asks, as following goes over all kept cells.
constexpr std::size_t MostChanges = 1024;

} // namespace

CellTable::~CellTable() {
    for (const Kept& kept : m_kept)
        QAccessible::deleteAccessibleInterface(kept.id);
    for (const QAccessible::Id id : m_ended)
        QAccessible::deleteAccessibleInterface(id);
}

CellInterface* CellTable::InterfaceOf(const Kept& kept) {
    return static_cast<CellInterface*>(QAccessible::accessibleInterface(kept.id));
}

std::vector<CellTable::Kept>::iterator CellTable::Find(view::CellPlace place) {
    return std::ranges::lower_bound(
        m_kept, std::tie(place.row, place.column), {},
        [](const Kept& kept) { return std::tie(kept.at.row, kept.at.column); });
}

QAccessibleInterface* CellTable::At(view::CellPlace place) {
    const auto cell = m_surface.Cell(place);
    if (!cell)
        return nullptr;
    Follow(); // after the list was asked, which may have changed rows
    DeleteEndedSoon();
    auto found = Find(place);
    if (found != m_kept.end() && found->at == place) {
        CellInterface* known = InterfaceOf(*found);
        if (known && known->IsOf(*cell))
            return known;
        End(*found);
        m_kept.erase(found);
    }
    if (m_kept.size() >= MostKept)
        DropOlderHalf();
    auto* made = new CellInterface(m_surface, *cell);
    m_kept.insert(Find(place), {place, QAccessible::registerAccessibleInterface(made), m_nextNumber++});
    return made;
}

void CellTable::RowsChanged(int first, int removed, int inserted) {
    if (m_kept.empty())
        return;
    m_changes.Add(first, removed, inserted);
    if (m_changes.Count() > MostChanges)
        Follow();
}

void CellTable::Follow() {
    if (m_changes.Count() == 0)
        return;
    const RowChanges changes = std::exchange(m_changes, {});
    const auto hasGone = [&](Kept& kept) {
        const auto row = kept.at.row == view::TitleRow ? kept.at.row : changes.Follow(kept.at.row);
        if (!row)
            return End(kept), true;
        kept.at.row = *row;
        if (CellInterface* moved = InterfaceOf(kept))
            moved->MoveTo(kept.at);
        return false;
    };
    std::erase_if(m_kept, hasGone); // the order of the rest stays
}

void CellTable::DropOlderHalf() {
    const unsigned oldest = m_nextNumber - static_cast<unsigned>(m_kept.size());
    const unsigned half = oldest + static_cast<unsigned>(m_kept.size() / 2);
    std::erase_if(m_kept, [&](const Kept& kept) { return kept.number < half && (End(kept), true); });
}

void CellTable::End(const Kept& kept) {
    if (CellInterface* ended = InterfaceOf(kept))
        ended->End();
    m_ended.push_back(kept.id);
    DeleteEndedSoon();
}

void CellTable::DeleteEndedSoon() {
    if (!m_ended.empty() && !std::exchange(m_isDeletionPending, true))
        QMetaObject::invokeMethod(
            &m_context, [this] { DeleteEnded(); }, Qt::QueuedConnection);
}

// The event loop may be one that the host runs inside a question: then they wait for the next question.
void CellTable::DeleteEnded() {
    m_isDeletionPending = false;
    if (m_surface.IsAsked())
        return;
    for (const QAccessible::Id id : std::exchange(m_ended, {}))
        QAccessible::deleteAccessibleInterface(id);
}

} // namespace korvel::internal
