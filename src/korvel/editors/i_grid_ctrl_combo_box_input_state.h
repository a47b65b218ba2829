#pragma once

#include "korvel/platform/export.h"
#include "korvel/window/base/types.h"

namespace korvel {

class ComboTreeItem;

namespace internal {
class ComboView;
struct ComboRowGeometry;
} // namespace internal

/// What a click or a key means in a CComboList. The list makes one state when it is built, by what its
/// enumeration wants, and hands it every mouse and key event; a state knows its list and the current row
/// only.
///
///     list.GetInputState()->GetCurrent();   // the row that keys and commands are about
///
/// An operation may call the host, and the host may end the binding of the list: the state is then detached
/// and does nothing more.
class KORVEL_API IGridCtrlComboBoxInputState {
public:
    /// Takes over the first selected row of the list.
    explicit IGridCtrlComboBoxInputState(internal::ComboView& view);
    /// Clears the highlight of the current row.
    virtual ~IGridCtrlComboBoxInputState();
    IGridCtrlComboBoxInputState(const IGridCtrlComboBoxInputState&) = delete;
    IGridCtrlComboBoxInputState& operator=(const IGridCtrlComboBoxInputState&) = delete;

    // The events of the list, in its client coordinates; keys are VK_*.

    virtual void OnLButtonDown(UINT flags, CPoint point) = 0;
    virtual void OnLButtonUp(UINT, CPoint) {}
    virtual void OnMouseMove(UINT, CPoint) {}
    /// Scrolls, in every state: arrows and wheel are to reach every row, whatever the list shows. The point
    /// is on the screen.
    virtual void OnMouseWheel(UINT flags, short delta, CPoint point);
    virtual void OnLButtonDblClk(UINT, CPoint) {}
    /// The base steps: by a row with the arrows up and down, by a page, to the first or last row.
    virtual void OnKeyDown(UINT key, UINT repeat, UINT flags);
    virtual void OnKeyUp(UINT, UINT, UINT) {}
    /// The space bar means something here, and does not belong to what is typed to find a row.
    virtual bool TakesSpace() const { return false; }
    /// What the keys that move do: goes `delta` rows on, at most to the first or last. The base chooses
    /// nothing.
    virtual void Step(int delta);

    int GetCurrent() const { return m_nCurrent; } ///< -1: none
    /// Moves the highlight; -1 highlights nothing. False, and all stays, when a handler of LVN_ITEMCHANGING
    /// refuses.
    bool SetCurrent(int row);
    /// Rows were added: the current one keeps its item.
    void RowsAdded(int first, int count);
    /// Rows were removed: none is current if the current one is among them.
    void RowsRemoved(int first, int count);
    /// The rows are gone: there is nothing more to do.
    void Detach();

protected:
    /// Null when the host has ended the binding meanwhile.
    internal::ComboView* View() const { return m_view; }
    ComboTreeItem* CurrentItem() const;
    ComboTreeItem* ItemAt(int row) const;
    /// The row at this height, wherever the pointer is in it; -1: none.
    int HitRow(CPoint point) const;

    /// Selects the entry of the current row, and notifies the owner.
    void Apply();
    void SendChanged();
    void SendFinished();
    /// Opens or closes, and repaints the row.
    void ToggleExpanded(ComboTreeItem& item);
    /// Left closes the current item, right opens it.
    void ExpandByKey(UINT key);
    void RedrawAll();
    using Region = CRect (internal::ComboRowGeometry::*)() const;
    /// Whether the point is in this part of the item's row. False also when the host, which is asked for what
    /// the row shows, has detached the state.
    bool Hits(Region region, const ComboTreeItem& item, CPoint point) const;
    /// A press on the tree button opens or closes the item. False elsewhere.
    bool PressTreeButton(ComboTreeItem& item, CPoint point);

private:
    void Highlight(int row, bool highlighted);

    internal::ComboView* m_view;
    struct FormerRow;

    int m_nCurrent = -1;
    FormerRow* m_former = nullptr; // while another row becomes current
};

} // namespace korvel
