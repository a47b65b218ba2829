#include "layout/subclass_wnd.h"
#include "window/cwnd.h"
#include "window/headless_display.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace korvel {
namespace {

constexpr UINT Ping = WM_USER + 1;

std::string& Log() {
    static std::string log;
    return log;
}

LRESULT WindowOfItsOwn(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == Ping)
        Log() += "window ";
    if (message == WM_NCDESTROY)
        Log() += "end ";
    return message == Ping ? 42 : DefWindowProcA(window, message, wParam, lParam);
}

class Hook : public CSubclassWnd {
public:
    explicit Hook(char name) : m_name(name) {}
    std::function<void()> beforePassingOn;
    std::function<void()> afterPassingOn;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == Ping)
            Log() += m_name;
        if (message == WM_NCDESTROY)
            Log() += "hook saw the end ";
        if (message == Ping && beforePassingOn)
            beforePassingOn();
        const auto after = message == Ping ? afterPassingOn : nullptr;
        const LRESULT result = CSubclassWnd::WindowProc(message, wParam, lParam);
        if (after)
            after();
        return result;
    }

private:
    char m_name;
};

class SubclassWndTest : public testing::Test {
protected:
    void SetUp() override {
        SetDisplay(&display);
        RegisterClassA("HookedWindow", WindowOfItsOwn);
        window = MakeWindow();
        own = Procedure();
        Log().clear();
    }
    ~SubclassWndTest() override { DestroyWindow(window); }

    static HWND MakeWindow() { return CreateWindowExA(0, "HookedWindow", "", 0, {0, 0, 9, 9}, nullptr, 0); }
    LPARAM Procedure() const { return GetWindowLongPtrA(window, GWLP_WNDPROC); }
    std::string Send() {
        Log().clear();
        EXPECT_EQ(SendMessageA(window, Ping, 0, 0), 42);
        return Log();
    }

    HeadlessDisplay display;
    HWND window = nullptr;
    LPARAM own = 0;
    Hook a{'a'}, b{'b'}, c{'c'};
};

TEST_F(SubclassWndTest, HooksLeaveInAnyOrder) {
    std::vector<Hook*> hooks = {&a, &b, &c};
    std::vector<int> order = {0, 1, 2};
    do {
        std::string chain = "cba";
        for (Hook* hook : hooks)
            EXPECT_EQ(hook->HookWindow(window), 1);
        EXPECT_EQ(Send(), "cbawindow ");
        for (const int leaving : order) {
            EXPECT_NE(Procedure(), own);
            EXPECT_EQ(hooks[leaving]->HookWindow(nullptr), 1);
            EXPECT_EQ(hooks[leaving]->GetHookedWindow(), nullptr);
            std::erase(chain, "abc"[leaving]);
            EXPECT_EQ(Send(), chain + "window ");
        }
        EXPECT_EQ(Procedure(), own);
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(SubclassWndTest, HooksThatLeaveWhileAMessagePassesLoseNoneForTheOthers) {
    struct Case {
        const char* name;
        std::string leaving; // while b handles the message
        std::string heard;
        std::string heardNext;
    };
    const Case cases[] = {
        {"itself", "b", "cbawindow ", "cawindow "},
        {"itself and the next", "ba", "cbwindow ", "cwindow "},
        {"the next and itself", "ab", "cbwindow ", "cwindow "},
        {"the one before", "c", "cbawindow ", "bawindow "},
        {"all", "cba", "cbwindow ", "window "},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        for (Hook* hook : {&a, &b, &c})
            hook->HookWindow(window);
        b.beforePassingOn = [&] {
            for (const char name : row.leaving)
                (name == 'a' ? a : name == 'b' ? b : c).HookWindow(nullptr);
        };
        EXPECT_EQ(Send(), row.heard);
        b.beforePassingOn = nullptr;
        EXPECT_EQ(Send(), row.heardNext);
        for (Hook* hook : {&a, &b, &c})
            hook->HookWindow(nullptr);
        EXPECT_EQ(Procedure(), own);
    }
}

TEST_F(SubclassWndTest, AHookCanBeDestroyedWhileItsMessagePasses) {
    auto dying = std::make_unique<Hook>('d');
    a.HookWindow(window);
    dying->HookWindow(window);
    dying->afterPassingOn = [&] { dying.reset(); };
    EXPECT_EQ(Send(), "dawindow ");
    EXPECT_EQ(Send(), "awindow ");
}

TEST_F(SubclassWndTest, TheEndOfTheWindowTakesAllHooksOff) {
    for (Hook* hook : {&a, &b, &c})
        hook->HookWindow(window);
    DestroyWindow(window);
    EXPECT_EQ(Log(), "end ");
    for (Hook* hook : {&a, &b, &c})
        EXPECT_EQ(hook->GetHookedWindow(), nullptr);
    window = MakeWindow();
    a.HookWindow(window); // can be used again
    EXPECT_EQ(Send(), "awindow ");
}

TEST_F(SubclassWndTest, AWindowMayDieInsideAHook) {
    a.HookWindow(window);
    b.HookWindow(window);
    b.beforePassingOn = [&] { DestroyWindow(window); };
    EXPECT_EQ(SendMessageA(window, Ping, 0, 0), 0);
    EXPECT_EQ(Log(), "bend ");
}

TEST_F(SubclassWndTest, AHookOnAnotherWindowLeavesTheFirst) {
    const HWND other = MakeWindow();
    a.HookWindow(window);
    a.HookWindow(other);
    EXPECT_EQ(Send(), "window ");
    EXPECT_EQ(Procedure(), own);
    a.HookWindow(other); // twice on one window is once
    SendMessageA(other, Ping, 0, 0);
    EXPECT_EQ(Log(), "window awindow ");
    DestroyWindow(other);
    EXPECT_EQ(a.HookWindow(other), 1);
    EXPECT_EQ(a.GetHookedWindow(), nullptr);
}

TEST_F(SubclassWndTest, TheCurrentMessageIsTheHookedOneInsideAndTheFormerOneAfter) {
    class Outer : public CWnd {
    public:
        std::function<void()> inside;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == Ping) {
                inside();
                EXPECT_EQ(GetCurrentMessage().wParam, 7u);
            }
            return CWnd::WindowProc(message, wParam, lParam);
        }
    } outer;
    outer.CreateEx(0, "KorvelFrame", "", 0, {0, 0, 9, 9}, nullptr, 0);
    MSG seen;
    a.HookWindow(window);
    a.beforePassingOn = [&] { seen = CWnd::GetCurrentMessage(); };
    outer.inside = [&] { SendMessageA(window, Ping, 1, 2); };
    SendMessageA(outer.m_hWnd, Ping, 7, 0);
    EXPECT_EQ(seen.hwnd, window);
    EXPECT_EQ(seen.wParam, 1u);
    EXPECT_EQ(seen.lParam, 2);
}

} // namespace
} // namespace korvel
