#pragma once

#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/exception_handler.h"
#include "korvel/window/display/headless_display.h"
#include "support/table.h"

#include <functional>
#include <gmock/gmock.h>
#include <map>
#include <string>
#include <vector>

namespace korvel {

using Log = std::vector<std::string>;

/// A window that writes the named messages that it hears into a log, and does at a message what the test
/// says; CWnd::GetCurrentMessage has its parameters.
class RecordedWindow : public CWnd {
public:
    using Reaction = std::function<void()>;

    RecordedWindow(std::string name, Log& log) : m_name(std::move(name)), m_log(log) {}

    std::map<UINT, Reaction> on;
    std::map<UINT, LRESULT> answer; // instead of the default handling
    std::function<bool(const MSG&)> preTranslate = [](const MSG&) { return false; };

    bool Create(UINT style, CWnd* parent, int id = 0, CRect rect = {0, 0, 100, 50}) {
        return CreateEx(0, "KorvelFrame", m_name.c_str(), style, rect, parent, id);
    }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (const auto named = Names.find(message); named != Names.end())
            m_log.push_back(m_name + " " + named->second + Detail(message, wParam, lParam));
        if (!React(message))
            return 0;
        const auto fixed = answer.find(message);
        return fixed != answer.end() ? fixed->second : CWnd::WindowProc(message, wParam, lParam);
    }

    bool PreTranslateMessage(MSG& message) override {
        if (!preTranslate(message))
            return false;
        m_log.push_back(m_name + " drops");
        return true;
    }

private:
    /// False when the reaction destroyed this object or its window.
    bool React(UINT message) {
        const auto reaction = on.find(message);
        if (reaction == on.end())
            return true;
        const Reaction run = reaction->second;
        const HWND window = m_hWnd;
        run();
        return FromHandlePermanent(window) == this;
    }

    static std::string Detail(UINT message, WPARAM wParam, LPARAM lParam) {
        if ((message >= WM_KEYDOWN && message <= WM_SYSCHAR) || message == WM_ENABLE ||
            message == WM_SHOWWINDOW)
            return " " + std::to_string(wParam);
        if (message == WM_COMMAND)
            return " " + std::to_string(HIWORD(wParam)) + " of " + std::to_string(LOWORD(wParam));
        const auto* notice = message == WM_NOTIFY ? reinterpret_cast<const NMHDR*>(lParam) : nullptr;
        return notice ? " " + std::to_string(static_cast<int>(notice->code)) : "";
    }

    inline static const std::map<UINT, std::string> Names = {{WM_CREATE, "create"},
                                                             {WM_DESTROY, "destroy"},
                                                             {WM_NCDESTROY, "end"},
                                                             {WM_SIZE, "size"},
                                                             {WM_MOVE, "move"},
                                                             {WM_SHOWWINDOW, "show"},
                                                             {WM_SETFOCUS, "focus"},
                                                             {WM_KILLFOCUS, "no focus"},
                                                             {WM_TIMER, "timer"},
                                                             {WM_KEYDOWN, "key"},
                                                             {WM_CHAR, "char"},
                                                             {WM_SYSKEYDOWN, "syskey"},
                                                             {WM_SYSCHAR, "syschar"},
                                                             {WM_LBUTTONDOWN, "press"},
                                                             {WM_MOUSEWHEEL, "wheel"},
                                                             {WM_CAPTURECHANGED, "capture lost"},
                                                             {WM_CONTEXTMENU, "menu"},
                                                             {WM_USER, "user"},
                                                             {WM_WINDOWPOSCHANGED, "placed"},
                                                             {WM_KEYUP, "key up"},
                                                             {WM_LBUTTONUP, "release"},
                                                             {WM_LBUTTONDBLCLK, "double click"},
                                                             {WM_NCLBUTTONDOWN, "press outside"},
                                                             {WM_COMMAND, "command"},
                                                             {WM_NOTIFY, "notice"},
                                                             {WM_ENABLE, "enable"},
                                                             {WM_CLOSE, "close"}};
    std::string m_name;
    Log& m_log;
};

class WindowTest : public testing::Test {
protected:
    WindowTest() { SetDisplay(&display); }
    ~WindowTest() override { SetExceptionHandler(nullptr); }

    /// What was logged since the last call.
    Log Heard() { return std::exchange(log, {}); }

    HeadlessDisplay display;
    Log log;
};

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

} // namespace korvel
