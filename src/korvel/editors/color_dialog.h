#pragma once

#include "korvel/window/core/cwnd.h"

namespace korvel {

/// Asks the user for a color.
///
///     CColorDialog dialog(RGB(255, 0, 0), 0, &frame);
///     if (dialog.DoModal() == IDOK)
///         Use(dialog.GetColor());
///
/// Any thread; the focus leaves meanwhile and comes back.
class KORVEL_API CColorDialog {
public:
    /// Begins with the low 24 bits of `color`. `flags` are kept for hosts that hand them over, and count for
    /// nothing. `parent` owns the chooser; null: none.
    explicit CColorDialog(COLORREF color = 0, UINT flags = 0, CWnd* parent = nullptr);

    /// IDOK or IDCANCEL.
    std::intptr_t DoModal();

    /// 0x00BBGGRR: the chosen color; the first one unless DoModal returned IDOK.
    COLORREF GetColor() const { return m_color; }

private:
    COLORREF m_color;
    HWND m_parent;
};

} // namespace korvel
