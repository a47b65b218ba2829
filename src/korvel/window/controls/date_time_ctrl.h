#pragma once

#include "korvel/window/base/control_messages.h"
#include "korvel/window/controls/system_time.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

/// What DTN_DATETIMECHANGE carries.
struct NMDATETIMECHANGE {
    NMHDR nmhdr;
    UINT dwFlags = GDT_VALID; // or GDT_NONE
    SYSTEMTIME st;
};

/// A field for a date or a time: class "SysDateTimePick32". It starts with the present moment and shows it as
/// the regional settings have it: the short date, with DTS_LONGDATEFORMAT the long one, with DTS_TIMEFORMAT
/// the time, with DTS_SHORTDATECENTURYFORMAT the short date with four digits for the year. The text of the
/// window is what it shows. Years 1601 to 9999.
///
///     CDateTimeCtrl date;
///     date.Create(WS_CHILD | WS_VISIBLE | DTS_SHOWNONE, {0, 0, 120, 24}, &dialog, 9);
///     date.SetFormat("yyyy-MM-dd");
///     date.SetTime({2026, 3, 0, 4});
///     date.GetWindowTextA();          // "2026-03-04"
///
/// The user's changes send DTN_DATETIMECHANGE, the calendar (F4, Alt with an arrow, the button) DTN_DROPDOWN
/// and DTN_CLOSEUP. What a program sets sends nothing. The calendar takes no focus and is no window:
/// DTM_GETMONTHCAL returns null.
class KORVEL_API CDateTimeCtrl : public CWnd {
public:
    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);

    /// GDT_VALID, or GDT_NONE and `time` as it was.
    UINT GetTime(SYSTEMTIME& time) const;
    /// False, and nothing changed: no such moment, or out of the range.
    bool SetTime(const SYSTEMTIME& time);
    /// "No date"; false without DTS_SHOWNONE.
    bool SetNone();
    /// A picture as in platform/regional_settings.h, with literal text between apostrophes; null: the one of
    /// the style.
    void SetFormat(const char* picture);
    /// What the user and SetTime can choose from; null: no limit. The time moves to the nearest end. False,
    /// and nothing changed, for a moment that does not exist and for an end before the beginning.
    bool SetRange(const SYSTEMTIME* first, const SYSTEMTIME* last);
    void CloseMonthCal();
};

} // namespace korvel
