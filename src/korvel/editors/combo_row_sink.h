#pragma once

#include "korvel/editors/combo_tree.h"

namespace korvel::internal {

/// Is told which rows of a ComboModel are new or gone, after it happened, and which items took the place of
/// others.
class ComboRowSink {
public:
    virtual void OnRowsAdded(ComboTree::RowRange rows) = 0;
    /// A group was closed; the items are still there.
    virtual void OnRowsHidden(ComboTree::RowRange rows) = 0;
    virtual void OnRowsRemoved(ComboTree::RowRange rows) = 0;
    /// `to` is what `from` was, in another place; `from` may be removed next.
    virtual void OnItemMoved(const ComboTreeItem& from, ComboTreeItem& to) = 0;

protected:
    ~ComboRowSink() = default;
};

} // namespace korvel::internal
