#include "korvel/window/controls/date_time_ctrl.h"

#include <array>

namespace korvel {

bool CDateTimeCtrl::Create(UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, "SysDateTimePick32", "", style, rect, parent, id);
}

UINT CDateTimeCtrl::GetTime(SYSTEMTIME& time) const {
    return static_cast<UINT>(SendMessageA(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)));
}

bool CDateTimeCtrl::SetTime(const SYSTEMTIME& time) {
    return SendMessageA(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time)) != 0;
}

bool CDateTimeCtrl::SetNone() {
    return SendMessageA(DTM_SETSYSTEMTIME, GDT_NONE) != 0;
}

void CDateTimeCtrl::SetFormat(const char* picture) {
    SendMessageA(DTM_SETFORMAT, 0, reinterpret_cast<LPARAM>(picture));
}

bool CDateTimeCtrl::SetRange(const SYSTEMTIME* first, const SYSTEMTIME* last) {
    const std::array<SYSTEMTIME, 2> range = {first ? *first : SYSTEMTIME(), last ? *last : SYSTEMTIME()};
    const UINT flags = (first ? GDTR_MIN : 0u) | (last ? GDTR_MAX : 0u);
    return SendMessageA(DTM_SETRANGE, flags, reinterpret_cast<LPARAM>(range.data())) != 0;
}

void CDateTimeCtrl::CloseMonthCal() {
    SendMessageA(DTM_CLOSEMONTHCAL);
}

} // namespace korvel
