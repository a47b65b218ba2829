#include "korvel/output/angles.h"

#include "korvel/output/angle_output.h"
#include "korvel/output/text_of.h"

#include <cstdint>

namespace korvel {

namespace {

using internal::AngleRecord;
using internal::CAngleOutput;
using internal::TextOf;

constexpr char DegreeSign = '\xB0';

} // namespace

std::string AngleToString(double radians) {
    return TextOf<CAngleOutput>(radians);
}
std::string AngleToString(float radians) {
    return TextOf<CAngleOutput>(radians);
}

double AngleToRad(double angle) {
    return CAngleOutput::Instance().ToRadians(angle);
}
float AngleToRad(float angle) {
    return CAngleOutput::Instance().ToRadians(angle);
}
double RadToAngle(double radians) {
    return CAngleOutput::Instance().FromRadians(radians);
}
float RadToAngle(float radians) {
    return CAngleOutput::Instance().FromRadians(radians);
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
