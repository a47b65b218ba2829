#include "korvel/output/station_output.h"

#include "korvel/output/stream_text.h"
#include "korvel/platform/code_page.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvel::internal {

namespace {

enum StationRecord : std::size_t { KeptRecord, DoubleRecord, FloatRecord };

constexpr int RailwayKilometreDecimals = 1;
constexpr int RailwayMetreWidth = 2;
constexpr int RoadKilometreDecimals = 0;
constexpr int RoadMetreWidth = 3;
constexpr int NoWidth = 0;

int DigitsOf(const NumberFormat& format) {
    return static_cast<int>(std::min<std::uint64_t>(format.NumDigits, LongestNumberText));
}

// Of the whole part, before the rounding to decimals: 9.99 with no decimals is "10", yet counts as one digit.
int WholeDigits(double value) {
    const double whole = std::trunc(std::abs(value));
    if (!(whole <= std::numeric_limits<std::int32_t>::max()))
        return std::numeric_limits<std::int32_t>::digits10 + 1;
    int count = 1;
    for (auto rest = static_cast<std::int32_t>(whole); rest >= 10; rest /= 10)
        ++count;
    return count;
}

void AppendStationPart(std::string& out, double value, int decimals, int width) {
    if (std::isnan(value))
        return;
    if (value < 0)
        out += '-';
    if (const int missing = width - WholeDigits(value); width > 0 && missing > 0)
        out.append(static_cast<std::size_t>(missing), '0');
    const std::size_t begin = out.size();
    AppendFixedText(out, std::abs(value), decimals);
    if (const std::size_t point = out.find('.', begin); point != std::string::npos)
        out.replace(point, 1, CStationOutput::DecimalSign());
}

template <typename Real>
void AppendRailwayStation(std::string& out, Real station, const NumberFormat& format) {
    const Real kilometres = std::floor(station / Real{100}) / Real{10};
    AppendStationPart(out, kilometres, RailwayKilometreDecimals, NoWidth);
    out += '+';
    AppendStationPart(out, std::abs(station - kilometres * Real{1000}), DigitsOf(format), RailwayMetreWidth);
}

template <typename Real>
void AppendRoadStation(std::string& out, Real station, const NumberFormat& format) {
    const Real kilometres = std::floor(station / Real{1000});
    AppendStationPart(out, kilometres, RoadKilometreDecimals, NoWidth);
    out += '+';
    AppendStationPart(out, std::abs(station - kilometres * Real{1000}), DigitsOf(format), RoadMetreWidth);
}

} // namespace

CStationOutput::CStationOutput()
    : m_records(FormatService::Station, {SystemFormat::Integer, SystemFormat::Float, SystemFormat::Float}) {}

CStationOutput& CStationOutput::Instance() {
    static CStationOutput output;
    return output;
}

// The first character of the separator. Read once: a later change of the regional settings does not reach the
// stations.
const std::string& CStationOutput::DecimalSign() {
    static const std::string sign = [] {
        const std::string& separator = SystemSettings().decimalSeparator;
        return separator.empty() ? "." : separator.substr(0, platform::NextCharacter(separator, 0));
    }();
    return sign;
}

void CStationOutput::AppendRailway(std::string& out, double station) const {
    AppendRailwayStation(out, station, m_records[DoubleRecord]);
}

void CStationOutput::AppendRailway(std::string& out, float station) const {
    AppendRailwayStation(out, station, m_records[FloatRecord]);
}

void CStationOutput::AppendRoad(std::string& out, double station) const {
    AppendRoadStation(out, station, m_records[DoubleRecord]);
}

void CStationOutput::AppendRoad(std::string& out, float station) const {
    AppendRoadStation(out, station, m_records[FloatRecord]);
}

void CStationOutput::SetDigits(std::uint32_t digits) {
    m_records.SetDigits({DoubleRecord, FloatRecord}, digits);
}

bool CStationOutput::FollowSystem() {
    return m_records.FollowSystem();
}

} // namespace korvel::internal
