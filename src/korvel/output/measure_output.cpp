#include "korvel/output/measure_output.h"

#include "korvel/output/stream_text.h"

namespace korvel {

namespace {

enum ManDaysRecord : std::size_t { DoubleRecord, FloatRecord };

constexpr int ManDaysDecimals = 6; // of the text that is rounded to the format's decimals

void AppendManDays(std::string& out, double value, const NumberFormat& format) {
    std::string number;
    AppendFixedText(number, value, ManDaysDecimals);
    if (!platform::AppendNumberText(out, number, format.TextFormat()))
        AppendStreamText(out, value);
    out += " MT";
}

template <typename Output, typename Number>
std::string TextOf(Number value) {
    std::string text;
    Output::Instance().Append(text, value);
    return text;
}

} // namespace

void MeasureOutput::Append(std::string& out, double value) const {
    m_service->Append(out, value);
    out += m_suffix;
}

void MeasureOutput::Append(std::string& out, float value) const {
    m_service->Append(out, value);
    out += m_suffix;
}

CLengthOutput& CLengthOutput::Instance() {
    static CLengthOutput output;
    return output;
}

CAreaOutput& CAreaOutput::Instance() {
    static CAreaOutput output;
    return output;
}

CVolumeOutput& CVolumeOutput::Instance() {
    static CVolumeOutput output;
    return output;
}

CPercentOutput& CPercentOutput::Instance() {
    static CPercentOutput output;
    return output;
}

CCurrencyOutput& CCurrencyOutput::Instance() {
    static CCurrencyOutput output;
    return output;
}

CManDaysOutput& CManDaysOutput::Instance() {
    static CManDaysOutput output;
    return output;
}

CManDaysOutput::CManDaysOutput()
    : m_records(FormatService::ManDays, {SystemFormat::Float, SystemFormat::Float}) {}

void CManDaysOutput::Append(std::string& out, double value) const {
    AppendManDays(out, value, m_records[DoubleRecord]);
}

void CManDaysOutput::Append(std::string& out, float value) const {
    AppendManDays(out, value, m_records[FloatRecord]);
}

bool CManDaysOutput::FollowSystem() {
    return m_records.FollowSystem({DoubleRecord, FloatRecord});
}

std::string LengthToString(double value) {
    return TextOf<CLengthOutput>(value);
}
std::string LengthToString(float value) {
    return TextOf<CLengthOutput>(value);
}
std::string AreaToString(double value) {
    return TextOf<CAreaOutput>(value);
}
std::string AreaToString(float value) {
    return TextOf<CAreaOutput>(value);
}
std::string VolumeToString(double value) {
    return TextOf<CVolumeOutput>(value);
}
std::string VolumeToString(float value) {
    return TextOf<CVolumeOutput>(value);
}
std::string PercentToString(double value) {
    return TextOf<CPercentOutput>(value);
}
std::string PercentToString(float value) {
    return TextOf<CPercentOutput>(value);
}
std::string CurrencyToString(double value) {
    return TextOf<CCurrencyOutput>(value);
}
std::string CurrencyToString(float value) {
    return TextOf<CCurrencyOutput>(value);
}
std::string ManDaysToString(double value) {
    return TextOf<CManDaysOutput>(value);
}
std::string ManDaysToString(float value) {
    return TextOf<CManDaysOutput>(value);
}

} // namespace korvel
