#include "landxml/session_type.h"

#include "landxml/value_writing.h"

namespace korvel::inspector {

ValueType TypeShownAs(const ValueType& own, const MemberSession& session) {
    if (own.meaning != Meaning::Text || !session.type)
        return own;
    switch (*session.type) {
    case DT_Bool:
        return {Meaning::Flag};
    case DT_Date:
        return {Meaning::Date};
    case DT_ColorRGB:
        return {Meaning::Color};
    case DT_FileName:
        return {Meaning::FileName};
    case DT_ListString:
        return session.words ? ValueType{Meaning::Enumeration, session.words} : own;
    case DT_Int:
    case DT_Long:
        return {Meaning::Integer};
    case DT_AngleFloat:
    case DT_AngleDouble:
        return {Meaning::Angle};
    default:
        return {IsNumber(*session.type) ? Meaning::Number : Meaning::Text};
    }
}

CVariantValue ShownAs(const TypedValue& value, EDataTyps shown, const XmlCharacters& text) {
    if (shown == DT_String) {
        CVariantValue plain;
        plain.Type = DT_String;
        plain.Text = ToLibraryText(text.utf8);
        return plain;
    }
    const bool isConverted = value.value.Type != shown && IsNumber(value.value.Type) && IsNumber(shown);
    return isConverted ? value.value.ChangeToType(shown) : value.value;
}

} // namespace korvel::inspector
