#include "korvel/editors/combo_binding.h"

namespace korvel::internal {

void ComboBinding::SetValue(const CVariantValue& value) {
    m_value = value;
    m_enumeration = value.EnumValue;
}

void ComboBinding::Close() {
    ++m_closings;
    m_isOpen = false;
    m_enumeration = nullptr;
}

bool ComboBinding::HasFlag(EnumFlags flag) const {
    return m_enumeration && (m_enumeration->GetEnumFlags() & flag) != 0;
}

bool ComboBinding::IsTable() const {
    return m_enumeration && m_enumeration->GetDataType() == DT_Group;
}

char ComboBinding::Separator() const {
    const bool hasTree = HasFlag(ENF_Tree); // a host that ends the binding here is asked nothing more
    const char* separator = m_enumeration ? m_enumeration->GetSeparator(hasTree) : nullptr;
    return separator ? *separator : '\0';
}

std::optional<char> ComboBinding::PathSeparator() const {
    return HasPaths() ? std::optional(Separator()) : std::nullopt;
}

std::string ComboBinding::ImagePath(long id) const {
    auto* images = dynamic_cast<EnumImages*>(m_enumeration);
    if (!images)
        return {};
    const LossWatch bound = Watch();
    const std::string own = images->GetImagePath(id);
    return own.empty() && bound ? images->GetCommonImagePath() : own;
}

} // namespace korvel::internal
