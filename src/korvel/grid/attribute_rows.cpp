#include "korvel/grid/attribute_rows.h"

#include "korvel/editors/cell_conversion.h"
#include "korvel/grid/group_texts.h"
#include "korvel/grid/member_content.h"
#include "korvel/grid/member_reads.h"
#include "korvel/grid/row_icons.h"
#include "korvel/grid/tree_walk.h"
#include "korvel/platform/first_failure.h"
#include "korvel/platform/raised_flag.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {

namespace {

// Objects nested deeper show as groups without members: a host may make them endlessly.
constexpr int DeepestLevel = 2000;

bool IsShownAbove(const grid::CTreeItem* row, const IMemberDispatch* sub) {
    while (row && row->info->disp != sub)
        row = row->parent();
    return row != nullptr;
}

} // namespace

AttributeRows::AttributeRows(AttributeTree& tree, IObserverGrid* observer, const EGridLayout& kind)
    : layout(kind), m_tree(tree), m_objects(tree, observer), m_subscriptions(*this) {}

void AttributeRows::Bind(IMemberDispatch* root, const std::function<void()>& addColumns) {
    if (m_isBound || m_isRebinding)
        return;
    const RaisedFlag rebinding(m_isRebinding);
    m_isBound = true;
    const LossWatch binding = WatchBinding();
    try {
        addColumns();
        if (binding)
            Fill(root);
        else
            m_tree.OnEnded(); // columns may have come since
    } catch (...) {
        FirstFailure later; // what made the binding fail goes on, not what its end brings
        later.Try([&] { binding ? Unbind() : m_tree.OnEnded(); });
        throw;
    }
}

void AttributeRows::Fill(IMemberDispatch* root) {
    const LossWatch binding = WatchBinding();
    m_objects.EnterRoot(root);
    if (root)
        m_tree.ChangeMany([&] { InsertMembers(*root, nullptr); });
    if (binding)
        m_objects.TellRoot();
    if (binding)
        m_tree.OnFilled();
    m_objects.TellAllAgain(); // kept: nested objects hear of their sink a second time
}

void AttributeRows::Unbind() {
    if (!m_isBound || m_isEnding)
        return;
    const RaisedFlag rebinding(m_isRebinding);
    const RaisedFlag ending(m_isEnding);
    FirstFailure failure;
    failure.Try([&] { m_tree.OnEnding(); });
    // Everything that leads to the rows goes before the observer is told, which may come back here.
    m_isBound = false;
    ++m_bindingLosses;
    ++m_rowLosses;
    ShownObjects::Leaving objects = m_objects.LeaveAll();
    m_index.Clear();
    layout.ClearColumns();
    failure.Try([&] { m_subscriptions.Update(m_index); });
    objects.TakeBack(failure);
    failure.Try([&] { m_tree.OnEnded(); });
    failure.Rethrow();
}

IMemberDispatch* AttributeRows::ObjectOf(const CTreeItem* row) const {
    if (!row)
        return nullptr;
    if (layout.RowsAreObjects())
        return row->info ? row->info->disp : nullptr;
    return row->parent() ? row->parent()->info->disp : GetRoot();
}

void AttributeRows::InsertMembers(IMemberDispatch& disp, CTreeItem* parent) {
    const LossWatch rows = WatchRows();
    std::list<std::string> names = ReadMemberNames(disp);
    if (rows && !ReadKeepsOrder(disp) && !std::is_sorted(names.begin(), names.end()))
        names.sort();
    if (!rows)
        return;
    m_index.Reserve(&disp, names.size());
    for (const std::string& name : names) {
        CVariantValue value;
        ReadMember(disp, name, value);
        if (rows)
            Insert(parent, &disp, -1, name, value);
        if (!rows)
            return; // `parent` may be gone, and the object with it
    }
}

void AttributeRows::Insert(CTreeItem* parent, IMemberDispatch* disp, int position, const std::string& name,
                           const CVariantValue& value) {
    if (!disp || !m_isBound)
        return;
    if (value.Type == DT_Group)
        InsertGroup(parent, disp, position, name, value.Value.Dispatch);
    else if (!layout.RowsAreObjects())
        InsertMemberRow(parent, *disp, position, name, value);
    else if (parent)
        InsertMemberCell(*parent, *disp, name, value);
}

void AttributeRows::InsertGroup(CTreeItem* parent, IMemberDispatch* disp, int position,
                                const std::string& name, IMemberDispatch* sub) {
    const LossWatch rows = WatchRows();
    auto info = std::make_unique<CItemInfo>();
    info->disp = sub;
    info->text = name;
    info->image = m_tree.ChooseImage(RowIconGroup, name, disp);
    if (rows && sub)
        ShowTexts(*sub, layout, rows, *info);
    if (!rows)
        return;
    const bool hasMembers = sub && sub != GetRoot() && !IsShownAbove(parent, sub);
    AddRow({parent, position, disp, name, FormatService::None}, std::move(info), [&](CTreeItem& row) {
        if (!hasMembers || row.indent() >= DeepestLevel)
            return;
        m_objects.Enter(*sub, row);
        if (rows)
            InsertMembers(*sub, &row);
    });
}

