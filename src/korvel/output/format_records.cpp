#include "korvel/output/format_records.h"

namespace korvel {

CFormatRecords::CFormatRecords(EFormatService service, std::initializer_list<ESystemFormat> systemFormats)
    : m_notification(service) {
    for (const ESystemFormat kind : systemFormats)
        m_records.push_back({SystemNumberFormat(kind), kind});
}

void CFormatRecords::Set(std::size_t record, const _numberfmtA& format) {
    SRecord& stored = m_records[record];
    const CNumberFormat wanted(format, SystemNumberFormat(stored.systemFormat));
    if (wanted == stored.format)
        return;
    stored.format = wanted;
    m_notification.Fire();
}

bool CFormatRecords::FollowSystem(std::initializer_list<std::size_t> order) {
    bool changed = false;
    for (const std::size_t record : order) {
        SRecord& stored = m_records[record];
        if (!stored.format.System)
            continue;
        stored.format = SystemNumberFormat(stored.systemFormat);
        changed = true;
        m_notification.Fire();
    }
    return changed;
}

} // namespace korvel
