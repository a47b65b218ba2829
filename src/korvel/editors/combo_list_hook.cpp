#include "korvel/editors/combo_list_hook.h"

#include <algorithm>
#include <iterator>

namespace korvel {

namespace {

constexpr UINT EndingMessages[] = {
    WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_NCLBUTTONDOWN, WM_NCRBUTTONDOWN, WM_NCMBUTTONDOWN,
    WM_SYSKEYDOWN,        WM_SYSCOMMAND,       WM_LBUTTONDOWN,   WM_RBUTTONDOWN,   WM_MBUTTONDOWN,
};

} // namespace

bool EndsComboList(HWND owner, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) {
        const bool isFromControl = lParam != 0;
        return !owner || !isFromControl || static_cast<int>(LOWORD(wParam)) != GetDlgCtrlID(owner);
    }
    return std::find(std::begin(EndingMessages), std::end(EndingMessages), message) !=
           std::end(EndingMessages);
}

} // namespace korvel