// The row is filed before it is shown, so that whoever hears of it can find and remove it.
void AttributeRows::AddRow(const RowPlace& place, std::unique_ptr<CItemInfo> info,
                           const std::function<void(CTreeItem&)>& fill) {
    const LossWatch rows = WatchRows();
    CTreeItem* row = m_tree.LinkRow(place.parent, std::move(info), place.position);
    try {
        if (m_index.AddRow(place.disp, place.name, row, place.service))
            m_subscriptions.Update(m_index);
        m_tree.ShowRow(*row);
        if (rows)
            fill(*row);
    } catch (...) {
        FirstFailure later;
        if (rows || Find(place.disp, place.name) == row)
            later.Try([&] { m_tree.RemoveRow(*row); });
        throw;
    }
}

void AttributeRows::InsertMemberRow(CTreeItem* parent, IMemberDispatch& disp, int position,
                                    const std::string& name, const CVariantValue& value) {
    const LossWatch rows = WatchRows();
    auto info = std::make_unique<CItemInfo>();
    info->text = name;
    info->image = m_tree.ChooseImage(RowIconMember, name, &disp);
    if (!rows)
        return;
    const auto content = MemberContent::Read(m_tree, disp, name, value, rows);
    if (!content)
        return;
    content->cell.StoreIn(*info, 0);
    info->SetCellEnabled(0, content->isEditable);
    AddRow({parent, position, &disp, name, content->service}, std::move(info), [](CTreeItem&) {});
}

void AttributeRows::InsertMemberCell(CTreeItem& row, IMemberDispatch& disp, const std::string& name,
                                     const CVariantValue& value) {
    const LossWatch rows = WatchRows();
    const auto content = MemberContent::Read(m_tree, disp, name, value, rows);
    if (!content || m_index.Find(&disp, name).node == &row)
        return; // of several members of one name the first is shown
    const bool isFiled = m_index.AddCell(&disp, name, &row, content->service);
    try {
        content->cell.StoreIn(*row.info, CellOf(name));
        // Kept: whatever its column, a member's protection greys the first value cell.
        row.info->SetCellEnabled(0, content->isEditable);
        m_subscriptions.Update(m_index);
        m_tree.RewriteRow(row);
    } catch (...) {
        FirstFailure later;
        if (rows || (isFiled && Find(&disp, name) == &row))
            later.Try([&] { RemoveCell(row, disp, name); });
        throw;
    }
}

void AttributeRows::RemoveCell(const CTreeItem& row, IMemberDispatch& disp, const std::string& name) {
    if (m_index.Find(&disp, name).node == &row)
        m_index.Remove(&disp, name);
    CellContent().StoreIn(*row.info, CellOf(name));
    m_subscriptions.Update(m_index);
}

void AttributeRows::Remove(IMemberDispatch* disp, const std::string& name) {
    const MemberIndex::Found found = m_index.Find(disp, name);
    if (!found.node)
        return;
    m_tree.ChangeMany([&] {
        if (!found.isCell) {
            m_tree.RemoveRow(*found.node);
            return;
        }
        RemoveCell(*found.node, *disp, name);
    });
}

// Everything that leads to the rows goes before the observer is told, which may come back here.
void AttributeRows::OnRowUnlinked(CTreeItem& top, const CTreeItem* formerParent) {
    ++m_rowLosses;
    ShownObjects::Leaving objects = m_objects.LeaveNone();
    TreeWalk::VisitUpward(top, [&](CTreeItem& row) {
        const CTreeItem* above = &row == &top ? formerParent : row.parent();
        ForgetRow(row, above ? above->info->disp : GetRoot(), objects);
    });
    FirstFailure failure;
    failure.Try([&] { m_subscriptions.Update(m_index); });
    objects.TakeBack(failure);
    failure.Rethrow();
}

void AttributeRows::ForgetRow(CTreeItem& row, const IMemberDispatch* owner, ShownObjects::Leaving& leaving) {
    const bool wasFiled = row.info->indexHash != 0;
    if (!m_index.RemoveRow(owner, row) && wasFiled)
        m_index.RemoveRow(row); // the host has added it for another object than that of the row above
    IMemberDispatch* disp = row.info->disp;
    if (disp && m_objects.RowOf(disp) == &row) {
        m_objects.Leave(disp, leaving);
        m_index.RemoveObject(disp); // the members that are cells as well
    } else if (disp && layout.RowsAreObjects()) {
        m_index.RemoveCells(disp, row); // a further row of an object that stays
    }
}

