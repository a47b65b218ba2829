#pragma once

#include "korvel/window/base/control_messages.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

/// What UDN_DELTAPOS carries: iDelta may be changed; return 1 to refuse.
struct NMUPDOWN {
    NMHDR hdr;
    int iPos = 0;
    int iDelta = 0;
};

/// Two arrows that step a number: class "msctls_updown32". Its range is 100 to 0 at first, so that its upper
/// arrow counts down until a range is set. With UDS_SETBUDDYINT it writes the number to its buddy, and reads
/// it there; with UDS_AUTOBUDDY the buddy is the control made before it; with UDS_ALIGNRIGHT or UDS_ALIGNLEFT
/// it takes its width from that side of the buddy, which becomes narrower; with UDS_ARROWKEYS the buddy's
/// arrow keys step too.
///
/// A step asks the parent by UDN_DELTAPOS first; it then changes position and buddy and sends WM_VSCROLL
/// (UDS_HORZ: WM_HSCROLL) with SB_THUMBPOSITION, at the release of mouse or key with SB_ENDSCROLL. What a
/// program sets sends nothing.
///
///     spin.SetRange32(0, 10);
///     spin.SetPos32(99);        // 10 in the buddy
///     edit.SetWindowTextA("x");
///     spin.GetPos32(&error);    // 10, error: what the buddy shows is no number of the range
class KORVEL_API CSpinButtonCtrl : public CWnd {
public:
    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);

    /// Returns the former one.
    HWND SetBuddy(HWND buddy);
    HWND GetBuddy() const;
    void SetRange32(int lower, int upper);
    void GetRange32(int& lower, int& upper) const;
    /// Returns the former position.
    int SetPos32(int position);
    int GetPos32(bool* error = nullptr) const;
};

} // namespace korvel
