#include "korvel/qt/list_surface.h"

#include "korvel/qt/cell_table.h"

#include <utility>

namespace korvel::internal {

ListSurface::ListSurface(QWidget* parent, HWND window, const PeerTable& peers, Asker ask)
    : QWidget(parent), AskedList(window, std::move(ask)), m_peers(peers) {}

ListSurface::~ListSurface() = default;

CellTable& ListSurface::Cells() {
    if (!m_cells)
        m_cells = std::make_unique<CellTable>(*this);
    return *m_cells;
}

void ListSurface::FollowRows(int first, int removed, int inserted) {
    if (m_cells && removed != inserted)
        m_cells->RowsChanged(first, removed, inserted);
}

} // namespace korvel::internal
