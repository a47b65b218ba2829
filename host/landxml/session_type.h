#pragma once

#include "landxml/document_change.h"
#include "landxml/value_reading.h"

namespace korvel::inspector {

/// How a member is read and written that the user shows as another type than the file's. What LandXML knows
/// keeps its meaning; what is only text takes one from the type.
///
///     TypeShownAs({Meaning::Length}, {DT_Int})    -> Length
///     TypeShownAs({Meaning::Text}, {DT_Bool})     -> Flag
///     TypeShownAs({Meaning::Text}, {})            -> Text
ValueType TypeShownAs(const ValueType& own, const MemberSession& session);

/// A value that was read as TypeShownAs says, as the other type: numbers and angles as CVariantValue converts
/// them, everything as the text of the file. What cannot be converted stays as it is.
CVariantValue ShownAs(const TypedValue& value, EDataTyps shown, const XmlCharacters& text);

} // namespace korvel::inspector
