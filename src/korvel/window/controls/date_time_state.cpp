#include "korvel/window/controls/date_time_state.h"

#include "korvel/platform/first_failure.h"
#include "korvel/window/controls/date_time_ctrl.h"
#include "korvel/window/core/window_changes.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace korvel::internal {

namespace {

constexpr int FirstYear = 1601;
constexpr double FirstMoment = -109205;       // 1 January 1601
constexpr double LastMoment = 2958465.999988; // the last second of 9999

double MomentOfDate(double date) {
    const double day = std::trunc(date);
    return day + std::abs(date - day);
}

double DateOfMoment(double moment) {
    const double day = std::floor(moment);
    return day < 0 ? day - (moment - day) : moment;
}

double Inside(const DateTimeState& control, double moment) {
    return std::clamp(moment, control.first.value_or(FirstMoment), control.last.value_or(LastMoment));
}

double Now() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now).count();
    const auto fields = platform::LocalFieldsFromEpoch(seconds);
    return fields ? MomentOf(*fields).value_or(0) : 0;
}

CString WithCentury(CString picture) {
    const auto at = picture.find("yy");
    if (at != CString::npos && picture.compare(at, 4, "yyyy") != 0)
        picture.insert(at, "yy");
    return picture;
}

CString PictureOfStyle(const DateTimeState& control) {
    if ((control.record.style & DTS_TIMEFORMAT) == DTS_TIMEFORMAT)
        return control.settings.timePicture;
    switch (control.record.style & DTS_FORMATMASK) {
    case DTS_LONGDATEFORMAT:
        return control.settings.longDatePicture;
    case DTS_SHORTDATECENTURYFORMAT:
        return WithCentury(control.settings.shortDatePicture);
    default:
        return control.settings.shortDatePicture;
    }
}

void Show(DateTimeState& control) {
    CString text;
    for (const DatePart& part : control.parts)
        text += TextOf(part, control.Fields(), control.settings.names);
    control.record.text = std::move(text);
    TellDisplay(control.record, Aspect::State | Aspect::Text);
}

void TellChange(const DateTimeState& control) {
    NMDATETIMECHANGE notice;
    notice.dwFlags = control.isNone ? GDT_NONE : GDT_VALID;
    notice.st = control.isNone ? SYSTEMTIME() : TimeOf(control.moment, control.milliseconds);
    NotifyParent(control.record.handle, DTN_DATETIMECHANGE, notice.nmhdr);
}

void Tell(const DateTimeState& control, UINT code) {
    NMHDR notice;
    NotifyParent(control.record.handle, code, notice);
}

} // namespace

DateTimeState::DateTimeState(WindowRecord& window) : record(window), moment(Now()) {}

platform::CalendarFields DateTimeState::Fields() const {
    return platform::FieldsFromDate(DateOfMoment(moment)).value_or(platform::CalendarFields());
}

view::DateView DateTimeState::Date() const {
    return {DateOfMoment(moment),
            DateOfMoment(first.value_or(FirstMoment)),
            DateOfMoment(last.value_or(LastMoment)),
            isNone,
            isDropped,
            picture};
}

void DateTimeState::Value(double value) {
    if (std::isnan(value))
        return ChangeNone(*this, true);
    if (!platform::FieldsFromDate(value))
        return;
    if (!isNone)
        return ChangeMoment(*this, MomentOfDate(value));
    moment = Inside(*this, MomentOfDate(value)); // told together with the end of "no date"
    ChangeNone(*this, false);
}

void DateTimeState::Dropped(bool isOpen) {
    if (isOpen)
        OpenCalendar(*this);
    else
        CloseCalendar(*this, CalendarEnd::Take);
}

std::optional<double> MomentOf(const platform::CalendarFields& fields) {
    const auto date = fields.year < FirstYear ? std::nullopt : platform::DateFromFields(fields);
    return date ? std::optional(MomentOfDate(*date)) : std::nullopt;
}

std::optional<double> MomentOf(const SYSTEMTIME& time) {
    if (time.wMilliseconds > 999)
        return std::nullopt;
    return MomentOf(
        platform::CalendarFields{time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond});
}

SYSTEMTIME TimeOf(double moment, std::uint16_t milliseconds) {
    const auto fields = platform::FieldsFromDate(DateOfMoment(moment)).value_or(platform::CalendarFields());
    const auto word = [](int value) { return static_cast<std::uint16_t>(value); };
    return {word(fields.year), word(fields.month),  word(fields.weekday), word(fields.day),
            word(fields.hour), word(fields.minute), word(fields.second),  milliseconds};
}

void SetPicture(DateTimeState& control, const CString& picture) {
    control.settings = platform::ReadRegionalSettings();
    control.picture = picture.empty() ? PictureOfStyle(control) : picture;
    control.parts = PartsOf(control.picture);
    control.selected = 0;
    control.typedDigits = 0;
    Show(control);
}

void SetMoment(DateTimeState& control, double moment) {
    control.moment = moment;
    Show(control);
}

void SetNone(DateTimeState& control, bool isNone) {
    control.isNone = isNone;
    control.typedDigits = 0;
    TellDisplay(control.record, Aspect::State);
}

void ChangeMoment(DateTimeState& control, double moment) {
    moment = Inside(control, moment);
    if (control.isNone || moment == control.moment)
        return TellDisplay(control.record, Aspect::State); // which may show another one
    control.milliseconds = 0;
    SetMoment(control, moment);
    TellChange(control);
}

void ChangeNone(DateTimeState& control, bool isNone) {
    if (control.isNone == isNone || !control.HasStyle(DTS_SHOWNONE))
        return TellDisplay(control.record, Aspect::State);
    SetNone(control, isNone);
    Show(control);
    TellChange(control);
}

void OpenCalendar(DateTimeState& control) {
    if (control.isDropped || control.isNone || control.HasStyle(DTS_UPDOWN))
        return;
    control.isDropped = true;
    control.momentAtDrop = control.moment;
    FirstFailure failure;
    failure.Try([&] { Tell(control, DTN_DROPDOWN); });
    TellDisplay(control.record, Aspect::State);
    failure.Rethrow();
}

void CloseCalendar(DateTimeState& control, CalendarEnd end) {
    if (!std::exchange(control.isDropped, false))
        return;
    TellDisplay(control.record, Aspect::State);
    FirstFailure failure;
    if (end == CalendarEnd::Cancel)
        failure.Try([&] { ChangeMoment(control, control.momentAtDrop); });
    failure.Try([&] { Tell(control, DTN_CLOSEUP); });
    failure.Rethrow();
}

} // namespace korvel::internal
