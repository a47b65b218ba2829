#pragma once

#include "korvel/values/enum_value.h"
#include "korvel/values/variant_value.h"

#include <string>
#include <type_traits>

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

} // namespace korvel
