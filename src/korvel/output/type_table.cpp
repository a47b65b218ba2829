#include "korvel/output/type_table.h"

#include <algorithm>
#include <iterator>

namespace korvel::internal {

namespace {

using M = ValueMeaning;
using N = NumberRecord;
using S = ValueStorage;
using V = FormatService;

// In the order of the types. Lists are written with the formats of their entries, so no service is named
// here.
constexpr TypeRow Rows[] = {
    {DT_Void, S::None, M::Plain, V::None, N::Double},
    {DT_Int, S::Int, M::Plain, V::Number, N::Integer},
    {DT_Long, S::Long, M::Plain, V::Number, N::Long},
    {DT_Float, S::Float, M::Plain, V::Number, N::Float},
    {DT_Double, S::Double, M::Plain, V::Number, N::Double},
    {DT_Bool, S::Bool, M::Plain, V::None, N::Double},
    {DT_String, S::Text, M::Plain, V::None, N::Double},
    {DT_ColorRGB, S::Color, M::Plain, V::None, N::Double},
    {DT_Group, S::Group, M::Plain, V::None, N::Double},
    {DT_UInt, S::UInt, M::Plain, V::Number, N::Integer},
    {DT_ColorARGB, S::Color, M::Plain, V::None, N::Double},
    {DT_AngleFloat, S::Float, M::Angle, V::Angle, N::Double},
    {DT_AngleDouble, S::Double, M::Angle, V::Angle, N::Double},
    {DT_ListInt, S::List, M::List, V::None, N::Double},
    {DT_ListLong, S::List, M::List, V::None, N::Double},
    {DT_ListFloat, S::List, M::List, V::None, N::Double},
    {DT_ListDouble, S::List, M::List, V::None, N::Double},
    {DT_ListString, S::List, M::List, V::None, N::Double},
    {DT_Date, S::Date, M::Date, V::Date, N::Double},
    {DT_FileName, S::Text, M::FileName, V::None, N::Double},
    {DT_TextFormInt, S::Int, M::TextForm, V::None, N::Double},
    {DT_TextFormFloat, S::Float, M::TextForm, V::None, N::Double},
    {DT_TextFormDouble, S::Double, M::TextForm, V::None, N::Double},
    {DT_RangeInt, S::Int, M::Range, V::Number, N::Integer},
    {DT_RangeFloat, S::Float, M::Range, V::Number, N::Float},
    {DT_RangeDouble, S::Double, M::Range, V::Number, N::Double},
    {DT_RailwayStationFloat, S::Float, M::RailwayStation, V::Station, N::Float},
    {DT_RailwayStationDouble, S::Double, M::RailwayStation, V::Station, N::Double},
    {DT_RoadStationFloat, S::Float, M::RoadStation, V::Station, N::Float},
    {DT_RoadStationDouble, S::Double, M::RoadStation, V::Station, N::Double},
    {DT_LengthFloat, S::Float, M::Length, V::Number, N::Float},
    {DT_LengthDouble, S::Double, M::Length, V::Number, N::Double},
    {DT_AreaFloat, S::Float, M::Area, V::Number, N::Float},
    {DT_AreaDouble, S::Double, M::Area, V::Number, N::Double},
    {DT_VolumeFloat, S::Float, M::Volume, V::Number, N::Float},
    {DT_VolumeDouble, S::Double, M::Volume, V::Number, N::Double},
    {DT_PercentFloat, S::Float, M::Percent, V::Number, N::Float},
    {DT_PercentDouble, S::Double, M::Percent, V::Number, N::Double},
    {DT_CurrencyFloat, S::Float, M::Currency, V::Number, N::Float},
    {DT_CurrencyDouble, S::Double, M::Currency, V::Number, N::Double},
    {DT_ManDaysFloat, S::Float, M::ManDays, V::ManDays, N::Float},
    {DT_ManDaysDouble, S::Double, M::ManDays, V::ManDays, N::Double},
    {DT_RandomInt, S::Int, M::Random, V::Number, N::Integer},
    {DT_RandomUInt, S::UInt, M::Random, V::Number, N::Integer},
};

constexpr bool Before(const TypeRow& left, const TypeRow& right) {
    return left.type < right.type;
}
static_assert(std::is_sorted(std::begin(Rows), std::end(Rows), Before), "FindTypeRow searches in this order");

} // namespace

const TypeRow* FindTypeRow(EDataTyps type) {
    // Without a branch for each half: every cell asks.
    const TypeRow* row = Rows;
    for (std::size_t count = std::size(Rows); count > 1;) {
        const std::size_t half = count / 2;
        row += row[half].type <= type ? half : 0;
        count -= half;
    }
    return row->type == type ? row : nullptr;
}

} // namespace korvel::internal
