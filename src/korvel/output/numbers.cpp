#include "korvel/output/numbers.h"

#include "korvel/output/number_output.h"
#include "korvel/output/stream_text.h"
#include "korvel/output/text_of.h"

#include <cmath>
#include <cstdint>

namespace korvel {

namespace {

using internal::CNumberOutput;
using internal::NumberRecord;
using internal::TextOf;

// The last place of a format. Divided step by step: a power function gives other bits, and with them other
// borders.
double SmallestStep(const internal::NumberFormat& format) {
    double step = 1.0;
    for (std::uint32_t digit = 0; digit < format.NumDigits && step > 0.0; ++digit)
        step /= 10.0;
    return step;
}

template <typename Number>
std::string TextWithSmallValues(Number value, NumberRecord record) {
    const CNumberOutput& output = CNumberOutput::Instance();
    std::string text;
    if (SmallestStep(output.Format(record)) > std::abs(value))
        internal::AppendStreamText(text, value);
    else
        output.Append(text, value);
    return text;
}

} // namespace

std::string NumberToString(int value) {
    return TextOf<CNumberOutput>(value);
}
std::string NumberToString(unsigned int value) {
    return TextOf<CNumberOutput>(static_cast<int>(value));
}
std::string NumberToString(long value) {
    return TextOf<CNumberOutput>(value);
}
std::string NumberToString(float value) {
    return TextOf<CNumberOutput>(value);
}
std::string NumberToString(double value) {
    return TextOf<CNumberOutput>(value);
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
