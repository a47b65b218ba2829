#pragma once

#include "korvel/grid/tree_item.h"
#include "korvel/values/observer_grid.h"

#include <functional>
#include <memory>
#include <string>

namespace korvel::internal {

/// The tree in which AttributeRows keeps its rows, and what only the control around it knows. Every
/// operation but LinkRow and MakeSink may call the host.
class AttributeTree {
public:
    using CTreeItem = grid::CTreeItem;

    /// Adds a row that is not shown yet, for a null `parent` at the root; `position` -1 appends.
    virtual CTreeItem* LinkRow(CTreeItem* parent, std::unique_ptr<CItemInfo> info, int position) = 0;
    virtual void ShowRow(CTreeItem& row) = 0;
    /// Removes a row with all below, and calls AttributeRows::OnRowUnlinked before they are deleted.
    virtual void RemoveRow(CTreeItem& row) = 0;
    /// The row's info has changed.
    virtual void RewriteRow(const CTreeItem& row) = 0;
    /// Makes a change of many rows, which are shown afterwards.
    virtual void ChangeMany(const std::function<void()>& change) = 0;

    /// The rows of a new binding have come.
    virtual void OnFilled() = 0;
    /// A binding ends: what is being edited goes first.
    virtual void OnEnding() = 0;
    /// A binding has ended: removes all rows, without OnRowUnlinked.
    virtual void OnEnded() = 0;

    virtual void ConvertToOutput(IMemberDispatch* disp, const std::string& name, const CVariantValue& value,
                                 std::string& text, CItemInfo::CONTROLTYPE& control) = 0;
    /// The image of a row, `image` unless someone else names another.
    virtual int ChooseImage(int image, const std::string& name, IMemberDispatch* disp) = 0;
    /// The sink through which the host says what changes in an object; null: in the root of each binding.
    virtual std::unique_ptr<IObserverGridSink> MakeSink(IMemberDispatch* disp) = 0;

protected:
    ~AttributeTree() = default;
};

} // namespace korvel::internal
