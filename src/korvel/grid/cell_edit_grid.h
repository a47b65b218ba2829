#pragma once

#include "korvel/editors/combo_list.h"
#include "korvel/editors/combo_list_hook.h"
#include "korvel/editors/grid_ctrl_combo_box_button.h"
#include "korvel/editors/grid_ctrl_combo_box_edit.h"
#include "korvel/editors/grid_ctrl_date_time.h"
#include "korvel/editors/grid_ctrl_edit.h"
#include "korvel/editors/grid_ctrl_spin_button.h"
#include "korvel/grid/grid_drop_down_notice.h"
#include "korvel/grid/super_grid_ctrl.h"
#include "korvel/values/combo_box_parent.h"
#include "korvel/window/base/list_view.h"

#include <memory>
#include <string>

namespace korvel {

namespace internal {
class EditedMembers;
class WriteFrame;
struct EditDecision;
} // namespace internal

/// The editing of cells in a CEditableGrid, from which grids derive: what a click in a cell means, the
/// controls that open over it, and how an edit ends.
///
///     grid.EndEdit();   // before what is shown is saved, undone or closed: false when a text or name is refused
///
/// One control is open at most. It ends, and its value is written, when the focus leaves it, when its row is
/// scrolled or collapsed out of sight or its column is dragged, and when the grid is cleared, hidden or
/// destroyed; it moves with its row otherwise. A text that is refused stays in the field, which comes back
/// into view with the focus; a second way out with the same text closes the field without writing it. Leaving
/// the program, boxes and dialogs end no text, date or name; a dropped list is written and closed then. A
/// member that the host removes, protects or gives another type while it is edited drops the edit; a renamed
/// one takes it along.
///
/// The controls are made with the window, hidden and disabled, and live as long as it.
class KORVEL_API CellEditGrid : public CSuperGridCtrl {
public:
    ~CellEditGrid() override;

    /// Writes and closes what is being edited, a cell or the name of a row. False when it was refused (a cell
    /// then stays open where it is a text, a name is what it was), and from within a commit: the caller
    /// leaves everything as it is.
    bool EndEdit();
    /// Whether a cell is being edited.
    bool IsEditing() const;
    /// Writes and closes the cell that is being edited.
    void CtrlEnd();
    void CtrlDateEnd() { CtrlEnd(); }

    // For the field, the list and the hook of a drop-down; see IComboBoxParent.
    const int& GetDroppedState() const { return m_DroppedState; }
    /// Does nothing: the grid opens and closes its list by itself.
    void SetDroppedState(int) {}
    void OnArrowKey(bool) {}
    void OnOK();
    void OnCancel();
    /// WM_COMMAND to the parent: `code` in the high word, the control id in the low one, the grid in lParam.
    /// 7 and 8: the list drops and closes; 9 and 10: a choice is taken and given up; 20 and 21: the pointer
    /// leaves the label of a row and rests on it.
    void SendParentComboMessage(UINT code);

    /// The row on whose label the pointer rests; -1: none.
    int GetHighlightItem() const { return m_HighlightItem; }
    /// Begins to wait for the pointer to rest. `row` is kept for callers.
    void StartHilight(int row);
    void StopHilight();

    /// The square of a cell in which values of the type take clicks of their own.
    CRect GetControlRect(int row, int column, EDataTyps type) const;
    /// The cell; empty for no such one.
    CRect GetSubItemRect(int row, int column) const;
    using CSuperGridCtrl::GetSubItemRect;

    bool PreTranslateMessage(MSG& message) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PreSubclassWindow() override;

protected:
    /// May be null; must outlive the grid.
    explicit CellEditGrid(IObserverGrid* observer);
    /// To be called once, when the grid is made; both must outlive its window.
    void SetUpEditing(internal::EditedMembers& members, internal::WriteFrame& frame);

    /// A press in a cell, with the member that it shows; also a key that stands for one. Does what the press
    /// means.
    virtual void OnEdit(CItemInfo* info, int row, int column, CPoint point, IMemberDispatch* disp,
                        const CString& name);
    /// Called before the rows go: writes the cell that is being edited, without a box, and drops what is
    /// refused, and a name that is being typed.
    virtual void CtrlClear();

    // What OnEdit opens. Rectangles are the grid's, in client coordinates.
    void EditCtrlStart(const CRect& rect, IMemberDispatch* disp, const std::string& name);
    /// Closes the list if it is open.
    void EditComboStart(const CRect& rect, IMemberDispatch* disp, const std::string& name);
    void ShowTree(CRect place, IMemberDispatch* disp, const std::string& name);
    void DisplayTree(IMemberDispatch* disp, const std::string& name);
    void HideTree();
    /// Where the list drops: below field and arrow, as high as it may be, on the screen. It then takes whole
    /// rows.
    void CalculateDroppedRect(CRect& rect) const;
    void OnComboListSelOK();
    void CreateEdit();
    void CreateButton();
    void CreateListBox();

    /// Key messages while the list is dropped, and while it is not; 0 drops the message.
    virtual int OnKeyDropdownActive(UINT message, UINT key);
    virtual int OnKeyDropdownInactive(UINT message, UINT key);

    bool IsCellMarked(int row, int column) const override;
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    // Where derived grids tell what happens to members.
    void OnEditedRowsGone();
    void OnEditedMemberRetyped(IMemberDispatch* disp, const std::string& name);
    void OnEditedMemberRenamed(IMemberDispatch* disp, const std::string& name, const std::string& newName);

    int m_DroppedState = 0; ///< 1 while the list is open
    CGridCtrlEdit m_Edit;
    CGridCtrlSpinButton m_Spin;
    CGridCtrlDateTime m_DateTime;
    CComboList m_ComboList{eDropDown};
    CComboBoxParentImp<CellEditGrid> m_ComboParent{this};
    CGridCtrlComboBoxEdit m_ComboEdit{&m_ComboParent};
    CGridCtrlComboBoxButton m_ComboButton;
    CComboListHook<CellEditGrid> m_ComboHook{this, &CellEditGrid::CtrlEnd};
    std::uintptr_t m_HoverTimer = 0; ///< 0: none runs
    int m_HighlightItem = -1;        ///< see GetHighlightItem
    HWND m_ActiveControl = nullptr;  ///< the control with the focus; only compared, so it may be stale

private:
    struct Parts;

    void Complete(view::ListView& list) const;
    void Complete(view::CellView& cell) const;
    void CreateControls();
    void Carry(const internal::EditDecision& decision, IMemberDispatch* disp, const CString& name);
    bool TranslateDropped(const MSG& message);
    bool TranslateKey(const MSG& message);

    std::unique_ptr<Parts> m_parts;
};

} // namespace korvel
