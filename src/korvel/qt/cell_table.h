#pragma once

#include "korvel/qt/row_changes.h"
#include "korvel/window/base/list_view.h"

#include <QAccessible>
#include <QObject>
#include <vector>

namespace korvel::internal {

class CellInterface;
class ListSurface;

/// The interfaces of the cells of one list that somebody has asked for. A cell keeps its interface while rows
/// come and go around it, and loses it with its row. They are kept by their ids, as Qt may delete them first.
///
/// An interface that has lost its row is deleted from the event loop, never inside a question.
class CellTable {
public:
    /// More than this are not kept: the half that was asked for first goes then. Twice what a list counts as its
    /// children, so that a client that asks for all of them may keep them.
    static constexpr std::size_t MostKept = 1 << 17;

    explicit CellTable(ListSurface& surface) : m_surface(surface) {}
    ~CellTable();
    CellTable(const CellTable&) = delete;
    CellTable& operator=(const CellTable&) = delete;

    /// The interface of a cell or title, made where there is none; null for no such cell.
    QAccessibleInterface* At(view::CellPlace place);
    void RowsChanged(int first, int removed, int inserted);
    /// Gives the kept interfaces their present rows.
    void Follow();
    std::size_t Count() const { return m_kept.size(); }

private:
    struct Kept {
        view::CellPlace at;
        QAccessible::Id id;
        unsigned number; // grows from one to the next that was asked for
    };

    static CellInterface* InterfaceOf(const Kept& kept);
    std::vector<Kept>::iterator Find(view::CellPlace place);
    void DropOlderHalf();
    void End(const Kept& kept);
    void DeleteEndedSoon();
    void DeleteEnded();

    ListSurface& m_surface;
    std::vector<Kept> m_kept; // in the order of their places
    RowChanges m_changes;     // not followed yet
    unsigned m_nextNumber = 0;
    std::vector<QAccessible::Id> m_ended; // to be deleted
    bool m_isDeletionPending = false;
    QObject m_context; // of the call that deletes them
};

} // namespace korvel::internal
