#include "korvel/grid/cell_conversion.h"
#include "korvel/grid/editable_grid.h"
#include "korvel/grid/member_reads.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr FormatService AllServices[] = {FormatService::Number, FormatService::Angle, FormatService::Date,
                                         FormatService::Station, FormatService::ManDays};

FormatService ServiceOfType(EDataTyps type) {
    const auto conversion = FindCellConversion(type);
    return conversion ? conversion->service : FormatService::None;
}

} // namespace

FormatService CEditableGrid::ServiceOf(const CVariantValue& value) {
    return ReadOr(
        FormatService::None, [&] { return FormatServiceOf(value); });
}

void CEditableGrid::AddSink(EDataTyps type, IMemberDispatch* disp, const std::string& name) {
    Register(disp, name, ServiceOfType(type));
}

bool CEditableGrid::RemoveSink(EDataTyps type, IMemberDispatch* disp, const std::string& name) {
    const FormatService registered = m_Items.Find(disp, name).service;
    const bool isList = type & TypeBitList;
    if (registered == FormatService::None || (!isList && registered != ServiceOfType(type)))
        return false;
    Register(disp, name, FormatService::None);
    return true;
}

void CEditableGrid::Register(IMemberDispatch* disp, const std::string& name, FormatService service) {
    if (m_Items.SetService(disp, name, service))
        UpdateSubscriptions();
}

void CEditableGrid::UpdateSubscriptions() {
    for (const FormatService service : AllServices) {
        const auto known = std::find(m_subscriptions.begin(), m_subscriptions.end(), service);
        const bool isNeeded = m_Items.CountOf(service) > 0;
        if (isNeeded == (known != m_subscriptions.end()))
            continue;
        if (isNeeded) {
            NotificationOf(service).AddSink(this);
            m_subscriptions.push_back(service);
        } else {
            NotificationOf(service).RemoveSink(this);
            m_subscriptions.erase(known);
        }
    }
}

void CEditableGrid::OnFormatChanged(FormatService service) {
    const RedrawPause pause(*this);
    for (const auto& [disp, name] : m_Items.MembersOf(service)) {
        if (!LookupTreeItem(disp, name))
            continue; // gone while others were read
        CVariantValue value;
        if (ReadMember(*disp, name, value))
            OnChange(disp, name, value);
    }
}

} // namespace korvel
