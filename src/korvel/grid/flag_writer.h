#pragma once

#include "korvel/grid/loss_watch.h"
#include "korvel/values/member_dispatch.h"

#include <set>
#include <string>
#include <utility>

namespace korvel::internal {

/// Writes flags that the host tells of through to their objects.
class FlagWriter {
public:
    /// Writes only a flag that differs from the object's. Does nothing when `rows` are lost while the object
    /// is read, and from within the write of this same flag: an object may tell of it before it keeps it.
    void Write(IMemberDispatch& disp, const std::string& name, const CVariantValue& value,
               const LossWatch& rows);

private:
    std::set<std::pair<IMemberDispatch*, std::string>> m_inWriting;
};

} // namespace korvel::internal
