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

} // namespace korvel::internal
