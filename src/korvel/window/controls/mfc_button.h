#pragma once

#include "korvel/window/controls/button.h"

namespace korvel {

/// A push button with a picture before its text.
///
///     CMFCButton add;
///     add.SubclassDlgItem(18036, this);
///     add.SetImage(15016);
class KORVEL_API CMFCButton : public CButton {
public:
    /// Shows the picture with that id (app/find_resource.h: FindPicture), no larger than the desktop has
    /// them on its buttons: one of 32 by 32 pixels is sharp at twice the scale, too. False, and no picture,
    /// when there is none.
    bool SetImage(UINT pictureId);
};

} // namespace korvel
