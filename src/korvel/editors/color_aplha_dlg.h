#pragma once

#include "korvel/editors/colored_button.h"
#include "korvel/window/controls/slider_ctrl.h"
#include "korvel/window/dialog/dialog.h"

#include <cstdint>

namespace korvel {

/// Asks the user for a color with its transparency. The spelling is the contract's.
///
///     CColorAplhaDlg dialog(0xFF0000FF, &frame);   // red, opaque
///     if (dialog.DoModal() == IDOK)
///         Use(dialog.GetColorWord());              // 0x7F0000FF: half transparent
///
/// The top byte of a color word is the opacity, 255 for opaque. The dialog knows percents of transparency, so
/// not every opacity comes back as it was: 0x80 is 50 %, which is 0x7F; 0xFF and 0 do.
class KORVEL_API CColorAplhaDlg : public CDialog {
public:
    explicit CColorAplhaDlg(COLORREF colorWord, CWnd* parent = nullptr);

    std::intptr_t DoModal() override;

    /// What the user chose.
    COLORREF GetColorWord() const;

    BOOL OnInitDialog() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

    std::uint32_t color;          ///< 0x00BBGGRR
    std::uint32_t colorFlags = 0; ///< for CColorDialog
    std::uint8_t transparency;    ///< percent
    CSliderCtrl slider;
    mfcSharedCtrls::CColoredButton colorButton;

private:
    void ChooseColor();
    void ShowTransparency();
};

} // namespace korvel
