#include "korvel/window/controls/static.h"

#include "korvel/window/core/window_class.h"

namespace korvel {

using namespace internal;

namespace {

class StaticState : public ControlState {
public:
    view::Kind Kind() const override { return view::Kind::Static; }
};

LRESULT StaticProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETDLGCODE)
        return DLGC_STATIC;
    return DefWindowProcA(window, message, wParam, lParam);
}

[[maybe_unused]] const bool Registered = RegisterControlClass<StaticState>("STATIC", StaticProcedure);

} // namespace

bool CStatic::Create(const CString& text, UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, "STATIC", text.c_str(), style, rect, parent, id);
}

} // namespace korvel
