#include "korvel/output/number_output.h"

#include "korvel/output/stream_text.h"
#include "korvel/output/type_table.h"

#include <stdexcept>

namespace korvel::internal {

namespace {

void AppendFormatted(std::string& out, double value, RenderedDigits rendered, const NumberFormat& format) {
    if (!AppendNumber(out, value, rendered, format.TextFormat()))
        AppendStreamText(out, value);
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
    if (!AppendNumber(out, std::int64_t{value}, Format(NumberRecord::Integer).TextFormat()))
        throw std::invalid_argument("CNumberOutput::ConvertNumber( int )");
}

void CNumberOutput::Append(std::string& out, long value) const {
    if (!AppendNumber(out, std::int64_t{value}, Format(NumberRecord::Long).TextFormat()))
        throw std::invalid_argument("CNumberOutput::ConvertNumber( long )");
}

void CNumberOutput::Append(std::string& out, float value) const {
    AppendFormatted(out, value, RenderedDigits::Float, Format(NumberRecord::Float));
}

void CNumberOutput::Append(std::string& out, double value) const {
    AppendFormatted(out, value, RenderedDigits::Double, Format(NumberRecord::Double));
}

const NumberFormat& CNumberOutput::FormatFor(EDataTyps type) const {
    const TypeRow* row = FindTypeRow(type);
    return Format(row ? row->record : NumberRecord::Double);
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
    return m_records.FollowSystem();
}

} // namespace korvel::internal
