#pragma once

#include "korvel/output/format_records.h"
#include "korvel/output/system_change.h"

#include <string>

namespace korvel::internal {

/// The service of man-days; `measures.h` says what it writes. On the thread of the windows.
class CManDaysOutput final : public ISystemChangedObserverImp<CManDaysOutput> {
public:
    static CManDaysOutput& Instance();

    void Append(std::string& out, double value) const;
    void Append(std::string& out, float value) const;

    FormatNotification& Notification() { return m_records.Notification(); }
    bool FollowSystem();

private:
    CManDaysOutput();

    FormatRecords m_records; // the first is for double, the second for float
};

} // namespace korvel::internal
