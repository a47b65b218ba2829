#pragma once

#include "korvel/grid/attribute_rows.h"
#include "korvel/grid/context_menu.h"

#include <memory>
#include <utility>

namespace korvel {
class CellEditGrid;
}

namespace korvel::internal {

class WriteFrame;

/// The context menu over the rows of a grid. Row, column and member for which it was opened are meant until
/// the command that was chosen has run: it comes as a message after the menu, when the rows may be others.
class GridContextMenu {
public:
    /// All must outlive it.
    GridContextMenu(CellEditGrid& grid, const AttributeRows& rows, WriteFrame& frame);
    ~GridContextMenu();
    GridContextMenu(const GridContextMenu&) = delete;
    GridContextMenu& operator=(const GridContextMenu&) = delete;

    // Each ends what is being edited; refused, no menu opens. False where there is nothing to choose: the
    // window then does what it does without a menu. The choice is posted to the grid as WM_COMMAND.
    /// At a point of the client area: selects the row there, and no other one, and focuses the column.
    bool OpenAt(CPoint point, const MenuPermissions& allowed);
    /// Below the selected row, which is scrolled into view; without one at the top.
    bool OpenAtSelection(const MenuPermissions& allowed);
    /// In place of OpenAt, for a press that was refused.
    void SkipPress() { m_hasTakenPress = true; }
    /// For each press first: the release of the one before may have gone elsewhere.
    void BeginPress() { m_hasTakenPress = false; }
    /// Whether a press has opened a menu or was refused, so that its release asks for none; once.
    bool TakeRelease() { return std::exchange(m_hasTakenPress, false); }

    /// To be called with each command before anybody runs it: selects again what a chosen one was about.
    /// False: that is gone or may not be selected, and nothing is to be done.
    bool SelectFor(unsigned command);
    /// Runs a command of the objects for the selected row, beside the rows for the root.
    void RunObjectCommand(unsigned number);

private:
    struct Choice;
    class ArrivalScope;

    void Post(HWND window, const std::shared_ptr<const Choice>& choice) const;
    bool Open(const grid::CTreeItem* node, CPoint client, const MenuPermissions& allowed);
    void Select(int row);
    bool IsThere(const Choice& choice, const grid::CTreeItem*& node) const;

    CellEditGrid& m_grid;
    const AttributeRows& m_rows;
    WriteFrame& m_frame;
    // Of the command that is arriving; null: of none. Shared with those that are on their way.
    const std::shared_ptr<const Choice*> m_arriving;
    bool m_hasTakenPress = false;
};

} // namespace korvel::internal
