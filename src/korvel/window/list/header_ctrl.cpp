#include "korvel/window/list/header_ctrl.h"

#include "korvel/window/base/messages.h"

namespace korvel {

int CHeaderCtrl::GetItemCount() const {
    return static_cast<int>(SendMessageA(HDM_GETITEMCOUNT));
}

} // namespace korvel
