#pragma once

#include "korvel/editors/combo_list_mode.h"
#include "korvel/values/enum_value.h"
#include "korvel/values/variant_value.h"
#include "korvel/window/base/loss_watch.h"

#include <optional>
#include <string>

namespace korvel::internal {

/// What a list is bound to: one enumeration of the host, from Open to Close, and the value that selects some
/// of its entries.
class ComboBinding {
public:
    explicit ComboBinding(EComboListMode mode) : m_mode(mode) {}

    /// What the next Open is about.
    void SetValue(const CVariantValue& value);
    CVariantValue& Value() { return m_value; }
    const CVariantValue& Value() const { return m_value; }
    /// Null while nothing is shown.
    IEnumValue* Enumeration() const { return m_enumeration; }
    EComboListMode Mode() const { return m_mode; }

    void Open() { m_isOpen = true; }
    void Close();
    bool IsOpen() const { return m_isOpen; }
    /// For whoever calls the host, who may end the binding, and even begin another one.
    LossWatch Watch() const { return LossWatch(m_closings); }

    bool HasFlag(EnumFlags flag) const;
    bool IsTable() const;
    /// Names are split into a tree.
    bool HasPaths() const { return m_mode != eDesignFlat && HasFlag(ENF_Tree); }
    /// '\0' when the enumeration names none.
    char Separator() const;
    /// What splits names; none where they stay whole.
    std::optional<char> PathSeparator() const;

    /// Of the entry's picture; empty when there is none.
    std::string ImagePath(long id) const;

    /// Calls `visit(id)` for each entry while this binding lasts.
    template <class Visit>
    void VisitEntries(Visit visit) const;

private:
    const EComboListMode m_mode;
    IEnumValue* m_enumeration = nullptr;
    CVariantValue m_value;
    bool m_isOpen = false;
    unsigned m_closings = 0;
};

template <class Visit>
void ComboBinding::VisitEntries(Visit visit) const {
    const LossWatch bound = Watch();
    EnumPosition position = m_enumeration->GetFirstPosition();
    while (bound && position) {
        const long id = m_enumeration->GetNext(position);
        if (bound)
            visit(id);
    }
}

} // namespace korvel::internal
