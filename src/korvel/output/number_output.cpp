#include "korvel/output/number_output.h"

#include "korvel/output/stream_text.h"
#include "korvel/output/type_table.h"

#include <cmath>
#include <stdexcept>

namespace korvel {

namespace {

// The last place of a format. Divided step by step: a power function gives other bits, and with them other
// borders.
double SmallestStep(const CNumberFormat& format) {
    double step = 1.0;
    for (std::uint32_t digit = 0; digit < format.NumDigits && step > 0.0; ++digit)
        step /= 10.0;
    return step;
}

void AppendFormatted(std::string& out, double value, platform::RenderedDigits rendered,
                     const CNumberFormat& format) {
    if (!platform::AppendNumber(out, value, rendered, format.TextFormat()))
        AppendStreamText(out, value);
}

template <typename Number>
std::string TextOf(Number value) {
    std::string text;
    CNumberOutput::Instance().Append(text, value);
    return text;
}

template <typename Number>
std::string TextWithSmallValues(Number value, ENumberRecord record) {
    const CNumberOutput& output = CNumberOutput::Instance();
    std::string text;
    if (SmallestStep(output.Format(record)) > std::abs(value))
        AppendStreamText(text, value);
    else
        output.Append(text, value);
    return text;
}

} // namespace

CNumberOutput::CNumberOutput()
    : m_records(EFormatService::Number, {ESystemFormat::Integer, ESystemFormat::Integer, ESystemFormat::Float,
                                         ESystemFormat::Float}) {}

CNumberOutput& CNumberOutput::Instance() {
    static CNumberOutput output;
    return output;
}

void CNumberOutput::Append(std::string& out, int value) const {
    if (!platform::AppendNumber(out, std::int64_t{value}, Format(ENumberRecord::Integer).TextFormat()))
        throw std::invalid_argument("CNumberOutput::ConvertNumber( int )");
}

void CNumberOutput::Append(std::string& out, long value) const {
    if (!platform::AppendNumber(out, std::int64_t{value}, Format(ENumberRecord::Long).TextFormat()))
        throw std::invalid_argument("CNumberOutput::ConvertNumber( long )");
}

void CNumberOutput::Append(std::string& out, float value) const {
    AppendFormatted(out, value, platform::RenderedDigits::Float, Format(ENumberRecord::Float));
}

void CNumberOutput::Append(std::string& out, double value) const {
    AppendFormatted(out, value, platform::RenderedDigits::Double, Format(ENumberRecord::Double));
}

const CNumberFormat& CNumberOutput::FormatFor(EDataTyps type) const {
    const STypeRow* row = FindTypeRow(type);
    return Format(row ? row->Record : ENumberRecord::Double);
}

void CNumberOutput::SetFormatFor(EDataTyps type, const _numberfmtA& format) {
    switch (type) {
    case DT_Int:
    case DT_UInt:
        return SetFormat(ENumberRecord::Integer, format);
    case DT_Long:
        return SetFormat(ENumberRecord::Long, format);
    case DT_Float:
        return SetFormat(ENumberRecord::Float, format);
    default:
        return SetFormat(ENumberRecord::Double, format);
    }
}

bool CNumberOutput::FollowSystem() {
    return m_records.FollowSystem({Index(ENumberRecord::Long), Index(ENumberRecord::Integer),
                                   Index(ENumberRecord::Float), Index(ENumberRecord::Double)});
}

std::string NumberToString(int value) {
    return TextOf(value);
}
std::string NumberToString(unsigned int value) {
    return TextOf(static_cast<int>(value));
}
std::string NumberToString(long value) {
    return TextOf(value);
}
std::string NumberToString(float value) {
    return TextOf(value);
}
std::string NumberToString(double value) {
    return TextOf(value);
}

std::string NumberToStringEx(float value) {
    return TextWithSmallValues(value, ENumberRecord::Float);
}
std::string NumberToStringEx(double value) {
    return TextWithSmallValues(value, ENumberRecord::Double);
}

const _numberfmtA& GetFormatInt() {
    return CNumberOutput::Instance().Format(ENumberRecord::Integer);
}
const _numberfmtA& GetFormatLong() {
    return CNumberOutput::Instance().Format(ENumberRecord::Long);
}
const _numberfmtA& GetFormatFloat() {
    return CNumberOutput::Instance().Format(ENumberRecord::Float);
}
const _numberfmtA& GetFormatDouble() {
    return CNumberOutput::Instance().Format(ENumberRecord::Double);
}

void SetFormatInt(const _numberfmtA& format) {
    CNumberOutput::Instance().SetFormat(ENumberRecord::Integer, format);
}
void SetFormatLong(const _numberfmtA& format) {
    CNumberOutput::Instance().SetFormat(ENumberRecord::Long, format);
}
void SetFormatFloat(const _numberfmtA& format) {
    CNumberOutput::Instance().SetFormat(ENumberRecord::Float, format);
}
void SetFormatDouble(const _numberfmtA& format) {
    CNumberOutput::Instance().SetFormat(ENumberRecord::Double, format);
}

} // namespace korvel
