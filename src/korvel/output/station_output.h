#pragma once

#include "korvel/output/format_records.h"
#include "korvel/output/system_change.h"

#include <string>

namespace korvel::internal {

/// The service of stations; `stations.h` says what it writes. On the thread of the windows.
class CStationOutput final : public ISystemChangedObserverImp<CStationOutput> {
public:
    static CStationOutput& Instance();

    void AppendRailway(std::string& out, double station) const;
    void AppendRailway(std::string& out, float station) const;
    void AppendRoad(std::string& out, double station) const;
    void AppendRoad(std::string& out, float station) const;

    /// Of double and float stations.
    void SetDigits(std::uint32_t digits);

    /// Between whole numbers and decimals of stations.
    static const std::string& DecimalSign();

    FormatNotification& Notification() { return m_records.Notification(); }
    bool FollowSystem();

private:
    CStationOutput();

    // The first is kept and refreshed only; the second is for double, the third for float.
    FormatRecords m_records;
};

} // namespace korvel::internal
