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

bool FormatRecords::FollowSystem(std::initializer_list<std::size_t> order) {
    bool changed = false;
    for (const std::size_t record : order) {
        Record& stored = m_records[record];
        if (!stored.format.System)
            continue;
        stored.format = SystemNumberFormat(stored.systemFormat);
        changed = true;
        m_notification.Fire();
    }
    return changed;
}

} // namespace korvel::internal
