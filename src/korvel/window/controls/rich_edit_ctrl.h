#pragma once

#include "korvel/window/base/control_messages.h"
#include "korvel/window/controls/edit.h"

namespace korvel {

/// What EM_EXGETSEL and EM_EXSETSEL carry (lParam): places in bytes of the text.
struct CHARRANGE {
    int cpMin = 0;
    int cpMax = 0;
};

/// A text field that keeps a text as it is: classes "RICHEDIT50W", "RichEdit20W" and "RichEdit20A". A field
/// like CEdit in all but this:
///
/// - it tells EN_CHANGE and EN_UPDATE only where the event mask has ENM_CHANGE and ENM_UPDATE, and then also
///   when a program sets the text of a field of several lines;
/// - its limit is 32767 bytes at first.
///
///     text.SetEventMask(ENM_CHANGE);            // ENM_NONE, the former one
///     text.SetWindowTextA("one\ntwo\r\n");      // EN_CHANGE
///     text.GetWindowTextA();                    // "one\ntwo\r\n"
///
/// Line ends that the user does not touch stay what they are; Return types "\r\n".
class KORVEL_API CRichEditCtrl : public CEdit {
public:
    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);
    /// Returns the former mask (ENM_*).
    UINT SetEventMask(UINT mask);
    UINT GetEventMask() const;
};

} // namespace korvel
