#pragma once

#include "korvel/grid/edit_decision.h"
#include "korvel/grid/member_commit.h"
#include "korvel/window/core/cwnd.h"

namespace korvel::internal {

/// What clicks in cells do at once: toggle, choose, roll, press.
class CellActions {
public:
    CellActions(CWnd& grid, EditedMembers& members, const MemberCommit& commit)
        : m_grid(grid), m_members(members), m_commit(commit) {}

    /// Nothing for the actions that open a control.
    void Do(CellAction action, IMemberDispatch* disp, const std::string& name);
    /// Whether the file of this member lets the user type its path.
    bool CanTypePath(IMemberDispatch* disp, const std::string& name) const;

private:
    void ToggleFlag(IMemberDispatch* disp, const std::string& name);
    void Choose(CellAction action, IMemberDispatch* disp, const std::string& name);
    void ChangeAngleUnit(IMemberDispatch* disp, const std::string& name);
    void OpenFile(IMemberDispatch* disp, const std::string& name);
    void PressButton(IMemberDispatch* disp, const std::string& name);
    void PressGroup(IMemberDispatch* disp, const std::string& name);
    void RollDice(IMemberDispatch* disp, const std::string& name);
    void WriteIfNew(IMemberDispatch* disp, const std::string& name, const CVariantValue& old,
                    const CVariantValue& value);

    CWnd& m_grid;
    EditedMembers& m_members;
    const MemberCommit& m_commit;
};

} // namespace korvel::internal
