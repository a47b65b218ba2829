#include "korvel/grid/member_label_edit.h"

#include "korvel/grid/chosen_member.h"
#include "korvel/grid/object_watch.h"
#include "korvel/grid/write_frame.h"
#include "korvel/platform/error.h"
#include "korvel/values/refusal_text.h"

namespace korvel::internal {

namespace {

constexpr int RenamedText = 31;

} // namespace

bool MemberLabelEdit::Begin() {
    bool isAllowed = false;
    m_frame.RunOutside([&] {
        ChosenMember member = LabelOf(m_grid.GetSelectedNode(), m_rows);
        if (!member)
            member.disp = m_rows.GetRoot(); // kept: without a selected row the object itself is asked
        if (!member)
            return;
        const ObjectWatch object(m_rows, member.disp);
        if (!(member.disp->GetMemberFlags(member.name) & (MF_Rename | MF_Change)) || !object)
            return;
        const std::string label = member.disp->GetMemberLabel(member.name);
        SetWindowTextA(m_grid.GetEditControl(), label);
        isAllowed = static_cast<bool>(object);
    });
    return isAllowed;
}

bool MemberLabelEdit::End(int row, const char* text) {
    if (!text)
        return false;
    const std::string newName = text;
    if (newName.empty()) {
        m_frame.Tell(InvalidNameText(newName));
        return false;
    }
    ChosenMember member;
    m_frame.RunOutside([&] { member = LabelOf(m_grid.NodeAtRow(row), m_rows); });
    if (!member)
        return false;
    IMemberDispatch* disp = member.disp;
    const ObjectWatch object(m_rows, disp);
    return m_frame.Run(RenamedText, [&](HistoryStep& step) {
        if (!object)
            return false; // the parent has ended it
        if (!disp->OnRenameMember(member.name.c_str(), newName.c_str())) {
            if (!object)
                return false;
            if (!disp->RenameMember(member.name, newName))
                throw Error(TakenNameText(newName));
        }
        step.Close(); // before the observer is told
        if (object && m_observer)
            m_observer->OnRename(disp, nullptr, member.name, newName);
        return true;
    });
}

} // namespace korvel::internal