void AttributeRows::Add(IMemberDispatch* disp, const std::string& name, const CVariantValue& value) {
    const ShownObjects::Place shown = m_objects.PlaceOf(disp);
    if (!shown.isShown)
        return;
    const LossWatch binding = WatchBinding();
    Insert(shown.row, disp, -1, name, value);
    IMemberDispatch* sub = value.Value.Dispatch;
    if (value.Type != DT_Group || !sub || !binding)
        return;
    // Kept: the observer hears of an added object again, and of one that has no rows without a sink.
    if (!m_objects.TellAgain(sub) && !m_objects.HasNested() && Find(disp, name))
        m_objects.TellWithoutSink(*sub);
}

void AttributeRows::InsertAt(int position, IMemberDispatch* disp, const std::string& name,
                             const CVariantValue& value) {
    if (const ShownObjects::Place shown = m_objects.PlaceOf(disp); shown.isShown)
        Insert(shown.row, disp, position, name, value);
}

void AttributeRows::Change(IMemberDispatch* disp, const std::string& name, const CVariantValue& value) {
    CTreeItem* row = Find(disp, name);
    if (!row)
        return;
    const LossWatch rows = WatchRows();
    const auto isGone = [&] { return !rows && Find(disp, name) != row; };
    const EDataTyps type = ReadMemberType(*disp, name);
    if (isGone())
        return;
    const CellContent cell = MemberContent::ReadCell(m_tree, *disp, name, value, rows);
    if (isGone())
        return;
    if (type == DT_Bool)
        m_flags.Write(*disp, name, value, isGone); // kept: what the cell shows is read when it is drawn
    else if (FindCellConversion(type))
        cell.StoreIn(*row->info, CellOf(name));
    else
        return;
    if (!isGone())
        m_tree.RewriteRow(*row);
}

void AttributeRows::ChangeEditFlag(IMemberDispatch* disp, const std::string& name, bool editable) {
    const CTreeItem* row = Find(disp, name);
    if (!row)
        return;
    if (const int cell = CellOf(name); cell >= 0)
        row->info->SetCellEnabled(cell, editable);
    m_tree.RewriteRow(*row);
}

void AttributeRows::ChangeControlType(IMemberDispatch* disp, const std::string& name,
                                      const CVariantValue& value) {
    const CTreeItem* row = Find(disp, name);
    if (!row)
        return;
    const FormatService service = MemberContent::ReadService(value);
    if (Find(disp, name) != row)
        return;
    SetService(disp, name, service);
    const auto conversion = FindCellConversion(value.Type);
    if (!conversion || conversion->service == FormatService::None || conversion->control == CItemInfo::ctDate)
        return;
    // Kept: the first value cell, whatever the member's column is.
    row->info->SetControlType(0, conversion->control);
}

void AttributeRows::ChangePresentation(IMemberDispatch* disp, const std::string& text) {
    const CTreeItem* row = Find(disp);
    if (!row || !row->info)
        return;
    const bool isButton = ShowsTexts(*disp);
    if (Find(disp) != row)
        return;
    row->info->SetSubItem(0, text);
    if (isButton)
        row->info->SetControlType(0, CItemInfo::ctButton);
    m_tree.RewriteRow(*row);
}

void AttributeRows::Rename(IMemberDispatch* disp, const std::string& name, const std::string& newName) {
    const MemberIndex::Found found = m_index.Find(disp, name);
    if (name == newName || !found.node)
        return;
    CVariantValue value;
    const bool isRead = ReadMember(*disp, newName, value);
    if (Find(disp, name) != found.node)
        return;
    const FormatService service = isRead ? MemberContent::ReadService(value) : FormatService::None;
    if (Find(disp, name) != found.node)
        return;
    m_index.Rename(disp, name, newName, service);
    if (found.isCell)
        CellContent::Move(*found.node->info, CellOf(name), CellOf(newName));
    m_subscriptions.Update(m_index);
    m_tree.RewriteRow(*found.node);
}

bool AttributeRows::SetService(IMemberDispatch* disp, const std::string& name, FormatService service) {
    const bool isShown = m_index.SetService(disp, name, service);
    if (isShown)
        m_subscriptions.Update(m_index);
    return isShown;
}

void AttributeRows::RewriteMembers(FormatService service) {
    FirstFailure failure;
    m_tree.ChangeMany([&] {
        for (const auto& [disp, name] : m_index.MembersOf(service)) {
            IMemberDispatch* object = disp;
            const std::string& member = name;
            if (!Find(object, member))
                continue; // it was removed while another one was read
            failure.Try([&] {
                CVariantValue value;
                if (ReadMember(*object, member, value))
                    Change(object, member, value);
            });
        }
    });
    failure.Rethrow();
}

} // namespace korvel::internal
