#pragma once

#include "korvel/qt/asked_list.h"

#include <QWidget>
#include <memory>

namespace korvel::internal {

class CellTable;
class PeerTable;

/// The widget on which a list is painted. Screen readers and test tools find the list by it: the class is what
/// ListInterface::Make looks for.
class ListSurface final : public QWidget, public AskedList {
public:
    ListSurface(QWidget* parent, HWND window, const PeerTable& peers, Asker ask);
    ~ListSurface() override;

    /// Among them those of the controls over the list.
    const PeerTable& Peers() const { return m_peers; }
    /// What is known of the cells that somebody has asked for.
    CellTable& Cells();
    /// See IDisplay::RowsChanged. Costs nothing while nobody has asked for a cell.
    void FollowRows(int first, int removed, int inserted);

private:
    const PeerTable& m_peers;
    std::unique_ptr<CellTable> m_cells;
};

} // namespace korvel::internal
