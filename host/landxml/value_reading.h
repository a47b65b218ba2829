#pragma once

#include "korvel/documents/xml_text.h"
#include "korvel/platform/code_page.h"
#include "korvel/values/file_value.h"
#include "korvel/values/variant_value.h"
#include "landxml/landxml_types.h"
#include "landxml/landxml_units.h"

#include <string>

namespace korvel::inspector {

/// What a value's meaning depends on where it stands.
struct ValuePlace {
    const UnitSet& units;
    bool isRailway = false;
    IFileValue* fileChooser = nullptr; ///< travels with file names; may be null
};

/// A value of the document as the grid takes it.
struct TypedValue {
    CVariantValue value;
    std::string unit;    ///< to be shown behind the name, where the type itself shows none
    bool isValid = true; ///< false: it is not what its type asks for, and is shown as the text that it is
    bool isExact = true; ///< false: what is shown is cut, or has replacements for characters
};

/// The value of a text.
///
///     "100.5", Length, linearUnit "meter"    -> DT_LengthDouble 100.5
///     "100.5", Length, linearUnit "foot"     -> DT_Double 100.5, unit "ft"
///     "200", Angle, angularUnit "grads"      -> DT_AngleDouble, pi
///     "INF", Length                          -> DT_String "INF": valid, but no number to be formatted
///     "abc", Length                          -> DT_String "abc", not valid
TypedValue ReadValue(const ValueType& type, const XmlCharacters& text, const ValuePlace& place);

/// A text of the document in the code page of the library, where most are the same.
platform::ConvertedText ToLibraryText(const std::string& utf8);

} // namespace korvel::inspector
