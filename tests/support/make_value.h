#pragma once

#include "korvel/values/enum_value.h"
#include "korvel/values/variant_value.h"

#include <map>
#include <string>
#include <type_traits>
#include <vector>

namespace korvel {

template <typename Payload>
CVariantValue MakeValue(EDataTyps type, Payload payload) {
    CVariantValue value;
    value.Type = type;
    if constexpr (std::is_same_v<Payload, float>)
        value.Value.Float = payload;
    else if constexpr (std::is_same_v<Payload, double>)
        value.Value.Double = payload;
    else if constexpr (std::is_same_v<Payload, bool>)
        value.Value.Bool = payload;
    else if constexpr (std::is_same_v<Payload, unsigned int>)
        value.Value.UInt = payload;
    else if constexpr (std::is_same_v<Payload, int>)
        value.Value.Int = payload;
    else if constexpr (std::is_convertible_v<Payload, IMemberDispatch*>)
        value.Value.Dispatch = payload;
    else
        value.Text = payload;
    return value;
}

inline CVariantValue MakeDate(const std::string& state, double date) {
    CVariantValue value = MakeValue(DT_Date, date);
    value.Text = state;
    return value;
}

inline CVariantValue MakeList(EDataTyps type, const std::string& text, IEnumValue* list) {
    CVariantValue value = MakeValue(type, text);
    value.EnumValue = list;
    return value;
}

/// A list of entries with numbers from 1; the text of a value names the selected ones, one digit each.
class TestEnum : public IEnumValue {
public:
    explicit TestEnum(const std::vector<CVariantValue>& entries) {
        for (const CVariantValue& entry : entries)
            m_entries.emplace(static_cast<long>(m_entries.size() + 1), entry);
    }

    bool IsAutoDestroy() const override { return isAutoDestroy; }
    void Destroy() override { ++destroyed; }
    const EDataTyps& GetDataType() const override { return m_type; }
    const std::uint32_t& GetEnumFlags() const override { return m_flags; }
    long AddValue(const std::string&, const std::string&) override { return -1; }
    void RemoveValue(long id) override { m_entries.erase(id); }
    bool GetName(long id, CVariantValue& name) override {
        const auto entry = m_entries.find(id);
        if (entry == m_entries.end() || entry->second.Text == "nameless")
            return false;
        name = entry->second;
        return true;
    }
    bool SetName(long, const CVariantValue&) override { return false; }
    EnumPosition GetFirstPosition() override { return At(m_entries.begin()); }
    long GetNext(EnumPosition& position) override {
        const auto entry = m_entries.find(*static_cast<const long*>(position));
        position = At(std::next(entry));
        return entry->first;
    }
    const CVariantValue* GetTemplate() const override { return nullptr; }
    bool IsValue(long id, const CVariantValue& value) override {
        return value.Text.find(std::to_string(id)) != std::string::npos;
    }
    void Select(long, CVariantValue&) override {}
    void Deselect(long, CVariantValue&) override {}
    const char* GetSeparator(bool) const override { return "-"; }

    bool isAutoDestroy = false;
    int destroyed = 0;

private:
    EnumPosition At(std::map<long, CVariantValue>::iterator entry) {
        return entry == m_entries.end() ? nullptr : const_cast<long*>(&entry->first);
    }

    std::map<long, CVariantValue> m_entries;
    EDataTyps m_type = DT_String;
    std::uint32_t m_flags = 0;
};

} // namespace korvel
