#include "korvel/grid/cell_conversion.h"
#include "korvel/grid/editable_grid.h"
#include "korvel/grid/member_reads.h"
#include "korvel/values/group_presentation.h"
#include "korvel/window/app/app.h"

#include <algorithm>

namespace korvel {

void CEditableGrid::OnChangeIdent(const std::string&, const std::string&) {}

void CEditableGrid::OnChange(IMemberDispatch* disp, const std::string& name, const CVariantValue& value) {
    const ModuleStateGuard guard;
    CTreeItem* node = LookupTreeItem(disp, name);
    if (!node)
        return;
    const unsigned removals = GetRemovalCount();
    const EDataTyps type = ReadMemberType(*disp, name);
    const bool isFlag = type == DT_Bool;
    CellContent cell;
    if (isFlag)
        WriteFlagThrough(*disp, name, value);
    else if (FindCellConversion(type))
        cell = MakeCell(*disp, name, value);
    else
        return;
    if (GetRemovalCount() != removals && LookupTreeItem(disp, name) != node)
        return; // gone while the object was read
    if (!isFlag)
        StoreCell(*node->info, GetSubItem(name) - 1, std::move(cell));
    RedrawNode(node);
}

void CEditableGrid::WriteFlagThrough(IMemberDispatch& disp, const std::string& name,
                                     const CVariantValue& value) {
    CVariantValue current;
    if (!ReadMember(disp, name, current) || (current.Value.Bool != 0) == (value.Value.Bool != 0))
        return;
    const auto [member, isNew] = m_flagsInWriting.emplace(&disp, name);
    if (!isNew)
        return; // the object tells of the flag before it keeps it
    try {
        disp.SetMember(name, value);
    } catch (...) {
        m_flagsInWriting.erase(member);
        throw;
    }
    m_flagsInWriting.erase(member);
}

void CEditableGrid::OnChangeEditFlag(IMemberDispatch* disp, const std::string& name, const bool& editable) {
    const ModuleStateGuard guard;
    const CTreeItem* node = LookupTreeItem(disp, name);
    if (!node)
        return;
    if (const int cell = GetSubItem(name) - 1; cell >= 0)
        node->info->SetCellEnabled(cell, editable);
    RefreshRowTexts(node);
}

void CEditableGrid::OnChangeControlType(IMemberDispatch* disp, const std::string& name, EDataTyps oldType,
                                        const CVariantValue& value) {
    const ModuleStateGuard guard;
    const CTreeItem* node = LookupTreeItem(disp, name);
    if (!node)
        return;
    RemoveSink(oldType, disp, name);
    Register(disp, name, ServiceOf(value));
    const auto conversion = FindCellConversion(value.Type);
    if (!conversion || conversion->service == FormatService::None || conversion->control == CItemInfo::ctDate)
        return;
    // Kept: the first value cell, whatever the member's column is.
    node->info->SetControlType(0, conversion->control);
}

void CEditableGrid::OnOperationAdd(IMemberDispatch* disp, const std::string& name,
                                   const CVariantValue& value) {
    const ModuleStateGuard guard;
    const ShownObject shown = FindShown(disp);
    if (!shown.isShown)
        return;
    InsertDispMember(shown.row, disp, static_cast<unsigned long>(-1), name, value);
    IMemberDispatch* sub = value.Value.Dispatch;
    if (value.Type != DT_Group || !sub || !m_pObserver)
        return;
    if (const auto group = m_Groups.find(sub); group != m_Groups.end())
        m_pObserver->AddSink(sub, &group->second.sink);
    else if (m_Groups.empty())
        m_pObserver->AddSink(sub, nullptr);
}

void CEditableGrid::OnOperationInsert(IMemberDispatch* disp, const unsigned long& position,
                                      const std::string& name, const CVariantValue& value) {
    const ModuleStateGuard guard;
    if (const ShownObject shown = FindShown(disp); shown.isShown)
        InsertDispMember(shown.row, disp, position, name, value);
}

void CEditableGrid::OnOperationRemove(IMemberDispatch* disp, const std::string& name,
                                      const CVariantValue& value) {
    const ModuleStateGuard guard;
    CTreeItem* node = LookupTreeItem(disp, name);
    if (!node)
        return;
    int selected = -1;
    if (GetSelectedNode() == node) {
        selected = RowOfNode(node);
        SetItemState(selected, 0, LVIS_SELECTED | LVIS_FOCUSED);
    }
    RemoveDispMember(FindShown(disp).row, disp, name, value);
    if (selected == -1)
        return;
    const int rows = GetItemCount();
    if (const int row = selected < rows ? selected : std::max(selected - 1, 0); row < rows)
        SelectRow(row);
}

void CEditableGrid::OnOperationRename(IMemberDispatch* disp, const std::string& name,
                                      const std::string& newName) {
    const ModuleStateGuard guard;
    const MemberIndex::Found found = m_Items.Find(disp, name);
    if (name == newName || !found.node)
        return;
    CVariantValue value;
    const bool isRead = ReadMember(*disp, newName, value);
    const FormatService service = isRead ? ServiceOf(value) : FormatService::None;
    if (m_Items.Find(disp, name).node != found.node)
        return; // gone while the object was read
    m_Items.Remove(disp, name);
    m_Items.Remove(disp, newName);
    if (found.isCell) {
        m_Items.AddCell(disp, newName, found.node, service);
        MoveCell(*found.node->info, GetSubItem(name) - 1, GetSubItem(newName) - 1);
    } else {
        found.node->info->text = newName;
        m_Items.AddRow(disp, newName, found.node, service);
    }
    UpdateSubscriptions();
    RefreshRowTexts(found.node);
}

void CEditableGrid::MoveCell(CItemInfo& info, int from, int to) {
    if (from < 0 || from == to)
        return;
    CellContent cell{info.GetSubItem(from), info.GetControlType(from), info.GetCellColor(from)};
    StoreCell(info, from, CellContent());
    StoreCell(info, to, std::move(cell));
}

void CEditableGrid::OnOperationChangeType(IMemberDispatch* disp, const std::string& name, EDataTyps oldType,
                                          const CVariantValue& value) {
    const ModuleStateGuard guard;
    OnChangeControlType(disp, name, oldType, value);
    OnChange(disp, name, value);
}

void CEditableGrid::OnOperationChangeTupelPresentation(IMemberDispatch* disp, const std::string& text) {
    const ModuleStateGuard guard;
    const CTreeItem* node = LookupTreeItem(disp);
    if (!node || !node->info)
        return;
    const bool isButton = PresentationOf(*disp) != nullptr;
    if (LookupTreeItem(disp) != node)
        return; // gone while the object was read
    node->info->SetSubItem(0, text);
    if (isButton)
        node->info->SetControlType(0, CItemInfo::ctButton);
    RefreshRowTexts(node);
}

} // namespace korvel
