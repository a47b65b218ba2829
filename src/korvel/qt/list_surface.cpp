#include "korvel/qt/list_surface.h"

#include "korvel/qt/cell_table.h"
#include "korvel/qt/peer_context.h"

namespace korvel::internal {

ListSurface::ListSurface(QWidget* parent, HWND window, PeerContext& context)
    : QWidget(parent), m_window(window), m_context(context) {}

ListSurface::~ListSurface() = default;

const PeerTable& ListSurface::Peers() const {
    return m_context.peers;
}

CellTable& ListSurface::Cells() {
    m_context.areCellsRead = true;
    if (!m_cells)
        m_cells = std::make_unique<CellTable>(*this);
    return *m_cells;
}

void ListSurface::FollowRows(int first, int removed, int inserted) {
    if (m_cells && removed != inserted)
        m_cells->RowsChanged(first, removed, inserted);
}

} // namespace korvel::internal
