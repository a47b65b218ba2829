#pragma once

#include "korvel/window/base/dc.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

/// The text field: class "EDIT". Tells its parent EN_UPDATE and EN_CHANGE when the text of a single-line
/// field changes, EN_SETFOCUS and EN_KILLFOCUS as the focus comes and goes.
class KORVEL_API CEdit : public CWnd {
public:
    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);
    void SetSel(int start, int end); // (0, -1) selects all
    void GetSel(int& start, int& end) const;
    /// EN_MAXTEXT comes first when the limit leaves no room for all of `text`. Nothing in place of nothing is no
    /// change.
    void ReplaceSel(const CString& text);
    /// What typing and ReplaceSel may fill; 30000 at first, 0 for 2147483646. SetWindowTextA does not mind it.
    void LimitText(int characters);
    void SetReadOnly(bool readOnly);
    bool GetModify() const;
    void SetModify(bool modified);
};

/// Push button, check box, radio button, group box or owner-drawn button: class "BUTTON".
class KORVEL_API CButton : public CWnd {
public:
    bool Create(const CString& text, UINT style, const CRect& rect, CWnd* parent, int id);
    int GetCheck() const;
    void SetCheck(int check);
    /// Called with BS_OWNERDRAW (the reflected WM_DRAWITEM).
    virtual void DrawItem(DRAWITEMSTRUCT* item);

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};

class KORVEL_API CStatic : public CWnd {
public:
    bool Create(const CString& text, UINT style, const CRect& rect, CWnd* parent, int id);
};

} // namespace korvel
