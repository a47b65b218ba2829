#include "korvel/output/system_formats.h"

#include "korvel/platform/integer_text.h"

namespace korvel::internal {

namespace {

struct SystemSnapshot {
    SystemSnapshot() {
        // In force while a separator of the settings is too long for a record.
        floatFormat.SetDecimalSep(".");
        Read();
    }

    void Read() {
        settings = platform::ReadRegionalSettings();
        floatFormat.NumDigits = static_cast<std::uint32_t>(settings.digits);
        floatFormat.LeadingZero = static_cast<std::uint32_t>(settings.leadingZero);
        // The first group size only, as the services have always read it: "3;0" and "3;2;0" are both 3.
        floatFormat.Grouping = static_cast<std::uint32_t>(ReadInteger(settings.grouping));
        floatFormat.NegativeOrder = static_cast<std::uint32_t>(settings.negativeOrder);
        floatFormat.SetDecimalSep(settings.decimalSeparator);
        floatFormat.SetThousandSep(settings.thousandsSeparator);
        floatFormat.System = true;
        integerFormat = floatFormat;
        integerFormat.NumDigits = 0;
    }

    platform::RegionalSettings settings;
    NumberFormat floatFormat;
    NumberFormat integerFormat;
};

SystemSnapshot& System() {
    static SystemSnapshot system;
    return system;
}

} // namespace

const NumberFormat& SystemNumberFormat(SystemFormat kind) {
    return kind == SystemFormat::Integer ? System().integerFormat : System().floatFormat;
}

const platform::RegionalSettings& SystemSettings() {
    return System().settings;
}

void RereadSystemSettings() {
    System().Read();
}

} // namespace korvel::internal
