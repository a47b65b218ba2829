#pragma once

namespace korvel {

/// Type tag of a value: a storage bit joined with at most one meaning bit.
///
/// Because the tags are bits, a set of permitted types is a mask:
///
///     bool allowed = (mask & type) == type;
enum EDataTyps : unsigned int {
    DT_Void = 0,
    DT_Int = 0x1,
    DT_Long = 0x2, // stored in 32 bits
    DT_Float = 0x4,
    DT_Double = 0x8,
    DT_Bool = 0x10,
    DT_String = 0x20,
    DT_ColorRGB = 0x40,
    DT_Group = 0x80,
    DT_UInt = 0x100,
    DT_ColorARGB = 0x1040,
    DT_AngleFloat = 0x2004, // angles are stored in radians
    DT_AngleDouble = 0x2008,
    DT_ListInt = 0x4001,
    DT_ListLong = 0x4002,
    DT_ListFloat = 0x4004,
    DT_ListDouble = 0x4008,
    DT_ListString = 0x4020,
    DT_Date = 0x8020,
    DT_FileName = 0x10020,
    DT_TextFormInt = 0x40001,
    DT_TextFormFloat = 0x40004,
    DT_TextFormDouble = 0x40008,
    DT_RangeInt = 0x80001, // kept within 0 to 100
    DT_RangeFloat = 0x80004,
    DT_RangeDouble = 0x80008,
    DT_RailwayStationFloat = 0x100004,
    DT_RailwayStationDouble = 0x100008,
    DT_RoadStationFloat = 0x200004,
    DT_RoadStationDouble = 0x200008,
    DT_LengthFloat = 0x400004,
    DT_LengthDouble = 0x400008,
    DT_AreaFloat = 0x800004,
    DT_AreaDouble = 0x800008,
    DT_VolumeFloat = 0x1000004,
    DT_VolumeDouble = 0x1000008,
    DT_PercentFloat = 0x2000004,
    DT_PercentDouble = 0x2000008,
    DT_CurrencyFloat = 0x4000004,
    DT_CurrencyDouble = 0x4000008,
    DT_ManDaysFloat = 0x8000004,
    DT_ManDaysDouble = 0x8000008,
    DT_RandomInt = 0x10000001,
    DT_RandomUInt = 0x10000100,
};

/// Set in every list type; what remains without it is the type of the entries.
inline constexpr unsigned int TypeBitList = 0x4000;

/// Modifier of any editable type: its cell shows `Text` on a button. The cell editor strips it before it
/// parses.
inline constexpr unsigned int TypeBitButton = 0x20000;

/// Modifier of any editable type: its cell shows `Text` and not the number.
inline constexpr unsigned int TypeBitTextForm = 0x40000;

} // namespace korvel
