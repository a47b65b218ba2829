#pragma once

#include "korvel/platform/export.h"
#include "korvel/values/data_types.h"

#include <cstdint>
#include <string>

namespace korvel {

class IEnumValue;
class IFileValue;
class IMemberDispatch;

/// How a value is written as text.
enum class TextForm {
    UserFacing,    ///< under the user's formats, with unit signs; angles without
    Plain,         ///< the form of a default stream, with no format and no unit
    WithAngleUnit, ///< as UserFacing, and an angle says its unit: "90,00\xB0", "100,00 gon", "1,57 rad"
};

/// The 8 bytes of a value. `Type` of the record says which member counts; only its width is meaningful.
union ValuePayload {
    double Double = 0.0;
    float Float;
    std::int32_t Int;   ///< also of `DT_Long`
    std::uint32_t UInt; ///< also the color words
    unsigned char Bool; ///< 0 is false, anything else true
    IMemberDispatch* Dispatch;
};

/// The one record in which a typed value travels: attributes, cells, list entries.
///
///     CVariantValue value;
///     value.Type = DT_LengthDouble;
///     value.Value.Double = 1234.5;
///     value.ToText();                              // "1.234,50 m" under German formats
///     value.ToText(TextForm::Plain);              // "1234.5"
///     int(value);                                  // 1234
///     value.ChangeToType(DT_RangeInt).Value.Int;   // 100: a range ends there
///
/// Copies are shallow: a group's object and a list's enumeration are shared, never cloned, and never freed by
/// the record.
class KORVEL_API CVariantValue {
public:
    /// The number as text, entries of a list joined with "; " (angles without their unit, as a drop-down list
    /// shows them), empty for a type that has no text form. What the formatters throw passes through.
    std::string ToText(TextForm form = TextForm::UserFacing) const;

    /// As `ToText`, after what `out` holds already. When it throws, `out` may hold a part of the text.
    void AppendText(std::string& out, TextForm form = TextForm::UserFacing) const;

    /// The value as another numeric type; the source stays as it is. A plain number becomes an angle from the
    /// user's angle unit, and an angle a number in that unit; ranges are kept within 0 to 100.
    /// \throws std::invalid_argument for a target that is not numeric
    /// \throws invalid_operation for a source that is not numeric
    CVariantValue ChangeToType(EDataTyps target) const;

    /// Readings of the number, an angle in the user's angle unit. Fractions are cut off toward zero; what
    /// does not fit, and not-a-number, gives -2147483648 for the signed ones. \throws invalid_operation when
    /// the type is not numeric: bool, text, color, group, list, date, file, void
    explicit operator int() const;
    explicit operator long() const; ///< holds 32 bits
    explicit operator float() const;
    explicit operator double() const;

    /// Cut to signed 64 bits, of which the low 32 are kept: -1.5 reads as 4294967295. Beyond 64 bits, and for
    /// not-a-number, 0. The text of its exception names `operator double`; kept, because callers look for it.
    explicit operator unsigned int() const;

    /// Equal type, handles and payload. Groups are equal whatever object they hold, lists when their texts
    /// are; a record with not-a-number equals nothing.
    bool operator==(const CVariantValue& other) const;

    EDataTyps Type = DT_Void;

    /// The value of texts and file names, the state of dates ("GDT_VALID", "GDT_NONE"), the selection of
    /// lists.
    std::string Text;

    /// The enumeration of a list type; not owned, see `IDestroyValue`.
    IEnumValue* EnumValue = nullptr;

    /// The chooser of a file name; carried and compared with every type.
    IFileValue* EnumContext = nullptr;

    ValuePayload Value;
};

} // namespace korvel
