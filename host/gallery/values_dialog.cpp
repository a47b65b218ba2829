#include "gallery/values_dialog.h"

#include "korvel/values/text_table.h"
#include "korvel/window/base/messages.h"

namespace korvel::gallery {
namespace {

constexpr UINT TemplateId = 301;
constexpr int RowHeight = 19;
constexpr int NoId = -1;
constexpr std::size_t TextDate = 8; // of two dates, the one without its picker

// The row of the Text table that names it.
struct Kind {
    EDataTyps type;
    int name;
};

constexpr Kind Kinds[ValuesDialog::KindCount] = {
    {DT_Int, 95},          {DT_ListString, 105},  {DT_String, 94},      {DT_LengthDouble, 112},
    {DT_AngleDouble, 104}, {DT_RangeDouble, 108}, {DT_RandomUInt, 109}, {DT_Bool, 100},
    {DT_Date, 106},        {DT_Date, 106},        {DT_ColorRGB, 102},   {DT_ColorARGB, 103},
    {DT_FileName, 107}};

CVariantValue ValueOf(EDataTyps type) {
    constexpr std::uint32_t HalfBlue = 0x80D67F2F;
    CVariantValue value;
    value.Type = type;
    if (type & DT_Double)
        value.Value.Double = type == DT_AngleDouble ? 1.0 : 12.5;
    else if (type == DT_Bool)
        value.Value.Bool = 1;
    else if (type == DT_ColorRGB || type == DT_ColorARGB)
        value.Value.UInt = HalfBlue;
    else if (type == DT_Date)
        value.Value.Double = 46085;
    else
        value.Value.Int = 42;
    if (type == DT_String || type == DT_FileName)
        value.Text = "plan.xml";
    return value;
}

} // namespace

ValuesDialog::ValuesDialog() : CDialog(TemplateId) {
    for (const Kind& kind : Kinds)
        m_labels.push_back(std::string(Text(kind.name)) + ":");
    int y = 7;
    for (int kind = 0; kind < KindCount; ++kind, y += RowHeight) {
        constexpr UINT Item = WS_TABSTOP | WS_BORDER;
        const char* label = m_labels[static_cast<std::size_t>(kind)].c_str();
        m_controls.push_back({"STATIC", label, NoId, 0, {7, y + 3, 90, 10}});
        m_controls.push_back({"KorvelItem", "", FirstId + kind, Item, {100, y, 100, 14}});
        m_controls.push_back(
            {"KorvelItem", "", FirstId + KindCount + kind, Item | WS_DISABLED, {207, y, 100, 14}});
    }
    constexpr UINT Frame = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    m_template = {TemplateId, "", Frame, {0, 0, 314, y + 3}, m_controls};
    m_resources = {{&m_template, 1}, {}};
    m_host.m_pResources = &m_resources;
}

std::intptr_t ValuesDialog::DoModal() {
    struct Former {
        CWinApp* const app = GetHostApp();
        ~Former() { SetHostApp(app); }
    } const former;
    SetHostApp(&m_host);
    return CDialog::DoModal();
}

std::vector<CVariantValue> ValuesDialog::Values() {
    std::vector<CVariantValue> values;
    for (const Kind& kind : Kinds)
        values.push_back(ValueOf(kind.type));
    for (CVariantValue& value : values)
        if (value.Type == DT_ListString)
            value = m_words.Selected("right");
        else if (value.Type == DT_FileName)
            value.EnumContext = &m_file;
        else if (value.Type == DT_Date)
            value.Text = "GDT_VALID";
    return values;
}

BOOL ValuesDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    const std::vector<CVariantValue> values = Values();
    for (std::size_t item = 0; item < m_items.size(); ++item) {
        m_items[item].SubclassDlgItem(FirstId + static_cast<int>(item), this);
        m_items[item].SetValue(values[item % KindCount]);
    }
    m_items[TextDate].Drop(); // as it looks when the picker has gone
    return 1;
}

} // namespace korvel::gallery
