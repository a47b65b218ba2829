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
    /// Shows the picture with that id (app/find_resource.h: FindPicture), in its own size. False, and no
    /// picture, when there is none.
    bool SetImage(UINT pictureId);
};

} // namespace korvel
