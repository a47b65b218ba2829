#pragma once

#include "korvel/values/member_dispatch.h"

#include <functional>
#include <set>
#include <string>
#include <utility>

namespace korvel::internal {

/// Writes flags of which the host says that they have changed through to their objects.
class FlagWriter {
public:
    /// Writes only a flag that differs from the object's. Does nothing when reading the object made its row
    /// go, which `isGone` says, and from within the write of this same flag: an object may tell of it before
    /// it keeps it.
    void Write(IMemberDispatch& disp, const std::string& name, const CVariantValue& value,
               const std::function<bool()>& isGone);

private:
    std::set<std::pair<IMemberDispatch*, std::string>> m_inWriting;
};

} // namespace korvel::internal
