#include "korvel/platform/code_page.h"
#include "korvel/window/core/cwnd_access.h"
#include "korvel/window/core/dc.h"
#include "korvel/window/core/display.h"
#include "korvel/window/core/input_delivery.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_changes.h"

#include <cstring>

namespace korvel {

using namespace internal;

namespace {

constexpr UINT VK_APPS = 0x5D; // the menu key
constexpr UINT VK_F10 = 0x79;

LRESULT SetText(WindowRecord& record, LPARAM text) {
    record.text = text ? reinterpret_cast<const char*>(text) : "";
    TellDisplay(record, Aspect::Text);
    return 1;
}

LRESULT CopyText(const WindowRecord& record, WPARAM capacity, LPARAM buffer) {
    if (capacity == 0 || !buffer)
        return 0;
    const std::string_view copied = platform::CutCharacters(record.text, capacity - 1);
    char* target = reinterpret_cast<char*>(buffer);
    std::memcpy(target, copied.data(), copied.size());
    target[copied.size()] = '\0';
    return static_cast<LRESULT>(copied.size());
}

LRESULT SetRedraw(WindowRecord& record, bool redraw) {
    const bool wasOff = !std::exchange(record.redraw, redraw);
    if (redraw && wasOff) {
        if (const Aspects untold = std::exchange(record.untold, {}))
            TellDisplay(record, untold);
        Repaint(record);
    }
    return 0;
}

LRESULT SetFont(WindowRecord& record, WPARAM font) {
    record.font = font;
    TellDisplay(record, Aspect::Text);
    return 0;
}

LRESULT FillBackground(CDC* dc) {
    if (!dc)
        return 0;
    dc->FillSolidRect(dc->GetClipBox(), GetSysColor(COLOR_BTNFACE));
    return 1;
}

// Asked from the window under the pointer outwards: the first that sets a cursor ends the question.
LRESULT ChooseCursor(const WindowRecord& record, WPARAM asked, LPARAM lParam) {
    if (record.parent && SendMessageA(record.parent, WM_SETCURSOR, asked, lParam))
        return 1;
    const bool native = record.control && record.control->Kind() == view::Kind::Edit;
    if (reinterpret_cast<HWND>(asked) == record.handle && !native)
        SetCursor(IDC_ARROW);
    return 0;
}

LRESULT AskForMenu(HWND window, LPARAM clientPoint) {
    const CPoint screen = ClientToScreen(window, PointOf(clientPoint));
    return SendMessageA(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window),
                        MAKELPARAM(screen.x, screen.y));
}

// The menu key is reported by displays with native widgets themselves, as WM_CONTEXTMENU; Shift+F10 is not.
LRESULT AskForMenuByKey(const WindowRecord& record, UINT message, WPARAM key) {
    const bool isHeadless = Display().IsHeadless();
    const bool hasOwnMenu = !isHeadless && record.control && record.control->Kind() == view::Kind::Edit;
    const bool isMenuKey = message == WM_KEYUP ? isHeadless && key == VK_APPS
                                               : key == VK_F10 && IsKeyDown(VK_SHIFT) && !hasOwnMenu;
    if (isMenuKey)
        PostMessageA(record.handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(record.handle),
                     MAKELPARAM(-1, -1));
    return 0;
}

LRESULT OfferToControl(const WindowRecord& record, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    // An object has offered it itself (CWnd::WindowProc): a control that declined is not asked twice.
    if (!record.object)
        WindowAccess::OfferToControl(message, wParam, lParam, &result);
    return result;
}

} // namespace

LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return OnOwner(
        window,
        [&](WindowRecord& record) -> LRESULT {
            NoteDefaultReached(window, message, wParam, lParam);
            switch (message) {
            case WM_SETTEXT:
                return SetText(record, lParam);
            case WM_GETTEXT:
                return CopyText(record, wParam, lParam);
            case WM_GETTEXTLENGTH:
                return static_cast<LRESULT>(record.text.size());
            case WM_SETREDRAW:
                return SetRedraw(record, wParam != 0);
            case WM_SETFONT:
                return SetFont(record, wParam);
            case WM_GETFONT:
                return static_cast<LRESULT>(record.font);
            case WM_CLOSE:
                DestroyWindow(window);
                return 0;
            case WM_ERASEBKGND:
                return FillBackground(reinterpret_cast<CDC*>(wParam));
            case WM_SETCURSOR:
                return ChooseCursor(record, wParam, lParam);
            case WM_RBUTTONUP:
                return AskForMenu(window, lParam);
            case WM_KEYUP:
            case WM_KEYDOWN:
            case WM_SYSKEYDOWN:
                return AskForMenuByKey(record, message, wParam);
            case WM_CONTEXTMENU:
            case WM_MOUSEWHEEL:
                return SendMessageA(record.parent, message, wParam, lParam);
            case WM_COMMAND:
            case WM_NOTIFY:
            case WM_DRAWITEM:
                return OfferToControl(record, message, wParam, lParam);
            default:
                return 0;
            }
        });
}

} // namespace korvel
