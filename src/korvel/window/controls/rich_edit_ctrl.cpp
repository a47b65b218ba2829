#include "korvel/window/controls/rich_edit_ctrl.h"

namespace korvel {

bool CRichEditCtrl::Create(UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, "RICHEDIT50W", "", style, rect, parent, id);
}

UINT CRichEditCtrl::SetEventMask(UINT mask) {
    return static_cast<UINT>(SendMessageA(EM_SETEVENTMASK, 0, static_cast<LPARAM>(mask)));
}

UINT CRichEditCtrl::GetEventMask() const {
    return static_cast<UINT>(SendMessageA(EM_GETEVENTMASK));
}

} // namespace korvel
