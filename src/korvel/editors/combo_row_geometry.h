#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

/// Where the parts of one row of a CComboList are. All of them are as high as the row.
struct ComboRowGeometry {
    CRect bounds;        ///< of the row; its left edge is that of column 0
    int level = 1;       ///< of the item; 1 at the top
    int columnWidth = 0; ///< of column 0
    bool hasChecks = false;
    bool hasIcons = false;

    CRect TreeBox() const { return Square(4 + Indent() - Height()); }
    /// Four pixels further right than the end of the tree box: kept, hosts know where a check box is hit.
    CRect CheckBox() const { return Square(8 + Indent()); }
    CRect Icon() const { return Square(hasChecks ? 8 + Indent() + Height() : 4 + Indent()); }
    CRect Label() const {
        const int left = 4 + Indent() + (hasIcons ? Height() : 0) + (hasChecks ? Height() + 4 : 0);
        return {bounds.left + left, bounds.top, bounds.left + columnWidth, bounds.bottom};
    }

private:
    int Height() const { return bounds.Height(); }
    int Indent() const { return Height() * level; }
    CRect Square(int left) const {
        return {bounds.left + left, bounds.top, bounds.left + left + Height(), bounds.bottom};
    }
};

} // namespace korvel::internal
