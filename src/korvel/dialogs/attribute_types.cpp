#include "korvel/dialogs/attribute_types.h"

#include "korvel/dialogs/file_container.h"
#include "korvel/editors/cell_text_reading.h"
#include "korvel/editors/item_cell.h"
#include "korvel/platform/error.h"
#include "korvel/values/language.h"
#include "korvel/values/text_table.h"
#include "korvel/values/type_names.h"

namespace korvel::internal {

namespace {

constexpr std::uint32_t Black = 0xFF000000; // opaque

// Rows of the Text table.
constexpr int Bits32Text = 118;
constexpr int Bits64Text = 119;

constexpr EDataTyps PlainTypes[] = {DT_String, DT_Int,  DT_UInt,     DT_Long,      DT_Float,   DT_Double,
                                    DT_Bool,   DT_Date, DT_ColorRGB, DT_ColorARGB, DT_FileName};

// The two widths of an angle have one name.
struct WidthRow {
    EDataTyps type;
    int width;
};
constexpr WidthRow AngleTypes[] = {{DT_AngleFloat, Bits32Text}, {DT_AngleDouble, Bits64Text}};

struct MeasureRow {
    EDataTyps wide;
    EDataTyps narrow;
};
constexpr MeasureRow Measures[] = {
    {DT_LengthDouble, DT_LengthFloat},     {DT_AreaDouble, DT_AreaFloat},
    {DT_VolumeDouble, DT_VolumeFloat},     {DT_PercentDouble, DT_PercentFloat},
    {DT_CurrencyDouble, DT_CurrencyFloat}, {DT_ManDaysDouble, DT_ManDaysFloat}};

constexpr const char* ManDaysNames[] = {"Man-days", "Personentage",
                                        ""}; // by language: no row of the table has it

bool Allows(std::uint32_t allowed, unsigned type) {
    return (allowed & type) == type;
}

CVariantValue FreshValue(EDataTyps type) {
    CVariantValue value;
    value.Type = type;
    if (type == DT_ColorRGB || type == DT_ColorARGB)
        value.Value.UInt = Black;
    else if (type == DT_Date)
        value.Text = "GDT_NONE";
    else if (type == DT_FileName)
        value.EnumContext = GetFileContainer().GetFileValue(0);
    return value;
}

CVariantValue FreshList(IEnumValue& enumeration, EDataTyps type) {
    const CVariantValue* pattern = enumeration.GetTemplate();
    CVariantValue value = pattern ? *pattern : CVariantValue();
    value.Type = type;
    value.EnumValue = &enumeration;
    return value;
}

void AddEnumerations(std::uint32_t allowed, IEnumContainer& enumerations, std::vector<AttributeType>& types) {
    SEnumPosition position, end;
    enumerations.GetBegin(position);
    for (enumerations.GetEnd(end); !(position == end); enumerations.GetNext(position)) {
        IEnumValue* enumeration = enumerations.GetEnumValue(position);
        if (!enumeration)
            continue;
        const auto type = static_cast<EDataTyps>(enumeration->GetDataType() | TypeBitList);
        if (Allows(allowed, type))
            types.push_back({position.name, FreshList(*enumeration, type)});
    }
}

} // namespace

std::vector<AttributeType> AttributeTypes(std::uint32_t allowed, IEnumContainer* enumerations) {
    std::vector<AttributeType> types;
    const auto add = [&](EDataTyps type, const std::string& label) {
        if (Allows(allowed, type))
            types.push_back({label, FreshValue(type)});
    };
    for (const EDataTyps type : PlainTypes)
        add(type, TypeName(type));
    for (const WidthRow& angle : AngleTypes)
        add(angle.type, TypeName(angle.type) + " (" + Text(angle.width) + ")");
    for (const MeasureRow& measure : Measures) {
        const EDataTyps type = Allows(allowed, measure.wide) ? measure.wide : measure.narrow;
        add(type, measure.wide == DT_ManDaysDouble ? ManDaysNames[GetLanguage().column] : TypeName(type));
    }
    if (enumerations)
        AddEnumerations(allowed, *enumerations, types);
    return types;
}

CVariantValue FromTypedText(const CVariantValue& fresh, const std::string& typed, GridOptions options) {
    const ItemEditor editor = ItemEditorOf(fresh);
    CVariantValue value = fresh;
    try {
        if (editor == ItemEditor::Text || editor == ItemEditor::File)
            ReadCellText(fresh.Type, typed, options, value);
    } catch (const Error&) {
        return fresh;
    }
    return value;
}

} // namespace korvel::internal
