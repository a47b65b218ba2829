#include "landxml/value_writing.h"

#include "korvel/platform/code_page.h"
#include "landxml/number_reading.h"
#include "landxml/number_writing.h"
#include "source/blanks.h"

namespace korvel::inspector {
namespace {

constexpr unsigned Fractions = DT_Float | DT_Double;
constexpr unsigned Numbers = DT_Int | DT_Long | DT_UInt | Fractions;
constexpr unsigned Angle = DT_AngleDouble & ~DT_Double;
constexpr std::uint32_t ColorBits = 0x00FFFFFF;

bool IsAngle(EDataTyps type) {
    return (type & Angle) != 0;
}

bool IsText(EDataTyps type) {
    return type == DT_String || type == DT_FileName || type == DT_ListString;
}

std::string PlainNumberText(const CVariantValue& value) {
    if (IsAngle(value.Type))
        return NumberText(static_cast<double>(value.ChangeToType(DT_Double)));
    if ((value.Type & DT_Double) != 0)
        return NumberText(value.Value.Double);
    if ((value.Type & DT_Float) != 0)
        return NumberText(value.Value.Float);
    return (value.Type & DT_UInt) != 0 ? std::to_string(value.Value.UInt) : std::to_string(value.Value.Int);
}

std::string AngleOf(const CVariantValue& value, AngleUnit unit) {
    const CVariantValue angle = value.Type == DT_AngleDouble ? value : value.ChangeToType(DT_AngleDouble);
    return AngleText(angle.Value.Double, unit);
}

std::string FlagText(bool flag, std::string_view current) {
    const bool isDigit = Trim(current) == "0" || Trim(current) == "1";
    return isDigit ? (flag ? "1" : "0") : (flag ? "true" : "false");
}

std::string ColorText(std::uint32_t word) {
    return std::to_string(word & 0xFF) + "," + std::to_string(word >> 8 & 0xFF) + "," +
           std::to_string(word >> 16 & 0xFF);
}

std::optional<std::string> TextOfDate(double date, std::string_view current) {
    std::string text = DateText(date);
    if (text.empty())
        return std::nullopt;
    return ReadDate(current) ? text.append(ZoneOfDate(current)) : text;
}

} // namespace

bool IsNumber(EDataTyps type) {
    return (type & Numbers) != 0 && (type & (DT_String | DT_ColorRGB | DT_Group | TypeBitList)) == 0;
}

std::optional<std::string> WriteValue(const ValueType& type, const CVariantValue& value,
                                      std::string_view current, const ValuePlace& place) {
    if (IsText(value.Type))
        return platform::ToUtf8(value.Text);
    switch (type.meaning) {
    case Meaning::Text:
    case Meaning::FileName:
    case Meaning::Enumeration:
    case Meaning::Time:
    case Meaning::DateTime:
        return std::nullopt;
    case Meaning::Flag:
        return value.Type == DT_Bool ? std::optional(FlagText(value.Value.Bool != 0, current)) : std::nullopt;
    case Meaning::Date:
        return value.Type == DT_Date && value.Text != "GDT_NONE" ? TextOfDate(value.Value.Double, current)
                                                                 : std::nullopt;
    case Meaning::Color:
        return (value.Type & DT_ColorRGB) != 0 ? std::optional(ColorText(value.Value.UInt)) : std::nullopt;
    default:
        break;
    }
    if (!IsNumber(value.Type))
        return std::nullopt;
    const AngleScale* scale = ScaleOf(type.meaning, place.units);
    return scale && scale->unit ? AngleOf(value, *scale->unit) : PlainNumberText(value);
}

bool MeansTheSame(const ValueType& type, const CVariantValue& a, const CVariantValue& b) {
    if (type.meaning == Meaning::Enumeration && IsText(a.Type) && IsText(b.Type)) {
        const long entry = type.enumeration->Find(a.Text);
        return entry != -1 ? entry == type.enumeration->Find(b.Text) : a.Text == b.Text;
    }
    if (IsText(a.Type) && IsText(b.Type))
        return a.Text == b.Text;
    if (a.Type == DT_Date && b.Type == DT_Date)
        return a.Text == b.Text && DateText(a.Value.Double) == DateText(b.Value.Double);
    if ((a.Type & DT_ColorRGB) != 0 && (b.Type & DT_ColorRGB) != 0)
        return ((a.Value.UInt ^ b.Value.UInt) & ColorBits) == 0;
    return (IsNumber(b.Type) && IsNumber(a.Type) && a.Type != b.Type ? b.ChangeToType(a.Type) : b) == a;
}

} // namespace korvel::inspector
