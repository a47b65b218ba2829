#include "editing/statistics_object.h"

#include <algorithm>

namespace korvel::inspector {

StatisticsObject::StatisticsObject(std::string ident, std::function<void()> endThread)
    : m_ident(std::move(ident)), m_endThread(std::move(endThread)) {
    SetOptions(DO_KeepOrder);
}

std::vector<StatisticsObject::Row>::iterator StatisticsObject::Find(const std::string& name) {
    return std::find_if(
        m_rows.begin(), m_rows.end(), [&](const Row& row) { return row.first == name; });
}

bool StatisticsObject::Put(const std::string& name, const CVariantValue& value) {
    const std::lock_guard lock(m_mutex);
    const auto row = Find(name);
    if (row != m_rows.end()) {
        row->second = value;
        return false;
    }
    m_rows.emplace_back(name, value);
    return true;
}

void StatisticsObject::Drop(const std::string& name) {
    const std::lock_guard lock(m_mutex);
    if (const auto row = Find(name); row != m_rows.end())
        m_rows.erase(row);
}

void StatisticsObject::GetMemberNames(std::list<std::string>& names) {
    const std::lock_guard lock(m_mutex);
    names.clear();
    for (const Row& row : m_rows)
        names.push_back(row.first);
}

bool StatisticsObject::GetMemberType(const std::string& name, EDataTyps& type) {
    CVariantValue value;
    if (!GetMember(name, value))
        return false;
    type = value.Type;
    return true;
}

bool StatisticsObject::GetMember(const std::string& name, CVariantValue& value) {
    const std::lock_guard lock(m_mutex);
    const auto row = Find(name);
    if (row == m_rows.end())
        return false;
    value = row->second;
    return true;
}

} // namespace korvel::inspector
