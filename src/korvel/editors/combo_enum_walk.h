#pragma once

#include "korvel/editors/combo_model.h"

namespace korvel {

template <class Visit>
void ComboModel::WalkEntries(Visit visit) {
    const unsigned binding = m_binding;
    EnumPosition position = m_enumeration->GetFirstPosition();
    while (binding == m_binding && position) {
        const long id = m_enumeration->GetNext(position);
        if (binding == m_binding)
            visit(id);
    }
}

} // namespace korvel
