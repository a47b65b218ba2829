#include "korvel/output/format_records.h"

namespace korvel::internal {

FormatRecords::FormatRecords(FormatService service, std::initializer_list<SystemFormat> systemFormats)
    : m_notification(service) {
    for (const SystemFormat kind : systemFormats)
        m_records.push_back({SystemNumberFormat(kind), kind});
}

void FormatRecords::Set(std::size_t record, const _numberfmtA& format) {
    Record& stored = m_records[record];
    const NumberFormat wanted(format, SystemNumberFormat(stored.systemFormat));
    if (wanted == stored.format)
        return;
    stored.format = wanted;
    m_notification.Fire();
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
