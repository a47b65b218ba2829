#pragma once

#include "korvel/window/controls/button.h"
#include "korvel/window/core/dc.h"

namespace korvel {

/// The arrow beside the field of a closed combo: an owner-drawn button.
///
///     CGridCtrlComboBoxButton arrow;
///     arrow.Create("", 0x4001400B, rect, &grid, 107);
class KORVEL_API CGridCtrlComboBoxButton : public CButton {
public:
    void DrawItem(DRAWITEMSTRUCT* item) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

} // namespace korvel
