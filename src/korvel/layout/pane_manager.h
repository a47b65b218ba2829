#pragma once

#include "korvel/layout/item.h"

#include <boost/smart_ptr/shared_ptr.hpp>
#include <list>

namespace korvel {

/// A row or a column of a layout, which may have a control of its own around it (a group box).
///
///     auto* root = new CPaneManager(0, ItemGrowX | ItemGrowY);   // a column
///     root->SetRect(clientRect);
///     auto* buttons = new CPaneManager(1, ItemGrowX);            // a row at its end
///     buttons->Add(new CBaseItem(m_hWnd, IDOK, 0));
///     root->Add(new CBaseItem(m_hWnd, IDC_LIST, ItemGrowX | ItemGrowY));
///     root->Add(buttons);   // only now: a pane takes its rectangle from the children that it has
///     root->MoveTo({0, 0, cx, cy});
///
/// What the pane gains goes in equal parts to the children that grow along its axis, and the remainder to
/// nobody.
///
/// Three things are not symmetric, and are kept because layouts were designed with them:
/// - ItemAlignRight of the pane itself sets its left edge to its stored width, wherever it is handed; a pane
///   that sticks to the right of a wide window begins at that coordinate.
/// - In a row, children that do not grow downward move down with the gained height whatever their flags say;
///   in a column, ItemAlignLeft keeps a child from moving to the right.
/// - A child's alignment refers to the rectangle handed to the pane, not to the one that the pane took of it.
class KORVEL_API CPaneManager : public IItem {
public:
    /// `flow`: 1 for a row, 0 for a column. With a `parent` and a `controlId` the pane has that control's
    /// rectangle, and moves it; without, the one around its children.
    CPaneManager(int flow, UINT layoutFlags, HWND parent = nullptr, int controlId = -1);

    /// Takes the item over (null: nothing) and captures its rectangle. Returns this pane, so that calls nest.
    /// An item that throws is deleted, and the pane is as before.
    CPaneManager* Add(IItem* child);

    /// One move for each item, the pane's own control before its children. Allocates nothing. A handler of a
    /// moved window may destroy other windows, but must leave the tree, and so the window that it belongs to.
    void MoveTo(const RECT& target) override;
    /// Without a control: the union of the children's stored rectangles, without those after the first that
    /// are empty. Without children it stays.
    void CaptureRect() override;
    const RECT* GetRect() override { return &rect; }
    void SetRect(const RECT& design) override { rect = design; }
    IItem* FindItem(int wanted) override;
    /// For each child; the pane's own control and rectangle stay. The same with ShiftKeep.
    void Shift(int dx, int dy) override;
    void ShiftKeep(int dx, int dy) override;

    int orientation;
    HWND hParent;
    int id;
    int growCountX = 0; // children that stretch, of a row
    int growCountY = 0; // of a column
    std::list<boost::shared_ptr<IItem>> children;
    RECT rect; // zero until it is set or captured
};

} // namespace korvel
