#pragma once

#include "korvel/window/base/control_messages.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

/// A slider: class "msctls_trackbar32". Its range is 0 to 100 at first, its line size 1, its page size a
/// fifth of the range until it is set. The position is kept inside of the range, also when the range changes.
///
/// What the user does comes to the parent as WM_HSCROLL (TBS_VERT: WM_VSCROLL) after the position has
/// changed, with TB_* in the low word of wParam and the slider's handle in lParam:
///
///     an arrow key            TB_LINEUP or TB_LINEDOWN, then TB_ENDTRACK when it is released
///     Page Up, Home ...       TB_PAGEUP, TB_PAGEDOWN, TB_TOP, TB_BOTTOM, then TB_ENDTRACK
///     the thumb is dragged    TB_THUMBTRACK with the position in the high word, at the end TB_THUMBPOSITION
///                             and TB_ENDTRACK
///     a press beside it       TB_PAGEUP or TB_PAGEDOWN, then TB_ENDTRACK
///
/// Up and left are towards the lower end. A program that moves the thumb sends nothing.
class KORVEL_API CSliderCtrl : public CWnd {
public:
    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);

    void SetRange(int lower, int upper);
    int GetRangeMin() const;
    int GetRangeMax() const;
    void SetPos(int position);
    int GetPos() const;
    /// From one mark to the next, with TBS_AUTOTICKS.
    void SetTicFreq(int distance);
    /// Both return the former size.
    int SetLineSize(int size);
    int SetPageSize(int size);
};

} // namespace korvel
