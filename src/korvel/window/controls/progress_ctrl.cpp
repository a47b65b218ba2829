#include "korvel/window/controls/progress_ctrl.h"

namespace korvel {

bool CProgressCtrl::Create(UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, "msctls_progress32", "", style, rect, parent, id);
}

LPARAM CProgressCtrl::SetRange32(int lower, int upper) {
    return SendMessageA(PBM_SETRANGE32, static_cast<WPARAM>(lower), upper);
}

void CProgressCtrl::GetRange(int& lower, int& upper) const {
    lower = static_cast<int>(SendMessageA(PBM_GETRANGE, 1));
    upper = static_cast<int>(SendMessageA(PBM_GETRANGE, 0));
}

int CProgressCtrl::SetPos(int position) {
    return static_cast<int>(SendMessageA(PBM_SETPOS, static_cast<WPARAM>(position)));
}

int CProgressCtrl::OffsetPos(int delta) {
    return static_cast<int>(SendMessageA(PBM_DELTAPOS, static_cast<WPARAM>(delta)));
}

int CProgressCtrl::SetStep(int step) {
    return static_cast<int>(SendMessageA(PBM_SETSTEP, static_cast<WPARAM>(step)));
}

int CProgressCtrl::StepIt() {
    return static_cast<int>(SendMessageA(PBM_STEPIT));
}

int CProgressCtrl::GetPos() const {
    return static_cast<int>(SendMessageA(PBM_GETPOS));
}

void CProgressCtrl::SetMarquee(bool on, int milliseconds) {
    SendMessageA(PBM_SETMARQUEE, on, milliseconds);
}

} // namespace korvel
