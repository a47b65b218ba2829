#pragma once

#include "korvel/platform/regional_settings.h"
#include "korvel/window/base/control_messages.h"
#include "korvel/window/controls/date_parts.h"
#include "korvel/window/controls/system_time.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"

#include <optional>

namespace korvel::internal {

/// The state of a date control. Its moments are days since 30 December 1899 with the time added, so that they
/// are in order also before that day, where the dates of platform/calendar.h are not.
class DateTimeState : public ControlState {
public:
    explicit DateTimeState(WindowRecord& window);

    view::Kind Kind() const override { return view::Kind::Date; }
    view::DateView Date() const override;
    void Value(double value) override;
    void Dropped(bool isOpen) override;

    bool HasStyle(UINT bits) const { return (record.style & bits) != 0; }
    platform::CalendarFields Fields() const;

    WindowRecord& record;
    platform::RegionalSettings settings; // as they were when the picture was chosen
    CString picture;
    std::vector<DatePart> parts;
    double moment = 0;
    std::uint16_t milliseconds = 0;
    std::optional<double> first; // of the range
    std::optional<double> last;
    bool isNone = false;
    bool isDropped = false;
    double momentAtDrop = 0;  // what Escape brings back
    std::size_t selected = 0; // the part that keys change
    int typed = 0;            // the digits typed there so far, and how many
    int typedDigits = 0;
};

/// Nothing when there is no such moment, or in a year before 1601.
std::optional<double> MomentOf(const platform::CalendarFields& fields);
std::optional<double> MomentOf(const SYSTEMTIME& time);
SYSTEMTIME TimeOf(double moment, std::uint16_t milliseconds = 0);
/// An empty picture stands for that of the style.
void SetPicture(DateTimeState& control, const CString& picture);
/// Shows a moment; no notice.
void SetMoment(DateTimeState& control, double moment);
void SetNone(DateTimeState& control, bool isNone);
/// The same by the user, inside of the range: DTN_DATETIMECHANGE where it is another one.
void ChangeMoment(DateTimeState& control, double moment);
void ChangeNone(DateTimeState& control, bool isNone);

enum class CalendarEnd { Take, Cancel };
void OpenCalendar(DateTimeState& control);
void CloseCalendar(DateTimeState& control, CalendarEnd end);

} // namespace korvel::internal
