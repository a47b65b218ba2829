#include "korvel/output/angle_output.h"

#include "korvel/output/stream_text.h"

#include <numbers>

namespace korvel {

namespace {

constexpr char DegreeSign = '\xB0';

// Both formulas in this order of operations: another one gives other last digits.
template <typename Real>
Real ToRadians(Real angle, std::uint32_t unit) {
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
Real FromRadians(Real radians, std::uint32_t unit) {
    switch (unit) {
    case CAngleOutput::Degrees:
        return radians * Real{180} / std::numbers::pi_v<Real>;
    case CAngleOutput::Gon:
        return radians * Real{200} / std::numbers::pi_v<Real>;
    default:
        return radians;
    }
}

void AppendAngle(std::string& out, double angle, double radians, platform::RenderedDigits rendered,
                 const NumberFormat& format) {
    if (!platform::AppendNumber(out, angle, rendered, format.TextFormat()))
        AppendStreamText(out, radians);
}

template <typename Real>
std::string TextOf(Real radians) {
    std::string text;
    CAngleOutput::Instance().Append(text, radians);
    return text;
}

} // namespace

CAngleOutput::CAngleOutput() : m_records(FormatService::Angle, {SystemFormat::Float, SystemFormat::Float}) {}

CAngleOutput& CAngleOutput::Instance() {
    static CAngleOutput output;
    return output;
}

void CAngleOutput::Append(std::string& out, double radians) const {
    AppendAngle(out, FromRadians(radians, m_unit), radians, platform::RenderedDigits::Double,
                Format(AngleRecord::Double));
}

void CAngleOutput::Append(std::string& out, float radians) const {
    AppendAngle(out, FromRadians(radians, m_unit), radians, platform::RenderedDigits::Float,
                Format(AngleRecord::Float));
}

bool CAngleOutput::FollowSystem() {
    return m_records.FollowSystem({Index(AngleRecord::Double), Index(AngleRecord::Float)});
}

std::string AngleToString(double radians) {
    return TextOf(radians);
}
std::string AngleToString(float radians) {
    return TextOf(radians);
}

double AngleToRad(double angle) {
    return ToRadians(angle, CAngleOutput::Instance().Unit());
}
float AngleToRad(float angle) {
    return ToRadians(angle, CAngleOutput::Instance().Unit());
}
double RadToAngle(double radians) {
    return FromRadians(radians, CAngleOutput::Instance().Unit());
}
float RadToAngle(float radians) {
    return FromRadians(radians, CAngleOutput::Instance().Unit());
}

const _numberfmtA& GetAngleFormatDouble() {
    return CAngleOutput::Instance().Format(AngleRecord::Float);
}
const _numberfmtA& GetAngleFormatFloat() {
    return CAngleOutput::Instance().Format(AngleRecord::Double);
}

void SetAngleFormatDouble(const _numberfmtA& format) {
    CAngleOutput::Instance().SetFormat(AngleRecord::Double, format);
}

void SetAngleFormatFloat(const _numberfmtA& format) {
    CAngleOutput::Instance().SetFormat(AngleRecord::Float, format);
}

char GetAngleUnit() {
    switch (CAngleOutput::Instance().Unit()) {
    case CAngleOutput::Radians:
        return 'r';
    case CAngleOutput::Gon:
        return 'g';
    default:
        return DegreeSign;
    }
}

void SetAngleUnit(char unit) {
    const std::uint32_t number = unit == 'r'   ? CAngleOutput::Radians
                                 : unit == 'g' ? CAngleOutput::Gon
                                               : CAngleOutput::Degrees;
    CAngleOutput::Instance().SetUnit(number);
}

} // namespace korvel
