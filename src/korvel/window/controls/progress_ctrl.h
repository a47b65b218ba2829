#pragma once

#include "korvel/window/base/control_messages.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

/// A progress bar: class "msctls_progress32". Its range is 0 to 100 and its step 10 at first; the position is
/// kept inside of the range, also when the range changes. A range from a higher number down to a lower one
/// holds the lower number alone. It has no notices.
///
///     bar.SetRange32(0, 100);
///     bar.SetPos(95);      // 0, the former position
///     bar.StepIt();        // 95; the bar has begun anew and is at 5
///
/// With PBS_MARQUEE it shows no position, but that something goes on, while SetMarquee has it on.
class KORVEL_API CProgressCtrl : public CWnd {
public:
    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);

    /// Returns the former range: its numbers as 16 bits each, the lower one in the low word.
    LPARAM SetRange32(int lower, int upper);
    void GetRange(int& lower, int& upper) const;
    /// These four return what was before.
    int SetPos(int position);
    int OffsetPos(int delta);
    int SetStep(int step);
    int StepIt();
    int GetPos() const;
    /// `milliseconds` is for the display, whose own pace counts.
    void SetMarquee(bool on, int milliseconds = 0);
};

} // namespace korvel
