#pragma once

#include "korvel/output/format_notification.h"
#include "korvel/output/number_format.h"
#include "korvel/values/data_types.h"

namespace korvel::internal {

/// How the payload of a type is stored.
enum class ValueStorage { None, Int, Long, UInt, Float, Double, Bool, Text, Color, Group, List, Date };

/// What the value of a type means, which decides how it is written as text.
enum class ValueMeaning {
    Plain,
    Angle,
    List,
    Date,
    FileName,
    TextForm,
    Range,
    RailwayStation,
    RoadStation,
    Length,
    Area,
    Volume,
    Percent,
    Currency,
    ManDays,
    Random,
};

/// How the values of one data type are stored and written.
struct TypeRow {
    EDataTyps type;
    ValueStorage storage;
    ValueMeaning meaning;
    FormatService service; ///< whose change of format puts the value's text out of date
    NumberRecord record;   ///< the number format that `CNumberOutput` names for the type

    /// Whether the value reads as a number.
    bool IsNumeric() const {
        return storage >= ValueStorage::Int && storage <= ValueStorage::Double &&
               meaning != ValueMeaning::TextForm;
    }
};

/// The row of a type; null for what is no type, such as one with a modifier bit.
const TypeRow* FindTypeRow(EDataTyps type);

} // namespace korvel::internal
