#include "korvel/output/number_output.h"

#include "korvel/output/stream_text.h"
#include "korvel/output/type_table.h"

#include <cmath>
#include <stdexcept>

namespace korvel {

namespace {

// The last place of a format. Divided step by step: a power function gives other bits, and with them other
// borders.
double SmallestStep(const NumberFormat& format) {
    double step = 1.0;
    for (std::uint32_t digit = 0; digit < format.NumDigits && step > 0.0; ++digit)
        step /= 10.0;
    return step;
}

void AppendFormatted(std::string& out, double value, platform::RenderedDigits rendered,
                     const NumberFormat& format) {
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
std::string TextWithSmallValues(Number value, NumberRecord record) {
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
    : m_records(FormatService::Number,
                {SystemFormat::Integer, SystemFormat::Integer, SystemFormat::Float, SystemFormat::Float}) {}

CNumberOutput& CNumberOutput::Instance() {
    static CNumberOutput output;
    return output;
}

void CNumberOutput::Append(std::string& out, int value) const {
    if (!platform::AppendNumber(out, std::int64_t{value}, Format(NumberRecord::Integer).TextFormat()))
        throw std::invalid_argument("CNumberOutput::ConvertNumber( int )");
}

void CNumberOutput::Append(std::string& out, long value) const {
    if (!platform::AppendNumber(out, std::int64_t{value}, Format(NumberRecord::Long).TextFormat()))
        throw std::invalid_argument("CNumberOutput::ConvertNumber( long )");
}

void CNumberOutput::Append(std::string& out, float value) const {
    AppendFormatted(out, value, platform::RenderedDigits::Float, Format(NumberRecord::Float));
}

void CNumberOutput::Append(std::string& out, double value) const {
    AppendFormatted(out, value, platform::RenderedDigits::Double, Format(NumberRecord::Double));
}

const NumberFormat& CNumberOutput::FormatFor(EDataTyps type) const {
    const TypeRow* row = FindTypeRow(type);
    return Format(row ? row->Record : NumberRecord::Double);
}

void CNumberOutput::SetFormatFor(EDataTyps type, const _numberfmtA& format) {
    switch (type) {
    case DT_Int:
    case DT_UInt:
        return SetFormat(NumberRecord::Integer, format);
    case DT_Long:
        return SetFormat(NumberRecord::Long, format);
    case DT_Float:
        return SetFormat(NumberRecord::Float, format);
    default:
        return SetFormat(NumberRecord::Double, format);
    }
}

bool CNumberOutput::FollowSystem() {
    return m_records.FollowSystem({Index(NumberRecord::Long), Index(NumberRecord::Integer),
                                   Index(NumberRecord::Float), Index(NumberRecord::Double)});
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
    return TextWithSmallValues(value, NumberRecord::Float);
}
std::string NumberToStringEx(double value) {
    return TextWithSmallValues(value, NumberRecord::Double);
}

const _numberfmtA& GetFormatInt() {
    return CNumberOutput::Instance().Format(NumberRecord::Integer);
}
const _numberfmtA& GetFormatLong() {
    return CNumberOutput::Instance().Format(NumberRecord::Long);
}
const _numberfmtA& GetFormatFloat() {
    return CNumberOutput::Instance().Format(NumberRecord::Float);
}
const _numberfmtA& GetFormatDouble() {
    return CNumberOutput::Instance().Format(NumberRecord::Double);
}

void SetFormatInt(const _numberfmtA& format) {
    CNumberOutput::Instance().SetFormat(NumberRecord::Integer, format);
}
void SetFormatLong(const _numberfmtA& format) {
    CNumberOutput::Instance().SetFormat(NumberRecord::Long, format);
}
void SetFormatFloat(const _numberfmtA& format) {
    CNumberOutput::Instance().SetFormat(NumberRecord::Float, format);
}
void SetFormatDouble(const _numberfmtA& format) {
    CNumberOutput::Instance().SetFormat(NumberRecord::Double, format);
}

} // namespace korvel
