#include "korvel/grid/format_subscriptions.h"

#include "korvel/output/format_services.h"

#include <algorithm>

namespace korvel::internal {

namespace {

constexpr FormatService AllServices[] = {FormatService::Number, FormatService::Angle, FormatService::Date,
                                         FormatService::Station, FormatService::ManDays};

} // namespace

void FormatSubscriptions::Update(const MemberIndex& index) {
    for (const FormatService service : AllServices) {
        const auto known = std::find(m_services.begin(), m_services.end(), service);
        const bool isNeeded = index.CountOf(service) > 0;
        if (isNeeded == (known != m_services.end()))
            continue;
        if (isNeeded) {
            m_services.reserve(std::size(AllServices)); // no subscription that is not written down
            NotificationOf(service).AddSink(&m_sink);
            m_services.push_back(service);
        } else {
            NotificationOf(service).RemoveSink(&m_sink);
            m_services.erase(known);
        }
    }
}

} // namespace korvel::internal
