#pragma once

#include "korvel/editors/combo_list.h"
#include "korvel/editors/grid_ctrl_combo_box_button.h"
#include "korvel/editors/grid_ctrl_combo_box_edit.h"
#include "korvel/grid/member_commit.h"
#include "korvel/layout/subclass_wnd.h"

namespace korvel::internal {

/// The list that drops from a cell, with the field and the arrow over the cell.
class DropDownSession {
public:
    /// The windows, and the state that the grid shows hosts.
    struct Controls {
        CComboList& list;
        CGridCtrlComboBoxEdit& field;
        CGridCtrlComboBoxButton& arrow;
        CSubclassWnd& hook;      ///< for the grid's parent
        CSubclassWnd& frameHook; ///< for the top-level window, where that is another one
        int& droppedState;
    };
    enum class Choice { Taken, Left };

    DropDownSession(CWnd& grid, const MemberCommit& commit, Controls controls)
        : m_grid(grid), m_commit(commit), m_controls(controls) {}

    bool IsDropped() const { return m_controls.droppedState != 0; }
    /// Field and arrow are over a cell; without a list, when its member could not be read.
    bool IsOpen() const;
    /// Puts field and arrow over a cell, and a dropped list below them.
    void Place(const CRect& cell);
    void ShowField();
    static bool IsPress(const MSG& message);
    /// Field and arrow go with the end of the edit: they must not get the press, which would leave them the
    /// capture.
    bool IsPressOnField(const MSG& message) const;
    /// The wheel, and a press over a dropped list, which are the list's wherever they come. True: it has
    /// them.
    bool TakeMouse(const MSG& message);
    /// What the list is to lie below, on the screen.
    CRect FieldOnScreen() const;
    /// Shows the list from the top edge of `place` (screen) down. Nothing for a member that cannot be read.
    /// \throws Error with an empty text for a value without an enumeration
    void Drop(const CRect& place, IMemberDispatch* disp, const std::string& name);
    /// Closes the list without writing.
    void Hide();
    /// Writes a choice that is taken, and closes everything, whatever that throws. `tells`: the user hears of
    /// what the object throws. False when the object refused the choice.
    bool End(Choice choice, bool tells);
    /// The text of the list's value goes into the field.
    void ShowText();
    void OnRenamed(const std::string& name);

private:
    void ShowInField(const CString& text);
    void HookAround();
    bool Write(bool tells);
    void NotifyDropped(const CString& text) const;

    CWnd& m_grid;
    const MemberCommit& m_commit;
    const Controls m_controls;
    bool m_isHiding = false;
};

} // namespace korvel::internal
