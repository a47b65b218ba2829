#include "korvel/output/man_days_output.h"

#include "korvel/output/stream_text.h"

namespace korvel::internal {

namespace {

enum ManDaysRecord : std::size_t { DoubleRecord, FloatRecord };

constexpr int ManDaysDecimals = 6; // of the text that is rounded to the format's decimals

void AppendManDays(std::string& out, double value, const NumberFormat& format) {
    std::string number;
    AppendFixedText(number, value, ManDaysDecimals);
    if (!AppendNumberText(out, number, format.TextFormat()))
        AppendStreamText(out, value);
    out += " MT";
}

} // namespace

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
    return m_records.FollowSystem();
}

} // namespace korvel::internal
