#pragma once

#include "korvel/editors/combo_tree.h"

namespace korvel::internal {

/// Hears which rows of a ComboModel are new or gone, after it happened.
class ComboRowSink {
public:
    virtual void OnRowsAdded(ComboTree::RowRange rows) = 0;
    /// A group was closed; the items are still there.
    virtual void OnRowsHidden(ComboTree::RowRange rows) = 0;
    virtual void OnRowsRemoved(ComboTree::RowRange rows) = 0;

protected:
    ~ComboRowSink() = default;
};

} // namespace korvel::internal
