#pragma once

#include "korvel/grid/attribute_rows.h"

namespace korvel::internal {

/// Says whether an object that the grid shows is still shown: look after every call of the host. An object
/// that is shown no more may be gone, and nothing of it is to be called.
///
///     const ObjectWatch object(rows, disp);
///     if (disp->GetMemberFlags(name) & MF_Delete && object)
///         disp->RemoveMember(name);
class ObjectWatch {
public:
    ObjectWatch(const AttributeRows& rows, IMemberDispatch* disp)
        : m_rows(rows), m_disp(disp), m_noLoss(rows.WatchRows()) {}

    explicit operator bool() const {
        return m_noLoss || (m_disp && (m_disp == m_rows.GetRoot() || m_rows.Find(m_disp)));
    }

private:
    const AttributeRows& m_rows;
    IMemberDispatch* m_disp;
    const LossWatch m_noLoss;
};

} // namespace korvel::internal
