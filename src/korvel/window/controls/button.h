#pragma once

#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/dc.h"

namespace korvel {

/// Push button, check box, radio button, group box or owner-drawn button: class "BUTTON".
class KORVEL_API CButton : public CWnd {
public:
    bool Create(const CString& text, UINT style, const CRect& rect, CWnd* parent, int id);
    /// 1: checked, 0: not.
    int GetCheck() const;
    /// Sends no notice. Checking a radio button unchecks the others of its group.
    void SetCheck(int check);
    /// Called with BS_OWNERDRAW (the reflected WM_DRAWITEM).
    virtual void DrawItem(DRAWITEMSTRUCT* item);

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};

} // namespace korvel
