#include "korvel/output/format_records.h"

namespace korvel::internal {

FormatRecords::FormatRecords(FormatService service, std::initializer_list<SystemFormat> systemFormats)
    : m_notification(service) {
    for (const SystemFormat kind : systemFormats)
        m_records.push_back({SystemNumberFormat(kind), kind});
}

// False when nothing differs.
bool FormatRecords::Store(std::size_t record, const _numberfmtA& format) {
    Record& stored = m_records[record];
    const NumberFormat wanted(format, SystemNumberFormat(stored.systemFormat));
    if (wanted == stored.format)
        return false;
    stored.format = wanted;
    return true;
}

void FormatRecords::Set(std::size_t record, const _numberfmtA& format) {
    if (Store(record, format))
        m_notification.Fire();
}

void FormatRecords::SetDigits(std::initializer_list<std::size_t> records, std::uint32_t digits) {
    int changed = 0;
    for (const std::size_t record : records) {
        NumberFormat format = m_records[record].format;
        format.NumDigits = digits;
        changed += Store(record, format);
    }
    if (changed > 0)
        m_notification.Fire(changed);
}

bool FormatRecords::FollowSystem() {
    int replaced = 0;
    for (Record& record : m_records)
        if (record.format.System) {
            record.format = SystemNumberFormat(record.systemFormat);
            ++replaced;
        }
    if (replaced > 0)
        m_notification.Fire(replaced);
    return replaced > 0;
}

} // namespace korvel::internal
