#pragma once

#include "korvel/platform/export.h"
#include "korvel/window/base/types.h"

namespace korvel {

class CComboList;
class ComboTreeItem;

/// What a click or a key means in a CComboList. The list makes one state when it is built, by what its
/// enumeration wants, and hands it every mouse and key event; a state knows its list and the current row
/// only.
///
/// An operation may call the host, and the host may end the binding of the list: the state is then detached
/// and does nothing more.
class KORVEL_API IGridCtrlComboBoxInputState {
public:
    /// Takes over the first selected row of the list.
    explicit IGridCtrlComboBoxInputState(CComboList& list);
    /// Clears the highlight of the current row.
    virtual ~IGridCtrlComboBoxInputState();
    IGridCtrlComboBoxInputState(const IGridCtrlComboBoxInputState&) = delete;
    IGridCtrlComboBoxInputState& operator=(const IGridCtrlComboBoxInputState&) = delete;

    virtual void OnLButtonDown(UINT flags, CPoint point) = 0;
    virtual void OnLButtonUp(UINT, CPoint) {}
    virtual void OnMouseMove(UINT, CPoint) {}
    /// Scrolls, in every state: arrows and wheel are to reach every row, whatever the list shows.
    virtual void OnMouseWheel(UINT flags, short delta, CPoint point);
    virtual void OnLButtonDblClk(UINT, CPoint) {}
    /// The base steps with the arrows up and down.
    virtual void OnKeyDown(UINT key, UINT repeat, UINT flags);
    virtual void OnKeyUp(UINT, UINT, UINT) {}
    /// The space bar means something here, and does not belong to what is typed to find a row.
    virtual bool TakesSpace() const { return false; }
    /// What the arrows up and down do: by `delta` rows, held within the list.
    virtual void Step(int delta) = 0;

    int GetCurrent() const { return m_nCurrent; } ///< -1: none
    /// Moves the highlight; -1 highlights nothing.
    void SetCurrent(int row);
    /// The list has other rows: the current one keeps its item.
    void RowsCame(int first, int count);
    void RowsWent(int first, int count);
    /// The rows are gone: there is nothing more to do.
    void Detach();

protected:
    /// Null when the host has ended the binding meanwhile.
    CComboList* List() const { return m_pList; }
    ComboTreeItem* CurrentItem() const;
    ComboTreeItem* ItemAt(int row) const;
    /// The row at this height, wherever the pointer is in it; -1: none.
    int HitRow(CPoint point) const;

    enum class ApplyMode { No, Yes };
    void Move(int delta, ApplyMode apply);
    /// Selects what the current row stands for, and tells the owner.
    void Apply();
    void SendChanged();
    void SendFinished();
    /// Opens or closes, and repaints the row.
    void ToggleExpanded(ComboTreeItem& item);
    /// Left closes the current item, right opens it.
    void ExpandByKey(UINT key);
    /// A part of the item's row. False also when the host, who is asked where it stands, has detached the
    /// state.
    using Region = CRect (CComboList::*)(const ComboTreeItem& item) const;
    bool Hits(Region region, const ComboTreeItem& item, CPoint point) const;
    /// A press where the tree button stands opens or closes the item. False elsewhere.
    bool PressTreeButton(ComboTreeItem& item, CPoint point);

private:
    void Highlight(int row, bool highlighted);

    CComboList* m_pList;
    int m_nCurrent = -1;
};

} // namespace korvel
