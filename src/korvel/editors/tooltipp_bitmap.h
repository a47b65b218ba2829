#pragma once

#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/dc.h"

namespace korvel {

/// A small window that shows a picture beside what the pointer rests on. It takes neither keyboard nor
/// activation, and hands the mouse on to the window that it covers. The spelling of its name is the
/// contract's.
///
///     if (preview.Load("plan.png"))
///         preview.Show(list, row);   // screen coordinates: below the row, or above where the screen ends
///     preview.Hide();
class KORVEL_API CTooltippBitmap : public CWnd {
public:
    /// Scaled to fit; false, and nothing to show, for a file that is missing, broken or no picture.
    bool Load(const CString& path);
    /// Below or above `beside` (screen coordinates). Makes the window when there is none; `owner` owns it
    /// then, and gets the mouse where the picture covers it.
    void Show(CWnd& owner, const CRect& beside);
    void Hide();
    const Image& GetImage() const { return m_image; }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Paint(CDC& dc) const;
    LRESULT PassMouseOn(UINT message, WPARAM wParam, LPARAM lParam) const;

    Image m_image;
    HWND m_covered = nullptr;
};

} // namespace korvel
