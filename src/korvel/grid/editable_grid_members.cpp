#include "korvel/grid/cell_conversion.h"
#include "korvel/grid/editable_grid.h"
#include "korvel/grid/member_reads.h"
#include "korvel/grid/row_icons.h"
#include "korvel/values/group_presentation.h"
#include "korvel/window/app/app.h"
#include "korvel/window/core/registered_messages.h"

#include <algorithm>
#include <climits>

namespace korvel {

namespace {

// Objects nested deeper show as groups without members: a host may make them endlessly.
constexpr int DeepestLevel = 2000;

int PositionOf(const unsigned long& position) {
    return position > static_cast<unsigned long>(INT_MAX) ? -1 : static_cast<int>(position);
}

std::vector<const std::string*> NamesInOrder(const std::list<std::string>& names, bool keepOrder) {
    std::vector<const std::string*> ordered;
    ordered.reserve(names.size());
    for (const std::string& name : names)
        ordered.push_back(&name);
    const auto before = [](const std::string* left, const std::string* right) { return *left < *right; };
    if (!keepOrder && !std::is_sorted(ordered.begin(), ordered.end(), before))
        std::sort(ordered.begin(), ordered.end(), before);
    return ordered;
}

bool IsSwatch(CItemInfo::CONTROLTYPE control) {
    return control == CItemInfo::ctColor || control == CItemInfo::ctColorAlpha;
}

} // namespace

void CEditableGrid::InsertItems(IMemberDispatch& disp, CTreeItem* parent, int position) {
    const std::list<std::string> names = ReadMemberNames(disp);
    const bool keepOrder = ReadOr(0u, [&] { return disp.GetOptions(); }) & DO_KeepOrder;
    m_Items.Reserve(&disp, names.size());
    const unsigned removals = GetRemovalCount();
    for (const std::string* name : NamesInOrder(names, keepOrder)) {
        CVariantValue value;
        ReadMember(disp, *name, value);
        if (GetRemovalCount() != removals)
            return; // the object has told of a removal meanwhile; `parent` may be gone
        InsertDispMember(parent, &disp, static_cast<unsigned long>(position), *name, value);
        if (position != -1)
            ++position;
    }
}

void CEditableGrid::InsertDispMember(CTreeItem* parent, IMemberDispatch* disp, const unsigned long& position,
                                     const std::string& name, const CVariantValue& value) {
    const ModuleStateGuard guard;
    if (!disp)
        return;
    if (value.Type == DT_Group)
        InsertGroup(parent, disp, PositionOf(position), name, value.Value.Dispatch);
    else if (m_Layout != eMultiColumn)
        InsertMemberRow(parent, *disp, PositionOf(position), name, value);
    else if (parent)
        InsertMemberCell(*parent, *disp, name, value);
}

CEditableGrid::CTreeItem* CEditableGrid::AddMemberNode(CTreeItem* parent, CItemInfo* info, int position) {
    return parent ? AddChildNode(parent, info, 1, &position) : AddRootNode(info, &position);
}

int CEditableGrid::AskImage(int image, const std::string& name, IMemberDispatch* disp) const {
    if (!(m_ImageStyle & IS_AskParent))
        return image;
    ImageIndex question{image, &name, disp};
    korvel::SendMessageA(korvel::GetParent(m_hWnd), WM_GET_IMAGEINDEX, 0,
                         reinterpret_cast<LPARAM>(&question));
    return question.index;
}

void CEditableGrid::InsertGroup(CTreeItem* parent, IMemberDispatch* disp, int position,
                                const std::string& name, IMemberDispatch* sub) {
    const unsigned removals = GetRemovalCount();
    auto info = std::make_unique<CItemInfo>();
    info->image = AskImage(RowIconGroup, name, disp);
    info->disp = sub;
    info->text = name;
    if (sub)
        ShowPresentation(*info, *sub);
    if (GetRemovalCount() != removals)
        return;
    CTreeItem* row = AddMemberNode(parent, info.release(), position);
    if (sub && !IsShownAbove(parent, sub) && row->indent() < DeepestLevel) {
        EnterGroup(sub, row);
        if (GetRemovalCount() == removals)
            InsertItems(*sub, row, -1);
        if (GetRemovalCount() != removals)
            return;
    }
    FileRow(disp, name, row, FormatService::None);
}

bool CEditableGrid::IsShownAbove(const CTreeItem* parent, const IMemberDispatch* sub) const {
    for (; parent; parent = parent->parent())
        if (parent->info->disp == sub)
            return true;
    return sub == m_pRootDisp;
}

void CEditableGrid::EnterGroup(IMemberDispatch* sub, CTreeItem* row) {
    const auto group = m_Groups.try_emplace(sub, sub, this, row).first;
    if (m_pObserver)
        m_pObserver->AddSink(sub, &group->second.sink);
}

GroupPresentation* CEditableGrid::PresentationOf(IMemberDispatch& sub) {
    auto* presentation = dynamic_cast<GroupPresentation*>(sub.m_pEnumValue);
    const bool showsText =
        presentation && ReadOr(false, [&] { return presentation->GetPresentationKind() == 1; });
    return showsText ? presentation : nullptr;
}

void CEditableGrid::ShowPresentation(CItemInfo& info, IMemberDispatch& sub) const {
    GroupPresentation* presentation = PresentationOf(sub);
    if (!presentation)
        return;
    const auto textOf = [&](const char* column) {
        return ReadOr(std::string(), [&] { return presentation->GetPresentationText(column); });
    };
    if (m_Layout != eMultiColumn) {
        info.SetSubItem(0, textOf(nullptr));
        info.SetControlType(0, CItemInfo::ctButton);
        return;
    }
    for (const auto& [column, name] : m_ColumnNames) {
        if (column == 0)
            continue;
        info.SetSubItem(info.GetSubItemCount(), textOf(name.c_str()));
        // Kept: the cell that is greyed is the one behind, so the first value cell stays plain.
        info.SetCellEnabled(column, false);
        info.SetControlType(column, CItemInfo::ctEdit);
    }
}

CEditableGrid::CellContent CEditableGrid::MakeCell(IMemberDispatch& disp, const std::string& name,
                                                   const CVariantValue& value) {
    CellContent cell;
    ReadOr(false, [&] {
        ConvertToOutput(&disp, name, value, cell.text, cell.control);
        UnescapeDashes(value, cell.text);
        return true;
    });
    if (IsSwatch(cell.control))
        cell.color = value.Value.UInt;
    return cell;
}

void CEditableGrid::StoreCell(CItemInfo& info, int cell, CellContent content) {
    if (cell < 0)
        return; // a member named as the tree's column has no cell
    info.SetSubItem(cell, std::move(content.text));
    info.SetControlType(cell, content.control);
    info.SetCellColor(cell, content.color);
}

void CEditableGrid::InsertMemberRow(CTreeItem* parent, IMemberDispatch& disp, int position,
                                    const std::string& name, const CVariantValue& value) {
    const unsigned removals = GetRemovalCount();
    auto info = std::make_unique<CItemInfo>();
    info->image = AskImage(RowIconMember, name, &disp);
    info->text = name;
    StoreCell(*info, 0, MakeCell(disp, name, value));
    info->SetCellEnabled(0, ReadMemberEditable(disp, name));
    const FormatService service = ServiceOf(value);
    if (GetRemovalCount() == removals)
        FileRow(&disp, name, AddMemberNode(parent, info.release(), position), service);
}

void CEditableGrid::InsertMemberCell(CTreeItem& row, IMemberDispatch& disp, const std::string& name,
                                     const CVariantValue& value) {
    const unsigned removals = GetRemovalCount();
    CellContent cell = MakeCell(disp, name, value);
    const bool isEditable = ReadMemberEditable(disp, name);
    const FormatService service = ServiceOf(value);
    if (GetRemovalCount() != removals)
        return;
    StoreCell(*row.info, GetSubItem(name) - 1, std::move(cell));
    // Kept: whatever its column, a member's protection greys the first value cell.
    row.info->SetCellEnabled(0, isEditable);
    if (m_Items.AddCell(&disp, name, &row, service) && service != FormatService::None)
        UpdateSubscriptions();
    RefreshRowTexts(&row);
}

void CEditableGrid::FileRow(IMemberDispatch* disp, const std::string& name, CTreeItem* row,
                            FormatService service) {
    const bool isFirst = m_Items.CountOf(service) == 0;
    if (m_Items.AddRow(disp, name, row, service) && isFirst)
        UpdateSubscriptions();
}

void CEditableGrid::RemoveDispMember(CTreeItem*, IMemberDispatch* disp, const std::string& name,
                                     const CVariantValue&) {
    const ModuleStateGuard guard;
    const MemberIndex::Found found = m_Items.Find(disp, name);
    if (!found.node)
        return;
    const RedrawPause pause(*this);
    if (found.isCell) {
        StoreCell(*found.node->info, GetSubItem(name) - 1, CellContent());
        m_Items.Remove(disp, name);
    } else {
        TakeNode(found.node);
    }
    UpdateSubscriptions();
}

// Everything that leads to the rows goes before the observer is told, which may come back here.
void CEditableGrid::OnNodeUnlinked(CTreeItem& top, const CTreeItem* formerParent) {
    m_Items.RemoveRow(formerParent ? formerParent->info->disp : m_pRootDisp, top);
    std::vector<CTreeItem*> order; // reversed: children in order, then their parent
    std::vector<CTreeItem*> open{&top};
    while (!open.empty()) {
        CTreeItem* node = open.back();
        open.pop_back();
        order.push_back(node);
        for (CTreeItem* child : node->children()) {
            m_Items.RemoveRow(node->info->disp, *child);
            open.push_back(child);
        }
    }
    std::vector<decltype(m_Groups)::node_type> groups;
    for (auto node = order.rbegin(); node != order.rend(); ++node) {
        const auto group = m_Groups.find((*node)->info->disp);
        if (group == m_Groups.end() || group->second.node != *node)
            continue;
        m_Items.RemoveObject(group->first); // cells of the row, too
        groups.push_back(m_Groups.extract(group));
    }
    if (m_pObserver)
        for (auto& group : groups)
            m_pObserver->RemoveSink(group.key(), &group.mapped().sink);
}

void CEditableGrid::ConvertToOutput(IMemberDispatch*, const std::string&, const CVariantValue& value,
                                    std::string& text, CItemInfo::CONTROLTYPE& control) {
    ConvertCell(value, text, control);
}

} // namespace korvel
