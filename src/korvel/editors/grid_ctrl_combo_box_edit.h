#pragma once

#include "korvel/values/combo_box_parent.h"
#include "korvel/window/controls/edit.h"

namespace korvel {

class CDC;

/// The field of a closed combo: shows the text of what is chosen and takes no typed text. It paints itself,
/// and sends its parent window EN_SETFOCUS and EN_KILLFOCUS as a text field does.
///
///     CGridCtrlComboBoxEdit field(&comboParent);
///     field.Create(0x40010800, rect, &grid, 108);
///     field.SetWindowTextA("asphalt");
///
/// A press opens or closes the list through IComboBoxParent, the arrow keys go to it as well, and the loss of
/// the focus ends the choice with OnOK. The field enables itself when it gets the focus and disables itself
/// when it loses it.
///
/// Its window is of a class of its own, which every display has paint itself: what CEdit offers to select or
/// change text has no effect.
class KORVEL_API CGridCtrlComboBoxEdit : public CEdit {
public:
    /// Not owned; must outlive the field.
    explicit CGridCtrlComboBoxEdit(IComboBoxParent* parent) : m_pParent(parent) {}

    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    LRESULT Paint(CDC& dc) const;
    void OnPress();
    void OnSetFocus();
    void OnKillFocus();

    IComboBoxParent* m_pParent;
};

} // namespace korvel
