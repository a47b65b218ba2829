#pragma once

#include "korvel/window/core/cwnd.h"

namespace korvel {

/// The text field: class "EDIT". Sends its parent EN_UPDATE and EN_CHANGE when its text changes (not when the
/// program sets the text of a field of several lines), EN_MAXTEXT when a text does not fit, EN_SETFOCUS and
/// EN_KILLFOCUS with the focus. Places are bytes of the text.
///
///     edit.LimitText(4);
///     edit.SetWindowTextA("abcd");
///     edit.SetSel(1, 3);
///     edit.ReplaceSel("XYZ");     // "aXYd", after EN_MAXTEXT
class KORVEL_API CEdit : public CWnd {
public:
    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);
    /// (0, -1) selects all; a start of -1 selects nothing and puts the caret at the end of the selection.
    /// Beyond the text: its end.
    void SetSel(int start, int end);
    void GetSel(int& start, int& end) const;
    /// EN_MAXTEXT is sent first when the limit leaves no room for all of `text`. Replacing nothing by nothing
    /// changes nothing. Works in read-only and digits-only fields.
    void ReplaceSel(const CString& text);
    /// What typing and ReplaceSel may fill, in bytes of the text; 30000 at first, 0 for 2147483646.
    /// SetWindowTextA ignores the limit.
    void LimitText(int bytes);
    /// Pixels between the border and the text, none at first; EC_USEFONTINFO: half of an average character.
    void SetMargins(unsigned left, unsigned right);
    /// The left one in the low word, the right one in the high word.
    unsigned GetMargins() const;
    /// The user can select and copy, but change nothing.
    void SetReadOnly(bool readOnly);
    /// Whether the text was changed since it was set; not by SetWindowTextA.
    bool GetModify() const;
    void SetModify(bool modified);
};

} // namespace korvel
