#include "korvel/window/controls/slider_ctrl.h"

namespace korvel {

bool CSliderCtrl::Create(UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, "msctls_trackbar32", "", style, rect, parent, id);
}

void CSliderCtrl::SetRange(int lower, int upper) {
    SendMessageA(TBM_SETRANGEMIN, 0, lower);
    SendMessageA(TBM_SETRANGEMAX, 1, upper);
}

int CSliderCtrl::GetRangeMin() const {
    return static_cast<int>(SendMessageA(TBM_GETRANGEMIN));
}

int CSliderCtrl::GetRangeMax() const {
    return static_cast<int>(SendMessageA(TBM_GETRANGEMAX));
}

void CSliderCtrl::SetPos(int position) {
    SendMessageA(TBM_SETPOS, 1, position);
}

int CSliderCtrl::GetPos() const {
    return static_cast<int>(SendMessageA(TBM_GETPOS));
}

void CSliderCtrl::SetTicFreq(int distance) {
    SendMessageA(TBM_SETTICFREQ, static_cast<WPARAM>(distance));
}

int CSliderCtrl::SetLineSize(int size) {
    return static_cast<int>(SendMessageA(TBM_SETLINESIZE, 0, size));
}

int CSliderCtrl::SetPageSize(int size) {
    return static_cast<int>(SendMessageA(TBM_SETPAGESIZE, 0, size));
}

} // namespace korvel
