#include "korvel/window/core/ask_user.h"
#include "korvel/window/core/window.h"

namespace korvel {

using namespace internal;

CPoint GetCursorPos() {
    return OnDisplayThread([](IDisplay& display) { return display.Pointer(); });
}

void SetCursor(int cursor) {
    OnDisplayThread([&](IDisplay& display) { display.SetCursor(cursor); });
}

int GetKeyState(UINT key) {
    return OnDisplayThread([&](IDisplay& display) { return display.KeyState(key); });
}

COLORREF GetSysColor(int index) {
    return OnDisplayThread([&](IDisplay& display) { return display.SysColor(index); });
}

int GetSystemMetrics(int index) {
    return OnDisplayThread([&](IDisplay& display) { return display.Metric(index); });
}

int MessageBoxA(HWND owner, const CString& text, const CString& caption, UINT type) {
    return AskUser([&](IDisplay& display) { return display.MessageBox(owner, text, caption, type); });
}

int OpenPath(HWND owner, const CString& path, OpenAs as) {
    return OnDisplayThread([&](IDisplay& display) { return display.OpenPath(owner, path, as); });
}

} // namespace korvel
