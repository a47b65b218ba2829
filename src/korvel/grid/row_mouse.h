#pragma once

#include "korvel/window/list/list_ctrl.h"

namespace korvel {
class CSuperGridCtrl;
namespace grid {
class CTreeItem;
}
} // namespace korvel

namespace korvel::internal {

class RowWatch;

/// What presses in the rows of a tree grid do; for the time of one press.
class RowMouse {
public:
    explicit RowMouse(CSuperGridCtrl& grid) : m_grid(grid) {}

    void Press(UINT flags, CPoint point);
    void DoubleClick(CPoint point);

private:
    enum class ToggledBy { Sign, DoubleClick };

    bool TakeCheck(grid::CTreeItem& node, const LVHITTESTINFO& hit);
    bool IsOnSign(const grid::CTreeItem& node, const LVHITTESTINFO& hit) const;
    void Toggle(const RowWatch& row, int number, ToggledBy by);

    CSuperGridCtrl& m_grid;
};

} // namespace korvel::internal
