#pragma once

#include "korvel/window/base/control_messages.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

/// A list of texts with one current entry: class "COMBOBOX". CBS_DROPDOWNLIST shows the current entry,
/// CBS_DROPDOWN and CBS_SIMPLE have a text field above the list, the child with the id 1001; the list of
/// CBS_SIMPLE is always open. But for CBS_SIMPLE the window is as high as one line: the height that it is
/// given is that of line and open list together.
///
///     CComboBox box;
///     box.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_SORT, {0, 0, 120, 200}, &dialog, 7);
///     box.AddString("pear");          // 0
///     box.AddString("Apple");         // 0: sorted, whatever the case
///     box.InsertString(-1, "fig");    // 2: an insertion does not sort
///     box.SetCurSel(9);               // -1, and nothing is changed
///
/// What a program asks for sends no notice, but for CBN_DROPDOWN and CBN_CLOSEUP of ShowDropDown. The user's
/// acts send, in this order:
///
///     a key that moves, list closed    CBN_SELENDOK, CBN_SELCHANGE
///     a key that moves, list open      CBN_SELCHANGE
///     the list opens                   CBN_DROPDOWN
///     Return, F4; an entry is chosen   CBN_SELENDOK, CBN_CLOSEUP, and CBN_SELCHANGE for another entry
///     Escape                           CBN_SELENDCANCEL, CBN_CLOSEUP, with the former entry; where none was
///                                      current and one is now, with the text that was there
///     the focus leaves                 CBN_SELENDCANCEL, CBN_CLOSEUP if it was open, CBN_KILLFOCUS
///     typing in the text field         CBN_EDITUPDATE, CBN_EDITCHANGE, and no entry is current
class KORVEL_API CComboBox : public CWnd {
public:
    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);

    int GetCount() const;
    /// The number of the new entry. With CBS_SORT it is put in order, without at the end.
    int AddString(const CString& text);
    /// -1: at the end. CB_ERR beyond it.
    int InsertString(int index, const CString& text);
    /// How many entries are left, or CB_ERR. Without the current entry none is current; the text field keeps
    /// its text.
    int DeleteString(int index);
    void ResetContent();

    /// CB_ERR when no entry is current.
    int GetCurSel() const;
    /// The entry that is current now. -1 makes none current and returns CB_ERR; beyond the end nothing
    /// changes.
    int SetCurSel(int index);
    /// The next entry after `after` (-1: the first), going round, that begins with the text or is the text,
    /// whatever the case of letters. CB_ERR: none, or an empty text.
    int FindString(int after, const CString& text) const;
    int FindStringExact(int after, const CString& text) const;
    /// FindString and SetCurSel. CB_ERR changes nothing.
    int SelectString(int after, const CString& text);

    /// Empty when there is no such entry.
    CString GetLBText(int index) const;
    /// CB_ERR when there is no such entry, here and below.
    int GetLBTextLen(int index) const;
    LPARAM GetItemData(int index) const;
    int SetItemData(int index, LPARAM data);

    /// Of the text field; false without one.
    bool LimitText(int bytes);
    /// Places in the low and the high word, as EM_GETSEL; CB_ERR without a text field.
    LPARAM GetEditSel() const;
    bool SetEditSel(int start, int end);

    /// Nothing with CBS_SIMPLE.
    void ShowDropDown(bool show = true);
    bool GetDroppedState() const;
};

} // namespace korvel
