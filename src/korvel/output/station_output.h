#pragma once

#include "korvel/output/format_records.h"
#include "korvel/output/system_change.h"
#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// Positions along an axis, in metres, as the trade writes them: kilometres, "+", metres.
///
///     RailwayStationToString(12345.6);   // "12,3+45,60" under German regional settings
///     RoadStationToString(12345.6);      // "12+345,60"
///     RoadStationToString(-1500.0);      // "-2+500,00": metres count up from the kilometre below; kept
///
/// Decimals are those of the regional settings; numbers are never grouped, and the decimal sign is the one
/// found at the first station of the process. Not-a-number is "+".
KORVEL_API std::string RailwayStationToString(double station);
KORVEL_API std::string RailwayStationToString(float station);
KORVEL_API std::string RoadStationToString(double station);
KORVEL_API std::string RoadStationToString(float station);

/// The service behind these functions.
class CStationOutput final : public ISystemChangedObserverImp<CStationOutput> {
public:
    static CStationOutput& Instance();

    void AppendRailway(std::string& out, double station) const;
    void AppendRailway(std::string& out, float station) const;
    void AppendRoad(std::string& out, double station) const;
    void AppendRoad(std::string& out, float station) const;

    FormatNotification& Notification() { return m_records.Notification(); }
    bool FollowSystem();

private:
    CStationOutput();

    FormatRecords
        m_records; // the first is kept and refreshed only; the second is for double, the third for float
};

} // namespace korvel
