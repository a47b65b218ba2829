#include "korvel/output/measure_output.h"

namespace korvel::internal {

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

} // namespace korvel::internal
