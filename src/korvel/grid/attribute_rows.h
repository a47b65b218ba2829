#pragma once

#include "korvel/grid/attribute_tree.h"
#include "korvel/grid/flag_writer.h"
#include "korvel/grid/format_subscriptions.h"
#include "korvel/grid/member_index.h"
#include "korvel/grid/row_layout.h"
#include "korvel/grid/shown_objects.h"
#include "korvel/output/format_notification.h"
#include "korvel/window/base/loss_watch.h"

#include <functional>
#include <memory>
#include <string>

namespace korvel::internal {

/// Binds a tree to an object of the host: which rows there are, what they show, and how they follow what the
/// host says of its objects. Knows no window.
///
///     AttributeRows rows(tree, &observer, kind);
///     rows.Bind(&axis, [] {});              // the tree has a row for each member of the axis
///     rows.Change(&axis, "length", value);  // rewrites one cell
///     rows.Unbind();
///
/// Objects that throw, or know nothing of a member, show an empty value. The host may do anything while it is
/// called but destroy this object. When something throws all the same (the observer, a row notice, an
/// allocation), a binding that was being made is undone, a row that was being added is gone, and what was
/// being removed is gone with every sink taken back; then the first exception goes on.
class AttributeRows final : private FormatSink {
public:
    using CTreeItem = grid::CTreeItem;

    /// `tree`, `observer` (which may be null) and `kind` must outlive this.
    AttributeRows(AttributeTree& tree, IObserverGrid* observer, const EGridLayout& kind);

    /// Shows an object, null included. Without effect while one is shown, and from within Bind and Unbind.
    /// `addColumns` is called before the rows come.
    void Bind(IMemberDispatch* root, const std::function<void()>& addColumns);
    /// Shows nothing. From within Bind it ends that binding.
    void Unbind();

    bool IsBound() const { return m_isBound; }
    IMemberDispatch* GetRoot() const { return m_objects.Root(); }
    /// The object that owns the member of a row; where a row is an object, that object.
    IMemberDispatch* ObjectOf(const CTreeItem* row) const;
    /// The row of a nested object, or null.
    CTreeItem* Find(IMemberDispatch* disp) const { return m_objects.RowOf(disp); }
    /// The row of a member, or null; of several members of one name, the first.
    CTreeItem* Find(IMemberDispatch* disp, const std::string& name) const {
        return m_index.Find(disp, name).node;
    }

    /// Adds a member below `parent`, null for the root; -1 appends. Without effect while nothing is shown.
    void Insert(CTreeItem* parent, IMemberDispatch* disp, int position, const std::string& name,
                const CVariantValue& value);
    /// Removes a member with all below; the objects are not asked.
    void Remove(IMemberDispatch* disp, const std::string& name);

    // What a host says of its objects. What is not shown is ignored.
    void Add(IMemberDispatch* disp, const std::string& name, const CVariantValue& value);
    void InsertAt(int position, IMemberDispatch* disp, const std::string& name, const CVariantValue& value);
    void Change(IMemberDispatch* disp, const std::string& name, const CVariantValue& value);
    void ChangeEditFlag(IMemberDispatch* disp, const std::string& name, bool editable);
    void ChangeControlType(IMemberDispatch* disp, const std::string& name, const CVariantValue& value);
    void ChangePresentation(IMemberDispatch* disp, const std::string& text);
    void Rename(IMemberDispatch* disp, const std::string& name, const std::string& newName);

    /// Reads the members again whose text depends on a service.
    void RewriteMembers(FormatService service);
    /// Says which format service the text of a member depends on; false when the member is not shown.
    bool SetService(IMemberDispatch* disp, const std::string& name, FormatService service);
    FormatService GetService(IMemberDispatch* disp, const std::string& name) const {
        return m_index.Find(disp, name).service;
    }

    /// The tree has taken out a row with all below, which are about to be deleted. `formerParent`: null for
    /// what was at the root, or when it is not known any more.
    void OnRowUnlinked(CTreeItem& row, const CTreeItem* formerParent);

    LossWatch WatchRows() const { return LossWatch(m_rowLosses); }
    LossWatch WatchBinding() const { return LossWatch(m_bindingLosses); }

    /// Read by every binding, and without columns again when one has ended.
    RowLayout layout;

private:
    void OnFormatChanged(FormatService service) override { RewriteMembers(service); }

    void Fill(IMemberDispatch* root);
    void InsertMembers(IMemberDispatch& disp, CTreeItem* parent);
    void InsertGroup(CTreeItem* parent, IMemberDispatch* disp, int position, const std::string& name,
                     IMemberDispatch* sub);
    void InsertMemberRow(CTreeItem* parent, IMemberDispatch& disp, int position, const std::string& name,
                         const CVariantValue& value);
    void InsertMemberCell(CTreeItem& row, IMemberDispatch& disp, const std::string& name,
                          const CVariantValue& value);
    void RemoveCell(const CTreeItem& row, IMemberDispatch& disp, const std::string& name);
    /// Where a row goes, and the member that it shows.
    struct RowPlace {
        CTreeItem* parent;
        int position;
        IMemberDispatch* disp;
        const std::string& name;
        FormatService service;
    };
    void ForgetRow(CTreeItem& row, const IMemberDispatch* owner, ShownObjects::Leaving& leaving);
    void AddRow(const RowPlace& place, std::unique_ptr<CItemInfo> info,
                const std::function<void(CTreeItem&)>& fill);

    int CellOf(const std::string& name) const { return layout.ColumnOf(name) - 1; }

    AttributeTree& m_tree;
    ShownObjects m_objects;
    MemberIndex m_index; // holds the registration with format services as well
    FormatSubscriptions m_subscriptions;
    FlagWriter m_flags;

    bool m_isBound = false;
    bool m_isRebinding = false; // in Bind or Unbind: neither begins anew
    bool m_isEnding = false;
    unsigned m_rowLosses = 0;
    unsigned m_bindingLosses = 0;
};

} // namespace korvel::internal
