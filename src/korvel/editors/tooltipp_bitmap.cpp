#include "korvel/editors/tooltipp_bitmap.h"

#include "korvel/window/core/display.h"

namespace korvel {

namespace {

constexpr CSize Room{256, 256};
constexpr int Border = 1;

// Moved onto the screen when it begins there; the system says the size of the first screen only.
int MovedOntoScreen(int position, int size, int screen) {
    return position < screen ? std::max(0, std::min(position, screen - size)) : position;
}

} // namespace

bool CTooltippBitmap::Load(const CString& path) {
    auto image = Display().LoadPicture(path, Room);
    const bool isPicture = image && image->width > 0 && image->height > 0;
    m_image = isPicture ? std::move(*image) : Image();
    return isPicture;
}

void CTooltippBitmap::Show(CWnd& owner, const CRect& beside) {
    m_covered = owner.m_hWnd;
    if (!m_hWnd) {
        CreateEx(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, "KorvelFrame", "", WS_POPUP, {}, &owner,
                 0);
    }
    const int width = m_image.width + 2 * Border;
    const int height = m_image.height + 2 * Border;
    const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
    const bool fitsBelow = beside.bottom + height <= screenHeight || beside.bottom > screenHeight;
    const int left = MovedOntoScreen(beside.left, width, GetSystemMetrics(SM_CXSCREEN));
    const int top = fitsBelow ? beside.bottom : std::max(0, beside.top - height);
    SetWindowPos(HWND_TOP, {left, top, left + width, top + height}, SWP_NOACTIVATE | SWP_SHOWWINDOW);
    Invalidate();
}

void CTooltippBitmap::Hide() {
    if (IsWindowVisible())
        ShowWindow(SW_HIDE);
}

LRESULT CTooltippBitmap::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message >= WM_MOUSEMOVE && message <= WM_MOUSEWHEEL)
        return PassMouseOn(message, wParam, lParam);
    switch (message) {
    case WM_PAINT:
        Paint(*reinterpret_cast<CDC*>(wParam));
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_MOUSEACTIVATE:
        return MA_NOACTIVATE;
    default:
        return CWnd::WindowProc(message, wParam, lParam);
    }
}

// Beside the covered window nothing happens: what is below the picture there is not known here.
LRESULT CTooltippBitmap::PassMouseOn(UINT message, WPARAM wParam, LPARAM lParam) const {
    const bool isOnScreen = message == WM_MOUSEWHEEL;
    const CPoint screen = isOnScreen ? PointOf(lParam) : ClientToScreen(m_hWnd, PointOf(lParam));
    const CPoint client = ScreenToClient(m_covered, screen);
    if (!korvel::GetClientRect(m_covered).PtInRect(client))
        return 0;
    const CPoint point = isOnScreen ? screen : client;
    return korvel::SendMessageA(m_covered, message, wParam, MAKELPARAM(point.x, point.y));
}

void CTooltippBitmap::Paint(CDC& dc) const {
    CRect rect = GetClientRect();
    dc.FillSolidRect(rect, GetSysColor(COLOR_WINDOW));
    dc.FrameRect(rect, GetSysColor(COLOR_BTNSHADOW));
    rect.DeflateRect(Border, Border);
    dc.DrawImage(m_image, rect);
}

} // namespace korvel
