#pragma once

#include "korvel/window/core/cwnd.h"

namespace korvel {

struct NMHEADER {
    NMHDR hdr;
    int iItem = -1; // the column
    int cxy = 0;    // its width now
};

/// The header of a report list: a child window of the list with the class "SysHeader32". A divider is
/// dragged with the mouse; the list hears HDN_BEGINTRACK, HDN_ITEMCHANGED at each step and HDN_ENDTRACK
/// (WM_NOTIFY with an NMHEADER). A double click on a divider fits the column to its content.
/// A return value of 1 for HDN_BEGINTRACK refuses the drag.
class KORVEL_API CHeaderCtrl : public CWnd {
public:
    int GetItemCount() const;
};

} // namespace korvel
