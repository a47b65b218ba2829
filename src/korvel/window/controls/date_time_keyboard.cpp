#include "korvel/window/controls/date_time_keyboard.h"

#include <algorithm>

namespace korvel::internal {

namespace {

constexpr int LastOfTwoDigits = 2029; // two digits stand for the hundred years up to this one

bool CanChange(const DateTimeState& control, std::size_t part) {
    const PartRange range = RangeOf(control.parts[part], control.Fields());
    return range.lower <= range.upper;
}

// The part that keys change; none in a picture of literal text.
const DatePart* Selected(DateTimeState& control) {
    const std::size_t count = control.parts.size();
    for (std::size_t step = 0; step < count; ++step) {
        const std::size_t part = (control.selected + step) % count;
        if (!CanChange(control, part))
            continue;
        control.selected = part;
        return &control.parts[part];
    }
    return nullptr;
}

void SelectNext(DateTimeState& control, std::size_t step) {
    const std::size_t count = control.parts.size();
    if (!Selected(control))
        return;
    control.typedDigits = 0;
    do
        control.selected = (control.selected + step) % count;
    while (!CanChange(control, control.selected));
}

void Change(DateTimeState& control, const DatePart& part, int value) {
    if (const auto moment = MomentOf(WithValue(part, control.Fields(), value)))
        ChangeMoment(control, *moment);
}

// Beyond an end of the part it begins at the other one.
void Turn(DateTimeState& control, int step) {
    const DatePart* part = Selected(control);
    if (!part)
        return;
    const PartRange range = RangeOf(*part, control.Fields());
    const int count = range.upper - range.lower + 1;
    const int place = ValueOf(*part, control.Fields()) - range.lower + step;
    control.typedDigits = 0;
    Change(control, *part, range.lower + (place + count) % count);
}

void GoToEnd(DateTimeState& control, bool isUpper) {
    const DatePart* part = Selected(control);
    if (!part)
        return;
    const PartRange range = RangeOf(*part, control.Fields());
    Change(control, *part, isUpper ? range.upper : range.lower);
}

bool MoveInCalendar(DateTimeState& control, UINT key) {
    const DatePart month{DateField::Month, "M"};
    const platform::CalendarFields fields = control.Fields();
    switch (key) {
    case VK_LEFT:
    case VK_RIGHT:
        ChangeMoment(control, control.moment + (key == VK_LEFT ? -1 : 1));
        return true;
    case VK_UP:
    case VK_DOWN:
        ChangeMoment(control, control.moment + (key == VK_UP ? -7 : 7));
        return true;
    case VK_PRIOR:
    case VK_NEXT: {
        const int months = fields.year * 12 + fields.month - 1 + (key == VK_PRIOR ? -1 : 1);
        platform::CalendarFields target = fields;
        target.year = months / 12;
        if (const auto moment = MomentOf(WithValue(month, target, months % 12 + 1)))
            ChangeMoment(control, *moment);
        return true;
    }
    case VK_RETURN:
    case VK_ESCAPE:
        CloseCalendar(control, key == VK_RETURN ? CalendarEnd::Take : CalendarEnd::Cancel);
        return true;
    default:
        return false;
    }
}

bool PressInField(DateTimeState& control, UINT key) {
    switch (key) {
    case VK_LEFT:
        return SelectNext(control, control.parts.size() - 1), true;
    case VK_RIGHT:
        return SelectNext(control, 1), true;
    case VK_UP:
    case VK_ADD:
        return Turn(control, 1), true;
    case VK_DOWN:
    case VK_SUBTRACT:
        return Turn(control, -1), true;
    case VK_HOME:
    case VK_END:
        return GoToEnd(control, key == VK_END), true;
    default:
        return false;
    }
}

bool TogglesCalendar(UINT message, UINT key) {
    return message == WM_SYSKEYDOWN ? key == VK_UP || key == VK_DOWN : key == VK_F4;
}

std::size_t DigitsOf(const DatePart& part) {
    return part.field == DateField::Year && part.letters.size() > 2 ? 4 : 2;
}

int YearOf(int digits) {
    const int year = LastOfTwoDigits / 100 * 100 + digits;
    return year > LastOfTwoDigits ? year - 100 : year;
}

} // namespace

bool IsKeyOfWindow(const DateTimeState& control, UINT message, UINT key) {
    const bool isSpace = key == VK_SPACE && control.HasStyle(DTS_SHOWNONE);
    const bool isBack = key == VK_ESCAPE && control.isDropped;
    return TogglesCalendar(message, key) || (message == WM_KEYDOWN && (isSpace || isBack));
}

bool PressKey(DateTimeState& control, UINT message, UINT key) {
    if (TogglesCalendar(message, key)) {
        if (control.isDropped)
            CloseCalendar(control, CalendarEnd::Take);
        else
            OpenCalendar(control);
        return true;
    }
    if (message == WM_SYSKEYDOWN)
        return false;
    if (key == VK_SPACE && control.HasStyle(DTS_SHOWNONE))
        return ChangeNone(control, !control.isNone), true;
    if (control.isDropped)
        return MoveInCalendar(control, key);
    return PressInField(control, key);
}

bool TypeDigit(DateTimeState& control, char character) {
    const DatePart* part = Selected(control);
    if (character < '0' || character > '9' || !part || part->field == DateField::HalfDay)
        return false;
    const int most = static_cast<int>(DigitsOf(*part));
    if (control.typedDigits == 0 || control.typedDigits == most)
        control.typed = control.typedDigits = 0;
    control.typed = control.typed * 10 + (character - '0');
    ++control.typedDigits;
    const PartRange range = RangeOf(*part, control.Fields());
    if (part->field == DateField::Year) {
        if (control.typedDigits == most && (most == 2 || control.typed >= range.lower))
            Change(control, *part, most == 2 ? YearOf(control.typed) : control.typed);
        return true;
    }
    if (control.typed > range.upper) { // a new number begins
        control.typed = character - '0';
        control.typedDigits = 1;
    }
    if (control.typed >= range.lower)
        Change(control, *part, control.typed);
    return true;
}

} // namespace korvel::internal
