#include "qt/recorder.h"

#include <algorithm>
#include <iterator>

namespace korvel::test {

namespace {

enum class Detail { None, Number, Command, Notification };

struct MessageRow {
    UINT message;
    const char* name;
    Detail detail;
};

constexpr MessageRow Recorded[] = {
    {WM_KEYDOWN, "key down", Detail::Number},
    {WM_KEYUP, "key up", Detail::Number},
    {WM_SYSKEYDOWN, "system key down", Detail::Number},
    {WM_CHAR, "character", Detail::Number},
    {WM_SYSCHAR, "system character", Detail::Number},
    {WM_LBUTTONDOWN, "left button down", Detail::None},
    {WM_LBUTTONUP, "left button up", Detail::None},
    {WM_LBUTTONDBLCLK, "left double click", Detail::None},
    {WM_NCLBUTTONDOWN, "press outside the client area", Detail::None},
    {WM_MOVE, "move", Detail::None},
    {WM_SETFOCUS, "gets the focus", Detail::None},
    {WM_KILLFOCUS, "loses the focus", Detail::None},
    {WM_COMMAND, "command", Detail::Command},
    {WM_NOTIFY, "notification", Detail::Notification},
    {WM_ENABLE, "enable", Detail::Number},
    {WM_SHOWWINDOW, "show", Detail::Number},
    {WM_CLOSE, "close", Detail::None},
    {WM_DESTROY, "destroy", Detail::None},
};

std::string TextOf(Detail detail, WPARAM wParam, LPARAM lParam) {
    switch (detail) {
    case Detail::Number:
        return " " + std::to_string(wParam);
    case Detail::Command:
        return " " + std::to_string(HIWORD(wParam)) + " of " + std::to_string(LOWORD(wParam));
    case Detail::Notification: {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        return " " + std::to_string(static_cast<int>(header.code)) + " of " + std::to_string(header.idFrom);
    }
    default:
        return {};
    }
}

} // namespace

LRESULT Recorder::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto row = std::ranges::find(Recorded, message, &MessageRow::message);
    if (row != std::end(Recorded))
        m_log.push_back(m_name + ": " + row->name + TextOf(row->detail, wParam, lParam));
    if (onMessage && onMessage(message, wParam, lParam))
        return 0;
    return CWnd::WindowProc(message, wParam, lParam);
}

} // namespace korvel::test
