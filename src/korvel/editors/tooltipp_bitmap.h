#pragma once

#include "korvel/window/base/dc.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

/// A small window that shows a picture beside what the pointer rests on. It takes neither keyboard nor
/// activation. Its name is spelled so for good.
///
///     if (preview.Load("plan.png"))
///         preview.Show(list, row);   // screen coordinates: below the row, or above where the screen ends
///     preview.Hide();
class KORVEL_API CTooltippBitmap : public CWnd {
public:
    /// Scaled to fit; false, and nothing to show, for a file that is missing, broken or no picture.
    bool Load(const CString& path);
    /// Makes the window when there is none.
    void Show(CWnd& owner, const CRect& beside);
    void Hide();
    const Image& GetImage() const { return m_image; }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Paint(CDC& dc) const;

    Image m_image;
};

} // namespace korvel
