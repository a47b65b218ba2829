#include "korvel/output/stations.h"

#include "korvel/output/station_output.h"

namespace korvel {

namespace {

using internal::CStationOutput;

template <typename Real>
std::string TextOf(void (CStationOutput::*append)(std::string&, Real) const, Real station) {
    std::string text;
    (CStationOutput::Instance().*append)(text, station);
    return text;
}

} // namespace

std::string RailwayStationToString(double station) {
    return TextOf(&CStationOutput::AppendRailway, station);
}
std::string RailwayStationToString(float station) {
    return TextOf(&CStationOutput::AppendRailway, station);
}
std::string RoadStationToString(double station) {
    return TextOf(&CStationOutput::AppendRoad, station);
}
std::string RoadStationToString(float station) {
    return TextOf(&CStationOutput::AppendRoad, station);
}

void SetStationDigits(std::uint32_t digits) {
    CStationOutput::Instance().SetDigits(digits);
}

} // namespace korvel
