#pragma once

#include "korvel/editors/combo_list.h"
#include "korvel/editors/combo_list_hook.h"
#include "korvel/editors/grid_ctrl_combo_box_button.h"
#include "korvel/editors/grid_ctrl_combo_box_edit.h"
#include "korvel/values/combo_box_parent.h"

namespace korvel::inspector {

/// A field that shows what a value selects, with an arrow, and a list that drops below it to choose anew.
/// Its parts follow its size. It watches its parent, a top-level window, while the list is open.
///
///     ClosedCombo combo;
///     combo.Create({10, 10, 210, 34}, &window, 201);
///     combo.Show(enumeration.Selected({0}));
///     // the window hears WM_COMMAND of 201 with ComboListChanged in the high word, and asks:
///     combo.Value();
///
/// A press, F4, Alt with an arrow, an arrow, or a letter opens the list. Return, F4, a click on an entry, Tab
/// and whatever the user does elsewhere take the choice; Escape takes it back.
class ClosedCombo final : public CWnd {
public:
    ~ClosedCombo() override { DestroyWindow(); } // while it can still take their last messages
    bool Create(const CRect& rect, CWnd* parent, int id);

    /// Closes the list. The enumeration of the value must live until the next call.
    void Show(const CVariantValue& value);
    const CVariantValue& Value() const { return m_value; }

    // For the field and the hook; see IComboBoxParent.
    const int& GetDroppedState() const { return m_dropped; }
    void SetDroppedState(int state);
    void OnArrowKey(bool down);
    void OnOK() { Close(Choice::Taken); }
    void OnCancel() { Close(Choice::Dropped); }
    void CtrlEnd() { Close(Choice::Taken); }
    /// Notifies the parent window.
    void SendParentComboMessage(UINT code);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool PreTranslateMessage(MSG& message) override;

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    enum class Choice { Taken, Dropped };

    void Place();
    void Open();
    void Close(Choice choice);
    bool HandleKey(const MSG& message);
    void PassToList(const MSG& message) {
        m_list.SendMessageA(message.message, message.wParam, message.lParam);
    }

    CComboBoxParentImp<ClosedCombo> m_comboParent{this};
    CGridCtrlComboBoxEdit m_field{&m_comboParent};
    CGridCtrlComboBoxButton m_arrow;
    CComboList m_list{eDropDown};
    CComboListHook<ClosedCombo> m_hook{this, &ClosedCombo::CtrlEnd};
    CVariantValue m_value;
    int m_dropped = 0;
};

} // namespace korvel::inspector
