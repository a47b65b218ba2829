#pragma once

#include "korvel/window/controls/button.h"

#include <cstdint>

namespace korvel::mfcSharedCtrls {

/// A push button that shows a color: of class "BUTTON" with BS_OWNERDRAW.
///
///     CColoredButton button;
///     button.color = RGB(255, 0, 0);
///     button.SubclassDlgItem(4044, &dialog);
///
/// A new color shows when the button is next painted. The focus rectangle has a frame in black or white below
/// it: its dots alone are not seen on every color.
class KORVEL_API CColoredButton : public CButton {
public:
    void DrawItem(DRAWITEMSTRUCT* item) override;

    std::uint32_t color = 0; ///< the low 24 bits: 0x00BBGGRR
    bool showText = false;   ///< the button's text lies over the color, in black or white
};

} // namespace korvel::mfcSharedCtrls
