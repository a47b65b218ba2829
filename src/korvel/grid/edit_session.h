#pragma once

#include "korvel/editors/grid_ctrl_date_time.h"
#include "korvel/editors/grid_ctrl_edit.h"
#include "korvel/editors/grid_ctrl_spin_button.h"
#include "korvel/grid/cell_offsets.h"
#include "korvel/grid/drop_down_session.h"
#include "korvel/grid/super_grid_ctrl.h"
#include "korvel/window/base/list_view.h"

#include <optional>

namespace korvel::internal {

class FirstFailure;

/// What is being edited in a grid, and how it ends. One control is open at most: the text field, with a spin
/// button beside it for a range, the date picker, or the list.
///
/// A text that is refused stays in its field, which gets the focus back, until it is typed anew or a second
/// way out closes the field without writing it. Its row comes back into view where it was scrolled or
/// collapsed out of it.
class EditSession {
public:
    struct Controls {
        CGridCtrlEdit& text;
        CGridCtrlSpinButton& spin;
        CGridCtrlDateTime& date;
        HWND& active; ///< the control with the focus; null: none
    };
    enum class WayOut {
        User, ///< a text that is refused is told and stays
        Gone, ///< the grid goes away: what is refused is dropped, nothing is told. When the user leaves the
              ///< program, the same for a list only; a text is kept
    };

    EditSession(CSuperGridCtrl& grid, EditedMembers& members, const MemberCommit& commit,
                DropDownSession& dropDown, Controls controls);

    bool IsOpen() const;
    /// Whether a text that was refused is over the cell.
    bool IsRefused(int row, int column) const {
        return m_refused && m_member && m_member->column == column && EditedRow() == row;
    }

    /// Nothing while no control is open, and while the row of the member is not shown.
    std::optional<view::CellPlace> EditedCell() const;

    /// Opens the text field; what the object throws when it is read is told, and opens nothing.
    void StartText(const CRect& field, IMemberDispatch* disp, const std::string& name);
    /// Shows the spin button, beside which StartText opens the field.
    void ShowSpin(const CRect& spin, IMemberDispatch* disp, const std::string& name);
    void StartDate(const CRect& field, IMemberDispatch* disp, const std::string& name);
    /// Puts the field of a drop-down over a cell; its list is dropped by the caller.
    void StartList(const CRect& cell, IMemberDispatch* disp, const std::string& name);

    /// Writes and closes what is open. False when it was refused, of which only a text stays open, and from
    /// within a commit of any grid. A member that is protected by now is not written.
    bool End(WayOut way);
    /// The same for a command. The click that brought it counts once: when a press outside has led to a
    /// refusal, the command of that press does not close the field.
    bool EndByCommand();
    /// The control with the focus, or the grid, loses it.
    void OnFocusLost();
    /// Closes what is open without writing; also from within a commit.
    void Drop();
    /// The same for a list only, as Escape does.
    void CancelList();

    /// The user does something new.
    void OnInput() { m_isRefusedByPress = false; }
    /// Rows have gone, and the edited member perhaps with them.
    void OnRowsGone();
    void OnRetyped(IMemberDispatch* disp, const std::string& name);
    void OnRenamed(IMemberDispatch* disp, const std::string& name, const std::string& newName);

private:
    struct EditedMember {
        IMemberDispatch* disp;
        std::string name;
        int column;
        CellOffsets field;
        EDataTyps type = DT_Void; // of a text, as the object said when the edit began
    };

    void WriteStep();
    void OnStepFailed(const std::exception_ptr& stepFailure);
    bool CanWrite() const;
    bool IsEdited(IMemberDispatch* disp, const std::string& name) const;
    void Begin(const CRect& field, IMemberDispatch* disp, const std::string& name);
    void TakeFont(CWnd& control) const;
    void Activate(CWnd& control);
    bool EndAll(WayOut way);
    bool EndText(WayOut way, FirstFailure& failure);
    bool IsTextWritten(WayOut way);
    EDataTyps EditedType() const;
    bool KeepRefused(const CString& text);
    bool EndDate(WayOut way);
    void Close();
    void CloseControl(CWnd& control);
    const grid::CTreeItem* EditedNode() const;
    int EditedRow() const;
    void OpenGroupsAround();
    void FollowCell();
    void PlaceOver(const CRect& cell);

    CSuperGridCtrl& m_grid;
    EditedMembers& m_members;
    const MemberCommit& m_commit;
    DropDownSession& m_dropDown;
    const Controls m_controls;
    std::optional<EditedMember> m_member;
    std::optional<CString> m_refused;       // the text that was refused last
    std::optional<WayOut> m_wayOutInCommit; // which had to wait
    bool m_isRefusedByPress = false;
};

} // namespace korvel::internal
