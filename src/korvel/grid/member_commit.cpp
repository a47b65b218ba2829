#include "korvel/grid/member_commit.h"

#include "korvel/grid/member_reads.h"

namespace korvel::internal {

namespace {

constexpr int MemberEditedText = 30;

} // namespace

bool MemberCommit::IsShown(IMemberDispatch* disp, const std::string& name) const {
    return m_members.FindRow(disp, name) != nullptr;
}

bool MemberCommit::CanWrite(IMemberDispatch* disp, const std::string& name) const {
    return IsShown(disp, name) && ReadMemberEditable(*disp, name) && IsShown(disp, name);
}

bool MemberCommit::Read(IMemberDispatch* disp, const std::string& name, CVariantValue& value) const {
    bool isRead = false;
    RunOutside([&] { isRead = disp->GetMember(name, value); });
    return isRead && IsShown(disp, name);
}

bool MemberCommit::Write(IMemberDispatch* disp, const std::string& name, const CVariantValue& value) const {
    return RunStep([&](HistoryStep&) {
        if (!IsShown(disp, name) || !disp->SetMember(name, value)) // the parent has heard of the step before
            return false;
        if (m_observer && IsShown(disp, name))
            m_observer->OnChange(disp, nullptr, name, value);
        return true;
    });
}

bool MemberCommit::RunStep(const WriteFrame::Write& write, const WriteFrame::Explain& explain) const {
    return m_frame.Run(MemberEditedText, write, explain);
}

} // namespace korvel::internal
