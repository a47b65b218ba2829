#include "korvel/output/angle_output.h"

#include "korvel/output/stream_text.h"

#include <numbers>

namespace korvel::internal {

namespace {

// Both formulas in this order of operations: another one gives other last digits.
template <typename Real>
Real RadiansOf(Real angle, std::uint32_t unit) {
    switch (unit) {
    case CAngleOutput::Degrees:
        return angle / Real{180} * std::numbers::pi_v<Real>;
    case CAngleOutput::Gon:
        return angle / Real{200} * std::numbers::pi_v<Real>;
    default:
        return angle;
    }
}

template <typename Real>
Real AngleOf(Real radians, std::uint32_t unit) {
    switch (unit) {
    case CAngleOutput::Degrees:
        return radians * Real{180} / std::numbers::pi_v<Real>;
    case CAngleOutput::Gon:
        return radians * Real{200} / std::numbers::pi_v<Real>;
    default:
        return radians;
    }
}

const char* SignOf(std::uint32_t unit) {
    switch (unit) {
    case CAngleOutput::Degrees:
        return "\xB0";
    case CAngleOutput::Gon:
        return " gon";
    default:
        return " rad";
    }
}

bool AppendAngle(std::string& out, double angle, double radians, RenderedDigits rendered,
                 const NumberFormat& format) {
    if (AppendNumber(out, angle, rendered, format.TextFormat()))
        return true;
    AppendStreamText(out, radians);
    return false;
}

} // namespace

CAngleOutput::CAngleOutput() : m_records(FormatService::Angle, {SystemFormat::Float, SystemFormat::Float}) {}

CAngleOutput& CAngleOutput::Instance() {
    static CAngleOutput output;
    return output;
}

bool CAngleOutput::Append(std::string& out, double radians) const {
    return AppendAngle(out, FromRadians(radians), radians, RenderedDigits::Double,
                       Format(AngleRecord::Double));
}

bool CAngleOutput::Append(std::string& out, float radians) const {
    return AppendAngle(out, FromRadians(radians), radians, RenderedDigits::Float, Format(AngleRecord::Float));
}

void CAngleOutput::AppendWithUnit(std::string& out, double radians) const {
    out += SignOf(Append(out, radians) ? m_unit : Radians);
}

void CAngleOutput::AppendWithUnit(std::string& out, float radians) const {
    out += SignOf(Append(out, radians) ? m_unit : Radians);
}

double CAngleOutput::ToRadians(double angle) const {
    return RadiansOf(angle, m_unit);
}
float CAngleOutput::ToRadians(float angle) const {
    return RadiansOf(angle, m_unit);
}
double CAngleOutput::FromRadians(double radians) const {
    return AngleOf(radians, m_unit);
}
float CAngleOutput::FromRadians(float radians) const {
    return AngleOf(radians, m_unit);
}

bool CAngleOutput::FollowSystem() {
    return m_records.FollowSystem();
}

} // namespace korvel::internal
