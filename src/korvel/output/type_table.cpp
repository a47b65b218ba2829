#include "korvel/output/type_table.h"

#include <algorithm>
#include <iterator>

namespace korvel {

namespace {

using M = ValueMeaning;
using N = NumberRecord;
using S = ValueStorage;
using V = FormatService;

constexpr int NoText = -1;

// In the order of the types. Lists are written with the formats of their entries, so no service is named
// here.
constexpr TypeRow Rows[] = {
    {DT_Void, S::None, M::Plain, 117, V::None, N::Double},
    {DT_Int, S::Int, M::Plain, 95, V::Number, N::Integer},
    {DT_Long, S::Long, M::Plain, 97, V::Number, N::Long},
    {DT_Float, S::Float, M::Plain, 99, V::Number, N::Float},
    {DT_Double, S::Double, M::Plain, 98, V::Number, N::Double},
    {DT_Bool, S::Bool, M::Plain, 100, V::None, N::Double},
    {DT_String, S::Text, M::Plain, 94, V::None, N::Double},
    {DT_ColorRGB, S::Color, M::Plain, 102, V::None, N::Double},
    {DT_Group, S::Group, M::Plain, 101, V::None, N::Double},
    {DT_UInt, S::UInt, M::Plain, 96, V::Number, N::Integer},
    {DT_ColorARGB, S::Color, M::Plain, 103, V::None, N::Double},
    {DT_AngleFloat, S::Float, M::Angle, 104, V::Angle, N::Double},
    {DT_AngleDouble, S::Double, M::Angle, 104, V::Angle, N::Double},
    {DT_ListInt, S::List, M::List, 105, V::None, N::Double},
    {DT_ListLong, S::List, M::List, 105, V::None, N::Double},
    {DT_ListFloat, S::List, M::List, 105, V::None, N::Double},
    {DT_ListDouble, S::List, M::List, 105, V::None, N::Double},
    {DT_ListString, S::List, M::List, 105, V::None, N::Double},
    {DT_Date, S::Date, M::Date, 106, V::Date, N::Double},
    {DT_FileName, S::Text, M::FileName, 107, V::None, N::Double},
    {DT_TextFormInt, S::Int, M::TextForm, NoText, V::None, N::Double},
    {DT_TextFormFloat, S::Float, M::TextForm, NoText, V::None, N::Double},
    {DT_TextFormDouble, S::Double, M::TextForm, NoText, V::None, N::Double},
    {DT_RangeInt, S::Int, M::Range, 108, V::Number, N::Integer},
    {DT_RangeFloat, S::Float, M::Range, 108, V::Number, N::Float},
    {DT_RangeDouble, S::Double, M::Range, 108, V::Number, N::Double},
    {DT_RailwayStationFloat, S::Float, M::RailwayStation, 110, V::Station, N::Float},
    {DT_RailwayStationDouble, S::Double, M::RailwayStation, 110, V::Station, N::Double},
    {DT_RoadStationFloat, S::Float, M::RoadStation, 111, V::Station, N::Float},
    {DT_RoadStationDouble, S::Double, M::RoadStation, 111, V::Station, N::Double},
    {DT_LengthFloat, S::Float, M::Length, 112, V::Number, N::Float},
    {DT_LengthDouble, S::Double, M::Length, 112, V::Number, N::Double},
    {DT_AreaFloat, S::Float, M::Area, 113, V::Number, N::Float},
    {DT_AreaDouble, S::Double, M::Area, 113, V::Number, N::Double},
    {DT_VolumeFloat, S::Float, M::Volume, 114, V::Number, N::Float},
    {DT_VolumeDouble, S::Double, M::Volume, 114, V::Number, N::Double},
    {DT_PercentFloat, S::Float, M::Percent, 115, V::Number, N::Float},
    {DT_PercentDouble, S::Double, M::Percent, 115, V::Number, N::Double},
    {DT_CurrencyFloat, S::Float, M::Currency, 116, V::Number, N::Float},
    {DT_CurrencyDouble, S::Double, M::Currency, 116, V::Number, N::Double},
    {DT_ManDaysFloat, S::Float, M::ManDays, NoText, V::ManDays, N::Float},
    {DT_ManDaysDouble, S::Double, M::ManDays, NoText, V::ManDays, N::Double},
    {DT_RandomInt, S::Int, M::Random, 109, V::Number, N::Integer},
    {DT_RandomUInt, S::UInt, M::Random, 109, V::Number, N::Integer},
};

constexpr bool Before(const TypeRow& left, const TypeRow& right) {
    return left.Type < right.Type;
}
static_assert(std::is_sorted(std::begin(Rows), std::end(Rows), Before), "FindTypeRow searches in this order");

} // namespace

const TypeRow* FindTypeRow(EDataTyps type) {
    const TypeRow* row = std::lower_bound(std::begin(Rows), std::end(Rows), type,
                                          [](const TypeRow& r, EDataTyps wanted) { return r.Type < wanted; });
    return row != std::end(Rows) && row->Type == type ? row : nullptr;
}

} // namespace korvel
