#include "korvel/grid/column_state.h"

#include "korvel/grid/attribute_rows.h"
#include "korvel/grid/column_record.h"
#include "korvel/platform/settings_store.h"

namespace korvel::internal {

using platform::SettingsRoot;
using platform::SettingsStatus;

void ColumnState::Write(const CXmlNodeBase& state) const {
    WriteColumns(m_columns.Widths(), state);
}

void ColumnState::Read(const XmlElement& state) {
    m_columns.Apply(ReadColumns(state));
}

void ColumnState::Save(const std::string& key) const {
    try {
        const std::string name = ValueName();
        if (!m_columns.Widths().empty())
            platform::WriteSetting(SettingsRoot::User, key, name,
                                   platform::SettingValue::Binary(PackColumns(m_columns.Widths())));
    } catch (...) {
    }
}

void ColumnState::Load(const std::string& key) {
    std::optional<std::vector<SColumnInfo>> columns;
    try {
        platform::SettingValue value;
        if (platform::ReadSetting(SettingsRoot::User, key, ValueName(), value) == SettingsStatus::Done &&
            value.type == platform::SettingType::Binary)
            columns = UnpackColumns(value.bytes);
    } catch (...) {
    }
    if (columns && columns->size() == static_cast<std::size_t>(m_columns.Count()))
        m_columns.Apply(*columns);
}

std::string ColumnState::ValueName() const {
    const std::string id = std::to_string(m_grid.GetDlgCtrlID()) + ' ';
    const IMemberDispatch* root = m_rows.GetRoot();
    return root ? id + root->GetIdent() : id;
}

} // namespace korvel::internal
