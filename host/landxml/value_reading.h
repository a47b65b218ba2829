#pragma once

#include "korvel/documents/xml_text.h"
#include "korvel/values/file_value.h"
#include "korvel/values/variant_value.h"
#include "landxml/landxml_types.h"
#include "landxml/landxml_units.h"

#include <string>
#include <string_view>

namespace korvel::inspector {

/// What the meaning of a value takes from its place in the document.
struct ValuePlace {
    const UnitSet& units;
    bool isRailway = false;
    IFileValue* fileChooser = nullptr; ///< travels with file names; may be null
};

/// A value of the document as the grid takes it.
struct TypedValue {
    CVariantValue value;
    std::string unit;       ///< to be shown after the name; see UnitOf
    bool isValid = true;    ///< false: it is not what its type asks for, and is shown as the text that it is
    bool isComplete = true; ///< false: what is shown is cut
};

/// The value of a text.
///
///     "100.5", Length, linearUnit "meter"    -> DT_LengthDouble 100.5
///     "100.5", Length, linearUnit "foot"     -> DT_Double 100.5, unit "ft"
///     "200", Angle, angularUnit "grads"      -> DT_AngleDouble, pi
///     "INF", Length                          -> DT_String "INF": valid, but no number to be formatted
///     "4294967295", Integer                  -> DT_String, valid, but wider than the library's integers
///     "abc", Length                          -> DT_String "abc", not valid
TypedValue ReadValue(const ValueType& type, const XmlCharacters& text, const ValuePlace& place);

/// The unit of a valid value of a type, where the type itself shows none; valid until the units change.
std::string_view UnitOf(const ValueType& type, const ValuePlace& place);

/// How angles of a meaning are written; null for what is no angle.
const AngleScale* ScaleOf(Meaning meaning, const UnitSet& units);

/// A text of the document as the library holds texts (korvel/platform/code_page.h); most are the same in
/// both.
std::string ToLibraryText(const std::string& utf8);

} // namespace korvel::inspector
