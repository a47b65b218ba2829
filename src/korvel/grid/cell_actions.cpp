#include "korvel/grid/cell_actions.h"

#include "korvel/editors/angle_unit.h"
#include "korvel/editors/choose_color.h"
#include "korvel/editors/choose_file.h"
#include "korvel/editors/dice.h"
#include "korvel/values/enum_value.h"
#include "korvel/values/file_value.h"
#include "korvel/values/group_presentation.h"

namespace korvel::internal {

void CellActions::Do(CellAction action, IMemberDispatch* disp, const std::string& name) {
    switch (action) {
    case CellAction::ToggleFlag:
        return ToggleFlag(disp, name);
    case CellAction::ChooseColor:
    case CellAction::BrowseFile:
        return Choose(action, disp, name);
    case CellAction::ChangeAngleUnit:
        return ChangeAngleUnit(disp, name);
    case CellAction::OpenFile:
        return OpenFile(disp, name);
    case CellAction::PressButton:
        return PressButton(disp, name);
    case CellAction::PressGroup:
        return PressGroup(disp, name);
    case CellAction::RollDice:
        return RollDice(disp, name);
    default:
        return;
    }
}

void CellActions::ToggleFlag(IMemberDispatch* disp, const std::string& name) {
    CVariantValue value;
    if (!m_commit.Read(disp, name, value))
        return;
    value.Value.Bool = value.Value.Bool == 0;
    m_commit.Write(disp, name, value);
}

void CellActions::Choose(CellAction action, IMemberDispatch* disp, const std::string& name) {
    CVariantValue old;
    if (!m_commit.Read(disp, name, old))
        return;
    std::optional<CVariantValue> chosen;
    m_commit.RunOutside([&] {
        chosen = action == CellAction::BrowseFile ? ChooseFile(old, &m_grid) : ChooseColor(old, &m_grid);
    });
    if (chosen)
        WriteIfNew(disp, name, old, *chosen);
}

// After a choice of the user, which takes its time: everything may be gone or protected by then.
void CellActions::WriteIfNew(IMemberDispatch* disp, const std::string& name, const CVariantValue& old,
                             const CVariantValue& value) {
    if (value != old && m_commit.CanWrite(disp, name))
        m_commit.Write(disp, name, value);
}

void CellActions::ChangeAngleUnit(IMemberDispatch* disp, const std::string& name) {
    AdvanceAngleUnit();
    CVariantValue value;
    if (m_members.Options().Has(EGridOption::AngleUnit))
        m_members.ShowAngles();
    else if (m_commit.Read(disp, name, value))
        m_members.ShowValue(disp, name, value);
}

bool CellActions::CanTypePath(IMemberDispatch* disp, const std::string& name) const {
    constexpr std::uint32_t OnlyChosen = 1;
    CVariantValue value;
    bool canType = false;
    m_commit.RunOutside([&] {
        canType = disp->GetMember(name, value) &&
                  !(value.EnumContext && value.EnumContext->GetFileType() & OnlyChosen);
    });
    return canType && m_commit.IsShown(disp, name);
}

void CellActions::OpenFile(IMemberDispatch* disp, const std::string& name) {
    CVariantValue value;
    if (m_commit.Read(disp, name, value))
        m_commit.RunOutside([&] { m_members.OpenFile(value.Text); });
}

void CellActions::PressButton(IMemberDispatch* disp, const std::string& name) {
    m_commit.RunOutside([&] { disp->OnMemberCommand(name, 0); });
}

void CellActions::PressGroup(IMemberDispatch* disp, const std::string& name) {
    CVariantValue value;
    if (!m_commit.Read(disp, name, value) || value.Type != DT_Group || !value.Value.Dispatch)
        return;
    if (auto* presentation = dynamic_cast<GroupPresentation*>(value.Value.Dispatch->m_pEnumValue))
        m_commit.RunOutside([&] { presentation->OnPresentationClick(); });
}

void CellActions::RollDice(IMemberDispatch* disp, const std::string& name) {
    CVariantValue old;
    if (!m_commit.Read(disp, name, old))
        return;
    if (const auto rolled = Roll(old))
        m_commit.Write(disp, name, *rolled);
}

} // namespace korvel::internal
