#pragma once

#include "korvel/editors/combo_list.h"
#include "korvel/editors/combo_list_hook.h"
#include "korvel/editors/grid_ctrl_date_time.h"
#include "korvel/editors/grid_ctrl_edit.h"
#include "korvel/values/member_dispatch_imp.h"

namespace korvel {

class CFont; // of the host

namespace internal {
class ItemKeyboard;
struct ItemCell;
} // namespace internal

/// One value of any type in a dialog: it looks like the cell of a grid, and a press opens what edits it.
///
///     CWndItem item;
///     item.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER, {10, 10, 160, 34}, &dialog, 12);
///     item.SetValue(length);
///     ...
///     item.End();       // what is being typed is read, or refused by an exception
///     item.GetValue();
///
/// In a dialog's template its class is "KorvelItem", to be attached by SubclassDlgItem.
///
/// A press toggles a flag, asks for a color or a file, drops the list of an enumeration (a second one closes
/// it), shows the field for a text or the picker for a date; on the button at the right edge it changes the
/// unit of angles or draws a random number. With the keyboard, F2 does what a press in the value does, and so
/// does Space but for texts; F4 and Alt+Down drop a list or show the picker; what is typed, also by an input
/// method, begins a text. Tab goes to the next control of the dialog. A date shows its picker at first, and
/// as a text after the picker has lost the focus.
///
/// Under EscapeCancels, Escape gives up what is being edited.
///
/// The parent hears CBN_SELCHANGE when a press has changed the value at once, CBN_DROPDOWN and CBN_CLOSEUP,
/// as SendParentComboMessage sends them. A text that is no such value leaves the field by an exception when
/// the field loses the focus, and stays in it; the value stays as well. Where the item is hidden,
/// disabled or destroyed, such a text is dropped, and any other is read. While a box, a dialog or another
/// program has the focus, the field waits for it.
///
/// Enumeration and file value must outlive the item; those of its last value are destroyed with it where they
/// say IsAutoDestroy. The host may do anything in what is called of it but delete the item.
class KORVEL_API CWndItem : public CWnd {
public:
    CWndItem();
    ~CWndItem() override;

    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);

    /// Shows another value; what is being edited is dropped.
    void SetValue(const CVariantValue& value);
    const CVariantValue& GetValue() const { return m_Value; }
    void SetOptions(GridOptions options);

    /// Ends what is being edited and reads it. \throws what the field refuses; it goes on with its text then
    void End();
    /// Ends it without reading.
    void Drop();
    /// Without effect for a value without an enumeration, and while the list is open.
    void DropDown();
    void CloseUp();
    bool IsDropped() const { return m_isDropped; }

    /// WM_COMMAND to the parent with `code` in the high word.
    void SendParentComboMessage(UINT code);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool PreTranslateMessage(MSG& message) override;
    void PreSubclassWindow() override;

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

    CFont* m_pFont = nullptr; ///< of WM_SETFONT; lent, and passed on to the editors
    CVariantValue m_Value;
    CGridCtrlEdit m_Edit{nullptr};
    CComboList m_List{eDropDown};
    CGridCtrlDateTime m_DateTime;
    CRect m_rcText;            ///< where texts are typed, beside the margins of the field
    CWnd* m_pActive = nullptr; ///< the field or the picker while it is shown
    /// An object called "t" with the one member "Member", which is the value.
    TMemberDispatchImp<CWndItem> m_Dispatch{"t"};

private:
    friend class internal::ItemKeyboard;

    internal::ItemCell Cell() const;
    void Synchronize();
    void ShowEditor(CWnd& editor);
    void HideEditor();
    void Place();
    void PassFontOn(CWnd& editor) const;
    void StartText();
    void StartDate();
    void EndText();
    void EndDate();
    void OnEditorLeft();
    void EndUncorrected();
    void Change(const CVariantValue& value);
    void TakeFromList();

    void Press(CPoint point);
    void PressButton();
    void Edit();
    void ChangeAtOnce();
    void FollowWindow(UINT message, WPARAM wParam);

    CComboListHook<CWndItem> m_hook{this, &CWndItem::CloseUp};
    GridOptions m_options;
    CVariantValue m_valueBefore; // what Escape puts back, of a list or date
    bool m_isDropped = false;
    unsigned m_values = 0; // counts those that were set
};

} // namespace korvel
