#include "korvel/editors/grid_ctrl_date_time.h"

#include "korvel/platform/calendar.h"
#include "korvel/platform/raised_flag.h"
#include "korvel/window/base/loss_watch.h"
#include "korvel/window/display/window_view.h"

#include <chrono>
#include <utility>

namespace korvel {

using namespace internal;

namespace {

constexpr const char* ValidState = "GDT_VALID";
constexpr const char* NoneState = "GDT_NONE";

SYSTEMTIME TimeOf(const platform::CalendarFields& fields) {
    const auto word = [](int value) { return static_cast<std::uint16_t>(value); };
    return {word(fields.year), word(fields.month),  word(fields.weekday), word(fields.day),
            word(fields.hour), word(fields.minute), word(fields.second),  0};
}

// None for a state without a date, and for a day that is in no calendar.
std::optional<SYSTEMTIME> TimeOf(const CVariantValue& value) {
    if (value.Text != ValidState)
        return std::nullopt;
    const auto fields = platform::FieldsFromDate(value.Value.Double);
    return fields ? std::optional(TimeOf(*fields)) : std::nullopt;
}

// Midnight: a field that shows no time must not hide one.
SYSTEMTIME Today() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now).count();
    auto fields = platform::LocalFieldsFromEpoch(seconds).value_or(platform::CalendarFields());
    fields.hour = fields.minute = fields.second = 0;
    return TimeOf(fields);
}

enum class DateRead { None, NoValue, Value };

// A member without a value yet reads as a date that is not set, so that it can be given its first.
DateRead ReadDate(IMemberDispatch& disp, const std::string& name, const LossWatch& bound,
                  CVariantValue& value) {
    if (disp.GetMember(name, value))
        return value.Type == DT_Date ? DateRead::Value : DateRead::None;
    value = {};
    value.Text = NoneState;
    const bool isDate = bound && disp.GetMemberType(name, value.Type) && value.Type == DT_Date;
    return isDate ? DateRead::NoValue : DateRead::None;
}

double DateOf(const SYSTEMTIME& time) {
    const auto date = platform::DateFromFields(
        {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond});
    return date.value_or(0);
}

} // namespace

void CGridCtrlDateTime::Start(IMemberDispatch* disp, const std::string& name) {
    const std::string member = name; // may be the picker's own
    Drop();
    const LossWatch bound(m_bindings);
    CVariantValue value;
    const bool isDate = disp && ReadDate(*disp, member, bound, value) != DateRead::None;
    if (!bound)
        return;
    m_pDisp = disp;
    m_strName = member;
    if (isDate)
        Show(value);
    m_unchanged = ReadChoice();
}

void CGridCtrlDateTime::Drop() {
    ++m_bindings;
    m_pDisp = nullptr;
    m_strName.clear();
}

void CGridCtrlDateTime::Show(const CVariantValue& value) {
    const auto time = TimeOf(value);
    if (time && SetTime(*time))
        return;
    SetTime(Today());
    SetNone();
}

CGridCtrlDateTime::Choice CGridCtrlDateTime::ReadChoice() const {
    Choice choice;
    choice.flag = GetTime(choice.time);
    return choice;
}

bool CGridCtrlDateTime::End() {
    IMemberDispatch* disp = m_pDisp;
    if (m_isInEnd || !disp || !m_hWnd)
        return true;
    const RaisedFlag ending(m_isInEnd);
    const LossWatch bound(m_bindings);
    const std::string name = m_strName;
    CVariantValue value;
    const DateRead read = ReadDate(*disp, name, bound, value);
    if (read == DateRead::None || !bound || !m_hWnd)
        return true;
    const Choice choice = ReadChoice();
    if (choice == m_unchanged) {
        if (read == DateRead::NoValue)
            return true;
    } else {
        value.Text = choice.flag == GDT_VALID ? ValidState : NoneState;
        if (choice.flag == GDT_VALID)
            value.Value.Double = DateOf(choice.time);
    }
    if (!disp->SetMember(name, value))
        return false;
    if (!bound)
        return true; // the object need not live any longer
    m_unchanged = choice;
    if (m_pObserver)
        m_pObserver->OnChange(disp, nullptr, name, value);
    return true;
}

LRESULT CGridCtrlDateTime::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_KEYDOWN:
        if ((wParam != VK_RETURN && wParam != VK_ESCAPE) || view::Date(m_hWnd).isDropped)
            break;
        if (wParam == VK_ESCAPE && m_options.Has(EGridOption::EscapeCancels))
            Drop(); // the parent hears of the focus, and finds no edit
        korvel::SetFocus(korvel::GetParent(m_hWnd));
        return 0;
    case WM_GETDLGCODE:
        return CDateTimeCtrl::WindowProc(message, wParam, lParam) | DLGC_WANTARROWS | DLGC_WANTALLKEYS;
    case WM_SETFOCUS: {
        const LRESULT result = CDateTimeCtrl::WindowProc(message, wParam, lParam);
        m_bFocused = true;
        return result;
    }
    case WM_KILLFOCUS: {
        const LRESULT result = CDateTimeCtrl::WindowProc(message, wParam, lParam);
        OnKillFocus(reinterpret_cast<HWND>(wParam));
        return result;
    }
    default:
        break;
    }
    return CDateTimeCtrl::WindowProc(message, wParam, lParam);
}

void CGridCtrlDateTime::OnKillFocus(HWND taker) {
    const auto calendar = reinterpret_cast<HWND>(SendMessageA(DTM_GETMONTHCAL));
    const bool isOwn = calendar && taker == calendar;
    if (!isOwn && std::exchange(m_bFocused, false))
        NotifyParentCommand(m_hWnd, EN_KILLFOCUS);
}

bool CGridCtrlDateTime::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const UINT code = message == WM_NOTIFY ? reinterpret_cast<const NMHDR*>(lParam)->code : 0;
    switch (code) {
    case DTN_DROPDOWN:
    case DTN_DATETIMECHANGE:
        *result = 0;
        NotifyParentCommand(m_hWnd, GridDateChanged);
        return true;
    case DTN_CLOSEUP:
        *result = 0;
        return true;
    default:
        return CDateTimeCtrl::OnChildNotify(message, wParam, lParam, result);
    }
}

} // namespace korvel
