#include "korvel/window/controls/control_procedures.h"
#include "korvel/window/controls/controls.h"

namespace korvel {

bool CStatic::Create(const CString& text, UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, "STATIC", text.c_str(), style, rect, parent, id);
}

namespace internal {

LRESULT StaticProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETDLGCODE)
        return DLGC_STATIC;
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace internal
} // namespace korvel
