#include "korvel/grid/format_subscriptions.h"

#include "korvel/output/format_services.h"

namespace korvel::internal {

namespace {

constexpr FormatService AllServices[] = {FormatService::Number, FormatService::Angle, FormatService::Date,
                                         FormatService::Station, FormatService::ManDays};

unsigned BitOf(FormatService service) {
    return 1U << static_cast<unsigned>(service);
}

unsigned NeededServices(const MemberIndex& index) {
    unsigned needed = 0;
    for (const FormatService service : AllServices)
        needed |= index.CountOf(service) > 0 ? BitOf(service) : 0;
    return needed;
}

} // namespace

void FormatSubscriptions::Update(const MemberIndex& index) {
    const unsigned needed = NeededServices(index);
    if (needed == m_services)
        return;
    for (const FormatService service : AllServices) {
        const unsigned bit = BitOf(service);
        if (((needed ^ m_services) & bit) == 0)
            continue;
        if (needed & bit)
            NotificationOf(service).AddSink(&m_sink);
        else
            NotificationOf(service).RemoveSink(&m_sink);
        m_services ^= bit;
    }
}

} // namespace korvel::internal
