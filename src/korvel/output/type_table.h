#pragma once

#include "korvel/output/format_notification.h"
#include "korvel/output/number_output.h"
#include "korvel/values/data_types.h"

namespace korvel {

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

/// Everything that is known of one data type.
struct TypeRow {
    EDataTyps Type;
    ValueStorage Storage;
    ValueMeaning Meaning;
    int TextId;            ///< row of the Text table that names the type; -1: none does
    FormatService Service; ///< whose change of format puts the value's text out of date
    NumberRecord Record;   ///< the number format that `CNumberOutput` names for the type

    /// Whether the value reads as a number.
    bool IsNumeric() const {
        return Storage >= ValueStorage::Int && Storage <= ValueStorage::Double &&
               Meaning != ValueMeaning::TextForm;
    }
};

/// The row of a type; null for what is no type, as one with a modifier bit.
const TypeRow* FindTypeRow(EDataTyps type);

} // namespace korvel
