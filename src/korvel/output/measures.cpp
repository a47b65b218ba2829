#include "korvel/output/measures.h"

#include "korvel/output/man_days_output.h"
#include "korvel/output/measure_output.h"
#include "korvel/output/text_of.h"

namespace korvel {

using internal::TextOf;

std::string LengthToString(double value) {
    return TextOf<internal::CLengthOutput>(value);
}
std::string LengthToString(float value) {
    return TextOf<internal::CLengthOutput>(value);
}
std::string AreaToString(double value) {
    return TextOf<internal::CAreaOutput>(value);
}
std::string AreaToString(float value) {
    return TextOf<internal::CAreaOutput>(value);
}
std::string VolumeToString(double value) {
    return TextOf<internal::CVolumeOutput>(value);
}
std::string VolumeToString(float value) {
    return TextOf<internal::CVolumeOutput>(value);
}
std::string PercentToString(double value) {
    return TextOf<internal::CPercentOutput>(value);
}
std::string PercentToString(float value) {
    return TextOf<internal::CPercentOutput>(value);
}
std::string CurrencyToString(double value) {
    return TextOf<internal::CCurrencyOutput>(value);
}
std::string CurrencyToString(float value) {
    return TextOf<internal::CCurrencyOutput>(value);
}
std::string ManDaysToString(double value) {
    return TextOf<internal::CManDaysOutput>(value);
}
std::string ManDaysToString(float value) {
    return TextOf<internal::CManDaysOutput>(value);
}

} // namespace korvel
