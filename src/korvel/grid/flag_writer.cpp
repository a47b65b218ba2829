#include "korvel/grid/flag_writer.h"

#include "korvel/grid/member_reads.h"
#include "korvel/platform/first_failure.h"

namespace korvel::internal {

void FlagWriter::Write(IMemberDispatch& disp, const std::string& name, const CVariantValue& value,
                       const std::function<bool()>& isGone) {
    CVariantValue current;
    const bool isRead = ReadMember(disp, name, current);
    if (!isRead || isGone() || (current.Value.Bool != 0) == (value.Value.Bool != 0))
        return;
    const auto [member, isNew] = m_inWriting.emplace(&disp, name);
    if (!isNew)
        return;
    FirstFailure failure;
    failure.Try([&] { disp.SetMember(name, value); });
    m_inWriting.erase(member);
    failure.Rethrow();
}

} // namespace korvel::internal
