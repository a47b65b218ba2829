#include "korvel/grid/member_operations.h"

#include "korvel/grid/chosen_member.h"
#include "korvel/grid/member_reads.h"
#include "korvel/grid/new_attribute_dialog.h"
#include "korvel/grid/object_commands.h"
#include "korvel/grid/write_frame.h"
#include "korvel/values/text_table.h"
#include "korvel/values/type_names.h"

namespace korvel::internal {

namespace {

constexpr int TypeChangedText = 32;

std::string ConversionFailure(const std::string& value, EDataTyps target) {
    return std::string(Text(33)) + " " + value + " " + Text(34) + " " + TypeName(target);
}

std::string TextOf(const CVariantValue& value) {
    return ReadOr(
        value.Text, [&] { return value.ToText(); });
}

} // namespace

void MemberOperations::Add(const AttributeOffer& offer) {
    IMemberDispatch* disp = TargetOf(m_grid.GetSelectedNode(), m_grid.GetCurrentColumn(), m_rows).object;
    if (!disp)
        return;
    m_frame.RunOutside([&] {
        const ObjectWatch object(m_rows, disp);
        if (disp->OnAddMember() || !object)
            return;
        NewAttributeDialog dialog(object, m_observer, disp, offer.enumerations, offer.types,
                                  offer.canBeProtected, CWnd::FromHandle(m_grid.m_hWnd));
        dialog.SetOptions(offer.options);
        dialog.DoModal();
        dialog.RethrowOfObserver();
    });
}

void MemberOperations::Remove() {
    const ChosenMember member = SelectedMember(m_grid, m_rows);
    if (!member)
        return;
    m_frame.RunOutside([&] {
        IMemberDispatch* disp = member.disp;
        const ObjectWatch object(m_rows, disp);
        if (!(disp->GetMemberFlags(member.name) & MF_Delete) || !object)
            return;
        if (disp->OnRemoveMember(member.name.c_str()) || !object)
            return;
        CVariantValue value;
        ReadMember(*disp, member.name, value); // kept: objects are asked before they lose a member
        if (object && disp->RemoveMember(member.name) && object && m_observer)
            m_observer->OnRemove(disp, nullptr, member.name);
    });
}

void MemberOperations::ToggleWriteProtection() {
    const ChosenMember member = SelectedMember(m_grid, m_rows);
    if (!member)
        return;
    m_frame.RunOutside([&] {
        IMemberDispatch* disp = member.disp;
        const ObjectWatch object(m_rows, disp);
        const bool isEditable = !disp->IsMemberEditable(member.name);
        if (!object || !(disp->GetMemberFlags(member.name) & MF_WriteProtect) || !object)
            return;
        if (disp->SetMemberEditable(member.name, isEditable) && object && m_observer)
            m_observer->OnChangeEditFlag(disp, nullptr, member.name, isEditable);
    });
}

void MemberOperations::ChangeType(EDataTyps target) {
    const ChosenMember member = SelectedValue(m_grid, m_rows);
    if (!member)
        return;
    IMemberDispatch* disp = member.disp;
    const ObjectWatch object(m_rows, disp);
    CVariantValue value;
    std::string shown;
    bool isRead = false;
    m_frame.RunOutside([&] {
        isRead = disp->GetMember(member.name, value);
        shown = isRead && object ? TextOf(value) : "";
    });
    if (!isRead || !object)
        return;
    bool isConverting = false;
    m_frame.Run(
        TypeChangedText,
        [&](HistoryStep&) {
            EDataTyps formerType = value.Type;
            if (!object)
                return false; // the parent has ended it
            disp->GetMemberType(member.name, formerType);
            if (!object)
                return false;
            isConverting = true;
            const bool isChanged = disp->ChangeMemberType(member.name, target);
            isConverting = false;
            if (isChanged && object && disp->GetMember(member.name, value) && object && m_observer)
                m_observer->OnChangeType(disp, nullptr, member.name, formerType, value);
            return isChanged;
        },
        [&](const std::string& own) { return isConverting ? ConversionFailure(shown, target) : own; });
}

std::optional<std::string> MemberOperations::FindPath() {
    const ChosenMember member = SelectedValue(m_grid, m_rows);
    if (!member)
        return std::nullopt;
    const ObjectWatch object(m_rows, member.disp);
    std::optional<std::string> path;
    m_frame.RunOutside([&] {
        CVariantValue value;
        if (member.disp->GetMember(member.name, value) && object)
            path = value.Type == DT_FileName ? value.Text : value.ToText();
    });
    return path;
}

} // namespace korvel::internal
