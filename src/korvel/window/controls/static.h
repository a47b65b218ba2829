#pragma once

#include "korvel/window/core/cwnd.h"

namespace korvel {

/// A text that shows only: class "STATIC".
class KORVEL_API CStatic : public CWnd {
public:
    bool Create(const CString& text, UINT style, const CRect& rect, CWnd* parent, int id);
};

} // namespace korvel
